#include "bench/system/machine/processor_time.h"

#include <sys/resource.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "bench/system/basics/failure.h"

namespace bench {
namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

double processorSeconds(pid_t process) {
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    double sum = 0;
    std::error_code gone;
    for (const auto& task : std::filesystem::directory_iterator(tasks, gone)) {
        double nanoseconds = 0;
        std::ifstream(task.path() / "schedstat") >> nanoseconds;
        sum += nanoseconds / 1e9;
    }
    return sum;
}

double processorSecondsUpToNow(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0) {
        throw Failure("the processor time of a process cannot be read");
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double usedSeconds(int who) {
    rusage usage{};
    ::getrusage(who, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

}  // namespace bench
