#pragma once

#include <pthread.h>

#include <atomic>
#include <cstdint>

#include "thread/EventClass.h"
#include "thread/MutexClass.h"
#include "thread/annotations.h"
#include "thread/task.h"

/// The way in which a CThread's kernel runs: with 0 it sleeps until an event is posted, with
/// 1 it runs one cycle after another and pauses for the idle time between them. With any
/// other value it runs cycles without waits and pauses.
using ThreadType_t = int;
inline constexpr ThreadType_t kEventDriven = 0;
inline constexpr ThreadType_t kIntervalDriven = 1;

/// What CThread::ThreadState() says. The type is not called ThreadState, because a member
/// has that name.
enum class KernelState : std::int32_t {
    kBusy = 0,          ///< a cycle is in progress
    kWaiting = 1,       ///< the last cycle ended normally
    kDown = 2,          ///< there is no kernel
    kShuttingDown = 3,  ///< a cycle was asked to end
    kFault = 4,         ///< something failed: see the error flags
};

/// Bits of CThread::errorFlags().
namespace thread_error {
inline constexpr std::uint32_t kMutexCreation = 1;
inline constexpr std::uint32_t kEventCreation = 2;
inline constexpr std::uint32_t kThreadCreation = 4;
inline constexpr std::uint32_t kIllegalEvent = 16;  ///< an event for a thread that takes none
inline constexpr std::uint32_t kQueueMemory = 32;
}  // namespace thread_error

/// An object with a POSIX thread of its own, the kernel, that runs the object's task
/// operation over and over until the object is stopped.
///
/// The kernel starts in this base's constructor, event-driven, and so sleeps while the
/// derived object is still being built.
/// REQUIRES: a derived constructor ends with SetThreadType(kIntervalDriven, idle) and a
/// derived destructor begins with Stop(), so that no cycle meets a half object.
///
/// Idle times and the time-out of PingThread count in steps of 100 nanoseconds.
class CThread {
  public:
    CThread();
    /// Stops and joins the kernel. The destructor is not virtual: no owner deletes a worker
    /// through this base.
    ~CThread();
    CThread(const CThread&) = delete;
    CThread& operator=(const CThread&) = delete;

    /// Handles one posted event; runs on the kernel. The base takes the event as a CTask and
    /// runs it. False ends the kernel.
    virtual bool OnTask(void* event);
    /// Runs one cycle of an interval-driven thread, or of an event-driven one that was woken
    /// with nothing stored; runs on the kernel. False ends the kernel.
    virtual bool OnTask();

    /// Starts the kernel unless there is one; false when the system refused.
    bool Start() ZOLT_EXCLUDES(lock_);
    /// Ends the kernel after its current cycle and waits for its end.
    /// REQUIRES: the caller is not the kernel.
    void Stop() ZOLT_EXCLUDES(lock_);
    /// Waits until the kernel runs; false once the idle times waited exceed `timeout`. A
    /// time-out below 1 waits without end.
    bool PingThread(long timeout);
    /// A change of the type wakes the kernel and blocks while the kernel is in an
    /// event-driven cycle.
    /// REQUIRES: the caller is not the kernel.
    void SetThreadType(ThreadType_t type, long idleTime) ZOLT_EXCLUDES(lock_);
    void SetIdle(long idleTime);
    /// Has no effect: the workers share the process's priority.
    void SetPriority(long priority);
    KernelState ThreadState() ZOLT_EXCLUDES(lock_);
    std::uint32_t errorFlags() ZOLT_EXCLUDES(lock_);
    std::uint32_t GetEventsPending() ZOLT_EXCLUDES(lock_);

    /// Posts an event to an event-driven thread and wakes it; blocks while that thread is in
    /// a cycle. A null event only wakes the thread. False when the queue is full or the
    /// thread is not event-driven; the caller then keeps the event.
    /// REQUIRES: the caller is not the kernel.
    bool Event(void* event) ZOLT_EXCLUDES(lock_);
    bool Event(CTask* task) ZOLT_EXCLUDES(lock_);

    /// Stores an event after the others, at most 99; a null event is accepted and not
    /// stored.
    bool Push(void* event) ZOLT_EXCLUDES(lock_);
    /// Makes the event stored last the current one.
    bool Pop() ZOLT_EXCLUDES(lock_);
    bool Empty() ZOLT_EXCLUDES(lock_);
    /// Runs one cycle; runs on the kernel.
    bool KernelProcess() ZOLT_EXCLUDES(lock_);

  protected:
    /// Asks the kernel to end after its current cycle, without waiting for its end as Stop()
    /// does.
    void requestStop() { running_ = false; }
    /// False once the kernel was asked to end; for cycles that never return by themselves.
    bool running() const { return running_; }
    /// Sets the stack of kernels that start from now on, in bytes; 0 is the system's
    /// default.
    void setStackSize(std::uint32_t bytes) ZOLT_EXCLUDES(lock_);

  private:
    enum class Kernel { kNone, kCreated, kStarted, kEnded };

    static void* _THKERNEL(void* thread);

    bool takesEvents() ZOLT_EXCLUDES(lock_);
    /// False when the queue is full.
    bool store(void* event) ZOLT_REQUIRES(lock_);
    void* current() ZOLT_EXCLUDES(lock_);
    void wakeKernel() ZOLT_EXCLUDES(lock_);
    void setState(KernelState state) ZOLT_EXCLUDES(lock_);
    void fault(std::uint32_t errorFlag) ZOLT_REQUIRES(lock_);

    // Any thread may use the members down to the lock: each of them guards itself.

    CEventClass event_;
    /// True from the kernel's first instruction to its last; false asks the kernel to end.
    std::atomic<bool> running_{false};
    std::atomic<std::uint32_t> idleTime_{100};
    std::atomic<ThreadType_t> type_{kEventDriven};
    /// Whether there is a kernel to wake, to wait for or to join. The running flag and the
    /// state cannot say that: one is set late, the other is overwritten.
    std::atomic<Kernel> kernel_{Kernel::kNone};

    /// No thread holds this lock while a task operation runs or while it sets the event: the
    /// kernel needs the lock to finish its cycle.
    CMutexClass lock_;

    pthread_t handle_ ZOLT_GUARDED_BY(lock_) = 0;
    std::uint32_t threadId_ ZOLT_GUARDED_BY(lock_) = 0;
    /// The posted events; null when there was no memory for them.
    void** const queue_ ZOLT_POINTS_TO_GUARDED_BY(lock_);
    const std::uint32_t capacity_;
    std::uint32_t pending_ ZOLT_GUARDED_BY(lock_) = 0;
    void* current_ ZOLT_GUARDED_BY(lock_) = nullptr;
    KernelState state_ ZOLT_GUARDED_BY(lock_) = KernelState::kDown;
    std::uint32_t stackSize_ ZOLT_GUARDED_BY(lock_) = 0;
    std::uint32_t errors_ ZOLT_GUARDED_BY(lock_) = 0;
};
