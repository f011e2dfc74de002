#include "bench/system/processor_time.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>

#include "tests/support/files.h"

namespace bench {

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

double childSeconds(pid_t process) {
    const std::string stat = support::readFile("/proc/" + std::to_string(process) + "/stat");
    // Behind the name, which may hold anything: state, then numbers; those of the
    // children in user and in kernel mode are the 14th and 15th of these fields.
    std::istringstream fields(stat.substr(stat.rfind(')') + 1));
    std::string skipped;
    for (int i = 0; i < 13; ++i) fields >> skipped;
    double user = 0;
    double kernel = 0;
    fields >> user >> kernel;
    return (user + kernel) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

}  // namespace bench
