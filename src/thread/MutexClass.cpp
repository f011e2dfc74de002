#include "thread/MutexClass.h"

CMutexClass::CMutexClass() : created_(true) {
    pthread_mutex_init(&mutex_, nullptr);
}

CMutexClass::~CMutexClass() {
    Lock();
    Unlock();
    pthread_mutex_destroy(&mutex_);
}

void CMutexClass::Lock() {
    if (heldByCaller()) {
        return;
    }
    pthread_mutex_lock(&mutex_);
    owner_ = pthread_self();
}

void CMutexClass::Unlock() {
    if (!heldByCaller()) {
        return;
    }
    owner_ = 0;
    pthread_mutex_unlock(&mutex_);
}
