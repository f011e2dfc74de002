#include "tests/support/process/resources.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace support {
namespace {

constexpr int kLooks = 20;
constexpr std::chrono::milliseconds kBetween{10};

Resources look(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    Resources now;
    std::ifstream status(folder / "status");
    std::string name;
    while (status >> name) {
        if (name == "VmRSS:") status >> now.residentKib;
        if (name == "RssAnon:") status >> now.anonymousKib;
        if (name == "Threads:") status >> now.threads;
        std::getline(status, name);
    }
    std::error_code gone;
    for (std::filesystem::directory_iterator entry(folder / "fd", gone), end; !gone && entry != end;
         entry.increment(gone)) {
        ++now.descriptors;
    }
    return now;
}

}  // namespace

Resources resourcesAtRest(pid_t process) {
    Resources least = look(process);
    for (int i = 1; i < kLooks; ++i) {
        std::this_thread::sleep_for(kBetween);
        const Resources now = look(process);
        least.residentKib = std::min(least.residentKib, now.residentKib);
        least.anonymousKib = std::min(least.anonymousKib, now.anonymousKib);
        least.descriptors = std::min(least.descriptors, now.descriptors);
        least.threads = std::min(least.threads, now.threads);
    }
    return least;
}

}  // namespace support
