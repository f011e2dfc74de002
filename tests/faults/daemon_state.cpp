#include "tests/faults/daemon_state.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "tests/support/files.h"
#include "tests/support/sanitizer.h"

namespace {

std::filesystem::path folderOf(pid_t process) {
    return "/proc/" + std::to_string(process);
}

// Drops the numbers of "socket:[4711]" and "/dev/pts/3".
std::string withoutNumber(const std::string& target) {
    const std::string terminals = "/dev/pts/";
    if (target.starts_with(terminals)) return terminals;
    return target.substr(0, target.find(":["));
}

std::vector<std::string> descriptorsOf(pid_t process) {
    std::vector<std::string> targets;
    std::error_code closed;  // a descriptor may be closed between listing and reading
    for (const auto& entry : std::filesystem::directory_iterator(folderOf(process) / "fd")) {
        const auto target = std::filesystem::read_symlink(entry.path(), closed);
        if (!closed) targets.push_back(withoutNumber(target));
    }
    std::sort(targets.begin(), targets.end());
    return targets;
}

std::size_t threadsOf(pid_t process) {
    const std::filesystem::directory_iterator tasks(folderOf(process) / "task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

long memoryOf(pid_t process) {
    std::istringstream status(support::readFile(folderOf(process) / "status"));
    for (std::string word; status >> word;) {
        long kilobytes = 0;
        if (word == "RssAnon:" && status >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

}  // namespace

std::string DaemonState::describe() const {
    std::ostringstream text;
    text << threads << " threads, " << memory << " bytes, " << descriptors.size()
         << " descriptors:";
    for (const auto& descriptor : descriptors) text << " " << descriptor;
    return text.str();
}

DaemonState stateOf(pid_t process) {
    return {descriptorsOf(process), threadsOf(process), memoryOf(process)};
}

bool memoryIsMeaningful() {
    return !support::kMemorySanitized;
}
