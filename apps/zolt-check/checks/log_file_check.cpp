#include "apps/zolt-check/checks/log_file_check.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "lib/text/printable.h"

namespace zolt_check {
namespace {

/// The number of symbolic links that Linux follows in one path.
constexpr int kLinkLimit = 40;

bool hasAccess(const std::filesystem::path& path, int mode) {
    return faccessat(AT_FDCWD, path.c_str(), mode, AT_EACCESS) == 0;
}

std::string whyNotWritable(const std::filesystem::path& path, mode_t mode) {
    if (S_ISDIR(mode)) {
        return "it is a directory";
    }
    if (S_ISSOCK(mode)) {
        return "it is a socket";
    }
    return hasAccess(path, W_OK) ? "" : std::strerror(errno);
}

std::string whyNotCreatable(const std::filesystem::path& path) {
    if (!path.has_filename()) {
        return "it is a directory";
    }
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    struct stat about {};
    if (stat(folder.c_str(), &about) != 0) {
        return "folder " + zolt_text::quote(folder.string()) + ": " + std::strerror(errno);
    }
    return hasAccess(folder, W_OK | X_OK)
               ? ""
               : "folder " + zolt_text::quote(folder.string()) + ": " + std::strerror(errno);
}

/// The file that a link without a target leads to: opening the link would create it.
std::filesystem::path targetOf(std::filesystem::path path) {
    for (int i = 0; i < kLinkLimit; ++i) {
        std::error_code none;
        const std::filesystem::path target = std::filesystem::read_symlink(path, none);
        if (none) {
            break;
        }
        path = path.parent_path() / target;
    }
    return path;
}

}  // namespace

std::string whyLogFileCannotBeOpened(const std::string& path) {
    if (path.empty()) {
        return "";
    }
    struct stat about {};
    if (stat(path.c_str(), &about) == 0) {
        return whyNotWritable(path, about.st_mode);
    }
    return errno == ENOENT ? whyNotCreatable(targetOf(path)) : std::strerror(errno);
}

}  // namespace zolt_check
