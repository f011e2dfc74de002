#include "bench/system/machine/machine.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <ctime>

#include "tests/support/files.h"

namespace bench {
namespace {

std::string processorName() {
    for (const std::string& line : support::splitLines(support::readFile("/proc/cpuinfo"))) {
        if (!line.starts_with("model name")) continue;
        const auto text = line.find_first_not_of(' ', line.find(':') + 1);
        if (text != std::string::npos) return line.substr(text);
    }
    return "unnamed processor";
}

}  // namespace

Machine thisMachine() {
    utsname name{};
    ::uname(&name);
    return {processorName(), static_cast<unsigned>(::sysconf(_SC_NPROCESSORS_ONLN)),
            std::string(name.sysname) + " " + name.release + " " + name.machine, ""};
}

std::string dateNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return text.data();
}

}  // namespace bench
