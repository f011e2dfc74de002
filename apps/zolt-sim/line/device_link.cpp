#include "apps/zolt-sim/line/device_link.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace sim {
namespace fs = std::filesystem;

DeviceLink::DeviceLink(std::string path, std::string target)
    : path_(std::move(path)), target_(std::move(target)) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path_, error);
    if (fs::is_symlink(status)) {
        fs::remove(path_, error);
    } else if (fs::exists(status)) {
        throw std::runtime_error(path_ + ": exists and is no symbolic link, left as it is");
    }
    fs::create_symlink(target_, path_, error);
    if (error) {
        throw std::runtime_error(path_ + ": " + error.message());
    }
}

DeviceLink::~DeviceLink() {
    std::error_code error;
    if (fs::read_symlink(path_, error) == target_) {
        fs::remove(path_, error);
    }
}

}  // namespace sim
