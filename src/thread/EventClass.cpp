#include "thread/EventClass.h"

CEventClass::CEventClass() : created_(true) {
    pthread_cond_init(&condition_, nullptr);
    pthread_cond_init(&bracketClosed_, nullptr);
}

CEventClass::~CEventClass() {
    pthread_cond_destroy(&bracketClosed_);
    pthread_cond_destroy(&condition_);
}

void CEventClass::Set() {
    mutex_.lock();
    while (bracketOpen_) {
        mutex_.waitFor(bracketClosed_);
    }
    latchAndSignal();
}

bool CEventClass::trySet() {
    mutex_.lock();
    if (bracketOpen_) {
        mutex_.unlock();
        return false;
    }
    latchAndSignal();
    return true;
}

void CEventClass::latchAndSignal() {
    latched_ = true;
    mutex_.unlock();
    pthread_cond_signal(&condition_);
}

bool CEventClass::Wait() {
    mutex_.lock();
    while (!latched_) {
        mutex_.waitFor(condition_);
    }
    latched_ = false;
    bracketOpen_ = true;
    mutex_.unlock();
    return true;
}

void CEventClass::Reset() {
    mutex_.lock();
    bracketOpen_ = false;
    mutex_.unlock();
    pthread_cond_broadcast(&bracketClosed_);
}
