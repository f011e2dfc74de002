#include "apps/zoltctl/output/time_stamp.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace zoltctl {
namespace {

std::tm localTime(WallTime time) {
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(time));
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return local;
}

std::string formatted(const std::tm& time, const char* format) {
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

std::string withMilliseconds(const std::tm& local, WallTime time, const char* format) {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time) -
                              std::chrono::floor<std::chrono::seconds>(time);
    std::array<char, 8> fraction{};
    std::snprintf(fraction.data(), fraction.size(), ".%03d",
                  static_cast<int>(milliseconds.count()));
    return formatted(local, format) + fraction.data();
}

}  // namespace

std::string timeText(WallTime time) {
    return withMilliseconds(localTime(time), time, "%Y-%m-%d %H:%M:%S");
}

std::string timeIso(WallTime time) {
    const std::tm local = localTime(time);
    std::string offset = formatted(local, "%z");
    offset.insert(offset.size() - 2, ":");
    return withMilliseconds(local, time, "%Y-%m-%dT%H:%M:%S") + offset;
}

}  // namespace zoltctl
