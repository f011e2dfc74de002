#include "tests/reliability/soak/log_disk.h"

#include <sys/mount.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include "tests/support/process/private_view.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;

// More than a run logs from one rotation to the next.
constexpr const char* kSize = "size=4m";

fs::path disk() {
    return support::workFolder() / "disk";
}

fs::path logFolder() {
    return disk() / "log";
}

fs::path awayFolder() {
    return disk() / "log.away";
}

fs::path filler() {
    return disk() / "filler";
}

}  // namespace

LogDisk::LogDisk() {
    fs::create_directory(disk());
    if (::mount("tmpfs", disk().c_str(), "tmpfs", 0, kSize) != 0) {
        throw std::system_error(errno, std::generic_category(), "mount " + disk().string());
    }
    fs::create_directory(logFolder());
}

fs::path LogDisk::logFile() {
    return logFolder() / "zolt.log";
}

void LogDisk::rotateLog() const {
    std::error_code none;
    fs::rename(logFile(), logFolder() / "zolt.log.1", none);
}

void LogDisk::moveLogFolder(bool away) const {
    std::error_code already;
    if (away) {
        fs::rename(logFolder(), awayFolder(), already);
    } else {
        fs::rename(awayFolder(), logFolder(), already);
    }
}

void LogDisk::fill() const {
    std::ofstream file(filler(), std::ios::binary | std::ios::app);
    const std::string page(4096, 'x');
    while (file << page << std::flush) {
    }
    // The last page of a log has room; a new log has none.
    rotateLog();
}

void LogDisk::free() const {
    std::error_code none;
    fs::remove(filler(), none);
}

std::size_t LogDisk::linesWith(const std::string& end) const {
    std::ifstream file(logFile());
    std::size_t count = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with(end)) ++count;
    }
    return count;
}

}  // namespace reliability
