#include "tests/faults/faulty_system.h"

#include <pthread.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <ctime>
#include <fstream>

namespace {

std::atomic<int> started{0};

bool refusesThread() {
    std::ifstream file(faulty_system::kThreadsFile);
    int granted = 0;
    return file >> granted && started >= granted;
}

}  // namespace

// The names that the linker gives to the calls of the program and to those of the system.
extern "C" {
using ThreadFunction = void* (*)(void*);
int __real_pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                          ThreadFunction function, void* argument);
int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                          ThreadFunction function, void* argument);
std::time_t __real_time(std::time_t* result);
std::time_t __wrap_time(std::time_t* result);

int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                          ThreadFunction function, void* argument) {
    if (refusesThread()) return EAGAIN;
    ++started;
    return __real_pthread_create(thread, attributes, function, argument);
}

std::time_t __wrap_time(std::time_t* result) {
    struct stat status {};
    if (::stat(faulty_system::kClockFile, &status) != 0) return __real_time(result);
    if (result != nullptr) *result = status.st_mtime;
    return status.st_mtime;
}
}
