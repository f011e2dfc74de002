#pragma once

#include <pthread.h>

#include <atomic>
#include <cstdint>

#include "thread/EventClass.h"
#include "thread/MutexClass.h"

/// How a CThread's kernel runs: 0 sleeps until an event is posted, 1 runs one
/// cycle after another with a pause of the idle time between them. Any other
/// value runs cycles without wait or pause.
using ThreadType_t = int;
inline constexpr ThreadType_t kEventDriven = 0;
inline constexpr ThreadType_t kIntervalDriven = 1;

/// Values of CThread::ThreadState().
namespace thread_state {
inline constexpr int kBusy = 0;          ///< a cycle is in progress
inline constexpr int kWaiting = 1;       ///< the last cycle ended normally
inline constexpr int kDown = 2;          ///< no kernel
inline constexpr int kShuttingDown = 3;  ///< a cycle was told to end
inline constexpr int kFault = 4;         ///< see the error flags
}  // namespace thread_state

/// Bits of CThread::ErrorFlags().
namespace thread_error {
inline constexpr std::uint32_t kMutexCreation = 1;
inline constexpr std::uint32_t kEventCreation = 2;
inline constexpr std::uint32_t kThreadCreation = 4;
inline constexpr std::uint32_t kIllegalEvent = 16;  ///< an event for a thread that takes none
inline constexpr std::uint32_t kQueueMemory = 32;
}  // namespace thread_error

/// A unit of work for an event-driven CThread. The poster owns it and keeps it
/// alive until its state is kCompleted.
class CTask {
  public:
    static constexpr int kQueued = 1;
    static constexpr int kRunning = 2;
    static constexpr int kCompleted = 3;

    /// The work; runs on the thread's kernel. False ends that kernel.
    virtual bool Task() = 0;

    int State();
    void SetState(int state);
    /// The identifier of the thread that the task was posted to.
    std::uint32_t ThreadId() const { return threadId_; }
    void SetThreadId(std::uint32_t threadId) { threadId_ = threadId; }

  protected:
    ~CTask() = default;

  private:
    int state_ = 0;
    std::atomic<std::uint32_t> threadId_{0};
    CMutexClass lock_;
};

/// An object with a POSIX thread of its own, the kernel, that runs the object's
/// task operation over and over until the object is stopped.
///
/// The kernel starts in this base's constructor, event-driven, and so sleeps
/// while the derived object is still being built. A derived constructor ends
/// with SetThreadType(kIntervalDriven, idle), and a derived destructor begins
/// with Stop(), so that no cycle meets a half object.
///
/// Idle times and the time-out of PingThread count in steps of 100 nanoseconds.
class CThread {
  public:
    CThread();
    /// Stops and joins the kernel. Not virtual: nobody deletes a worker through
    /// this base.
    ~CThread();
    CThread(const CThread&) = delete;
    CThread& operator=(const CThread&) = delete;

    /// One posted event; runs on the kernel. The base takes the event as a
    /// CTask and runs it. False ends the kernel.
    virtual bool OnTask(void* event);
    /// One cycle of an interval-driven thread, or of an event-driven one that
    /// was woken with nothing stored; runs on the kernel. False ends the kernel.
    virtual bool OnTask();

    /// Starts the kernel unless there is one; false when the system refused.
    bool Start();
    /// Ends the kernel after its current cycle and waits for it. Not to be
    /// called from the kernel itself.
    void Stop();
    /// Waits until the kernel runs; false once the idle times waited exceed
    /// `timeout`. A time-out below 1 waits without end.
    bool PingThread(long timeout);
    /// A change wakes the kernel and blocks while it is in an event-driven cycle,
    /// so the kernel itself must not call it.
    void SetThreadType(ThreadType_t type, long idleTime);
    void SetIdle(long idleTime);
    /// Has no effect: the workers share the process's priority.
    void SetPriority(long priority);
    int ThreadState();
    std::uint32_t ErrorFlags();
    std::uint32_t GetEventsPending();

    /// Posts an event to an event-driven thread and wakes it; blocks while it
    /// is in a cycle, so the kernel itself must not call it. A null event only
    /// wakes it. False when the queue is full or the thread is not event-driven;
    /// the caller then keeps the event.
    bool Event(void* event);
    bool Event(CTask* task);

    /// Stores an event behind the others, at most 99; a null event is accepted
    /// and not stored.
    bool Push(void* event);
    /// Makes the event stored last the current one.
    bool Pop();
    bool Empty();
    /// One cycle; runs on the kernel.
    bool KernelProcess();

  protected:
    /// Asks the kernel to end after its current cycle, without waiting for it;
    /// Stop() does that.
    void RequestStop() { running_ = false; }
    /// False once Stop() was called; for cycles that never return by themselves.
    bool Running() const { return running_; }
    /// The stack of kernels started from now on, in bytes; 0 is the system's
    /// default.
    void SetStackSize(std::uint32_t bytes);

  private:
    enum class Kernel { kNone, kCreated, kStarted, kEnded };

    static void* _THKERNEL(void* thread);

    bool takesEvents();
    /// The caller holds lock_. False when the queue is full.
    bool store(void* event);
    void wakeKernel();
    void setState(int state);
    void fault(std::uint32_t errorFlag);

    CEventClass event_;
    std::atomic<bool> running_{false};
    pthread_t handle_ = 0;
    std::uint32_t threadId_ = 0;
    void** queue_;
    std::uint32_t capacity_;
    std::uint32_t pending_ = 0;
    void* current_ = nullptr;
    int state_ = thread_state::kDown;
    std::atomic<std::uint32_t> idleTime_{100};
    std::atomic<ThreadType_t> type_{kEventDriven};
    std::uint32_t stackSize_ = 0;
    std::uint32_t errors_ = 0;
    /// Whether there is a kernel to wake, wait for or join. The running flag and
    /// the state cannot tell: one is set late, the other is overwritten.
    std::atomic<Kernel> kernel_{Kernel::kNone};
    /// Guards the fields above, never held while a task operation runs or while
    /// the event is set: the kernel needs it to finish its cycle.
    CMutexClass lock_;
};
