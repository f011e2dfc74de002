#include "thread/EventClass.h"

CEventClass::CEventClass() : created_(true) {
    pthread_mutex_init(&mutex_, nullptr);
    pthread_cond_init(&condition_, nullptr);
    pthread_cond_init(&bracketClosed_, nullptr);
}

CEventClass::~CEventClass() {
    pthread_cond_destroy(&bracketClosed_);
    pthread_cond_destroy(&condition_);
    pthread_mutex_destroy(&mutex_);
}

void CEventClass::Set() {
    pthread_mutex_lock(&mutex_);
    while (bracketOpen_) {
        pthread_cond_wait(&bracketClosed_, &mutex_);
    }
    latchAndSignal();
}

bool CEventClass::TrySet() {
    pthread_mutex_lock(&mutex_);
    if (bracketOpen_) {
        pthread_mutex_unlock(&mutex_);
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
    pthread_mutex_unlock(&mutex_);
    return true;
}

void CEventClass::Reset() {
    pthread_mutex_lock(&mutex_);
    bracketOpen_ = false;
    pthread_mutex_unlock(&mutex_);
    pthread_cond_broadcast(&bracketClosed_);
}
