#include "thread/task.h"

CTask::State CTask::state() {
    MutexGuard guard(lock_);
    return state_;
}

void CTask::setState(State state) {
    MutexGuard guard(lock_);
    state_ = state;
}
