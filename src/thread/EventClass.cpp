#include "thread/EventClass.h"

CEventClass::CEventClass() : created_(true) {
    pthread_mutex_init(&mutex_, nullptr);
    pthread_cond_init(&condition_, nullptr);
}

CEventClass::~CEventClass() {
    pthread_cond_destroy(&condition_);
    // Destroying a locked mutex is undefined; left alone it holds nothing
    // outside this object.
    if (!bracketOpen_) {
        pthread_mutex_destroy(&mutex_);
    }
}

void CEventClass::Set() {
    pthread_mutex_lock(&mutex_);
    latchAndSignal();
}

bool CEventClass::TrySet() {
    if (pthread_mutex_trylock(&mutex_) != 0) {
        return false;
    }
    latchAndSignal();
    return true;
}

void CEventClass::latchAndSignal() {
    latched_ = true;
    pthread_mutex_unlock(&mutex_);
    pthread_cond_signal(&condition_);
}

bool CEventClass::Wait() {
    pthread_mutex_lock(&mutex_);
    while (!latched_) {
        pthread_cond_wait(&condition_, &mutex_);
    }
    latched_ = false;
    bracketOpen_ = true;
    return true;
}

void CEventClass::Reset() {
    bracketOpen_ = false;
    pthread_mutex_unlock(&mutex_);
}
