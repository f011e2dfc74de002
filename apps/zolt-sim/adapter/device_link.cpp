#include "apps/zolt-sim/adapter/device_link.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "apps/zolt-sim/error.h"

namespace zolt_sim {
namespace fs = std::filesystem;

DeviceLink::DeviceLink(std::string path, std::string target)
    : path_(std::move(path)), target_(std::move(target)) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path_, error);
    if (fs::is_symlink(status)) {
        fs::remove(path_, error);
    } else if (fs::exists(status)) {
        throw Error(path_ + ": exists and is not a symbolic link, so it is left as it is");
    }
    fs::create_symlink(target_, path_, error);
    if (error) {
        throw Error(path_ + ": " + error.message());
    }
}

DeviceLink::~DeviceLink() {
    std::error_code error;
    if (fs::read_symlink(path_, error) == target_) {
        fs::remove(path_, error);
    }
}

}  // namespace zolt_sim
