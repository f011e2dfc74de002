#include "thread/Thread.h"

#include <cstdio>
#include <new>

#include "common/pauses.h"

namespace {

constexpr std::uint32_t kQueueCapacity = 100;

/// An idle time below this, a microsecond, is spent on the processor.
constexpr std::uint32_t kShortIdle = 10;

/// The pause between two cycles, in steps of 100 nanoseconds.
void idle(std::uint32_t steps) {
    if (steps >= kShortIdle) {
        Sleep(steps);
        return;
    }
    spinFor(100 * static_cast<long>(steps));
}

}  // namespace

CThread::CThread()
    : queue_(new (std::nothrow) void*[kQueueCapacity]),
      capacity_(queue_ == nullptr ? 0 : kQueueCapacity) {
    if (queue_ == nullptr) {
        fault(thread_error::kQueueMemory);
        return;
    }
    if (!lock_.created()) {
        std::perror("mutex creation failed");
        fault(thread_error::kMutexCreation);
        return;
    }
    if (!event_.created()) {
        std::perror("event creation failed");
        fault(thread_error::kEventCreation);
        return;
    }
    Start();
}

CThread::~CThread() {
    if (kernel_ != Kernel::kNone) {
        Stop();
        pthread_join(handle_, nullptr);
    }
    delete[] queue_;
}

bool CThread::Start() {
    MutexGuard guard(lock_);
    const Kernel kernel = kernel_;
    if (kernel == Kernel::kCreated || kernel == Kernel::kStarted) {
        return true;
    }
    if (kernel == Kernel::kEnded) {
        pthread_join(handle_, nullptr);
        // A kernel that ended in an event-driven cycle has left its bracket open.
        event_.Reset();
        kernel_ = Kernel::kNone;
    }
    errors_ &= ~thread_error::kThreadCreation;

    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    if (stackSize_ != 0) {
        pthread_attr_setstacksize(&attributes, stackSize_);
    }
    kernel_ = Kernel::kCreated;
    const int error = pthread_create(&handle_, &attributes, _THKERNEL, this);
    pthread_attr_destroy(&attributes);
    if (error != 0) {
        kernel_ = Kernel::kNone;
        fault(thread_error::kThreadCreation);
        std::fprintf(stderr, "error: could not create thread, pthread_create failed (%d)!\n",
                     error);
        return false;
    }
    return true;
}

void CThread::Stop() {
    // A kernel that has not begun would set the running flag after it is cleared here.
    while (kernel_ == Kernel::kCreated) {
        Sleep(idleTime_);
    }
    if (kernel_ == Kernel::kStarted) {
        running_ = false;
        Event(static_cast<void*>(nullptr));
        do {
            Sleep(idleTime_);
        } while (kernel_ == Kernel::kStarted);
    }
    setState(KernelState::kDown);
}

bool CThread::PingThread(long timeout) {
    for (long waited = 0; !running_;) {
        waited += idleTime_;
        Sleep(idleTime_);
        if (timeout > 0 && waited > timeout) {
            return running_;
        }
    }
    return true;
}

void CThread::SetThreadType(ThreadType_t type, long idleTime) {
    SetIdle(idleTime);
    if (type_.exchange(type) != type) {
        wakeKernel();
    }
}

void CThread::SetIdle(long idleTime) {
    idleTime_ = static_cast<std::uint32_t>(idleTime);
}

void CThread::SetPriority(long /*priority*/) {}

void CThread::setStackSize(std::uint32_t bytes) {
    MutexGuard guard(lock_);
    stackSize_ = bytes;
}

KernelState CThread::ThreadState() {
    MutexGuard guard(lock_);
    return state_;
}

std::uint32_t CThread::errorFlags() {
    MutexGuard guard(lock_);
    return errors_;
}

bool CThread::OnTask(void* event) {
    auto* task = static_cast<CTask*>(event);
    task->setState(CTask::State::kRunning);
    const bool result = task->task();
    task->setState(CTask::State::kCompleted);
    return result;
}

bool CThread::OnTask() {
    std::puts("\nthread is alive");
    return true;
}

bool CThread::KernelProcess() {
    {
        MutexGuard guard(lock_);
        state_ = running_ ? KernelState::kBusy : KernelState::kShuttingDown;
        if (!running_) {
            return false;
        }
    }
    bool goOn = true;
    if (Empty()) {
        goOn = OnTask();
    } else {
        while (goOn && !Empty()) {
            Pop();
            goOn = OnTask(current());
        }
        MutexGuard guard(lock_);
        current_ = nullptr;
    }
    setState(goOn ? KernelState::kWaiting : KernelState::kShuttingDown);
    return goOn;
}

void* CThread::_THKERNEL(void* thread) {
    auto& self = *static_cast<CThread*>(thread);
    {
        MutexGuard guard(self.lock_);
        self.state_ = KernelState::kWaiting;
        self.running_ = true;
        self.threadId_ = static_cast<std::uint32_t>(pthread_self());
        self.kernel_ = Kernel::kStarted;
    }
    while (true) {
        const ThreadType_t type = self.type_;
        if (type == kEventDriven) {
            self.event_.Wait();
        }
        if (!self.KernelProcess()) {
            break;
        }
        if (type == kEventDriven) {
            self.event_.Reset();
        }
        if (self.type_ == kIntervalDriven) {
            idle(self.idleTime_);
        }
    }
    MutexGuard guard(self.lock_);
    self.state_ = KernelState::kDown;
    self.running_ = false;
    self.kernel_ = Kernel::kEnded;
    return nullptr;
}

void CThread::setState(KernelState state) {
    MutexGuard guard(lock_);
    state_ = state;
}

void CThread::fault(std::uint32_t errorFlag) {
    errors_ |= errorFlag;
    state_ = KernelState::kFault;
}
