#include <termios.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "bus/serial_interface.h"
#include "common/answer_class.h"
#include "common/pauses.h"
#include "common/text.h"

namespace {

constexpr std::size_t kNameBuffer = 10;

/// Between opening a port and the first byte on it: 200 microseconds.
constexpr unsigned kSettlePause = 2000;

termios rawSettings() {
    termios settings{};
    cfmakeraw(&settings);
    cfsetispeed(&settings, B460800);
    cfsetospeed(&settings, B460800);
    settings.c_cflag =
        (settings.c_cflag & ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS)) |
        CS8 | CREAD | CLOCAL;
    settings.c_iflag &= ~static_cast<tcflag_t>(IGNBRK | IXON | IXOFF | IXANY);
    settings.c_oflag = 0;
    settings.c_lflag = 0;
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 50;  // tenths of a second; reads do not block, so it never counts
    return settings;
}

/// The version text of a hardware check answer, as much of it as is there.
std::string versionIn(const ByteList& answer) {
    const std::string bytes(answer.begin(), answer.end());
    const std::string version =
        bytes.substr(std::min(wire::kVersion, bytes.size()), wire::kVersionSize);
    return Convert_CharBuff2String(version.c_str());
}

}  // namespace

std::list<std::string> devicePathsIn(std::FILE* listing) {
    std::list<std::string> paths;
    std::array<char, kNameBuffer> piece{};
    while (std::fgets(piece.data(), static_cast<int>(piece.size()), listing) != nullptr) {
        std::string path = "/dev/" + std::string(piece.data());
        path.pop_back();
        paths.push_back(path);
    }
    return paths;
}

std::list<std::string> SERIAL_INTERFACE::GetUSBDevices() {
    std::FILE* listing = popen("ls /dev | grep ttyUSB", "r");
    if (listing == nullptr) {
        return {};
    }
    std::list<std::string> paths = devicePathsIn(listing);
    pclose(listing);
    return paths;
}

bool SERIAL_INTERFACE::SetSerialParams() {
    const int error = port_.apply(rawSettings());
    if (error != 0) {
        logger_.error("error ", ITOA(error), " from tcsetattr");
    }
    return error == 0;
}

bool SERIAL_INTERFACE::HardwareCheck(const std::string& devicePath) {
    logger_.info("try to catch hardware on ", devicePath);
    Sleep(kSettlePause);
    const ByteList answer =
        Comm2HW({wire::kHardwareCheck, wire::kHardwareCheckByte1, wire::kHardwareCheckByte2});
    switch (GetQListError(answer)) {
        case AnswerClass::kUsable:
            logger_.info("hardware found on ", devicePath, " version: ", versionIn(answer));
            return true;
        case AnswerClass::kTimeout:
            logger_.info("comm timeout ", devicePath);
            return false;
        default:
            return false;
    }
}

bool SERIAL_INTERFACE::Init() {
    receiveBuffer_.fill(0);
    return search_ ? initSearchedPort() : initGivenPort();
}

bool SERIAL_INTERFACE::initGivenPort() {
    if (!port_.open(devicePath_)) {
        logger_.error("unable to open ", devicePath_, " for hardware communication");
        return false;
    }
    linkState_ = LinkState::kUnderTest;
    if (SetSerialParams() && HardwareCheck(devicePath_)) {
        linkState_ = LinkState::kReady;
        return true;
    }
    // The state stays kUnderTest: a fixed port that is not the bus is not tried again.
    return false;
}

bool SERIAL_INTERFACE::initSearchedPort() {
    const std::list<std::string> devices = GetUSBDevices();
    if (devices.empty()) {
        logger_.error("ttyUSB devices couldn't be found");
        return false;
    }
    for (const std::string& device : devices) {
        devicePath_ = device;
        if (!port_.open(devicePath_)) {
            logger_.error("unable to  open ", devicePath_, " for hardware communication");
            continue;
        }
        linkState_ = LinkState::kUnderTest;
        if (SetSerialParams() && HardwareCheck(devicePath_)) {
            linkState_ = LinkState::kReady;
            return true;
        }
        port_.close();
        linkState_ = LinkState::kClosed;
    }
    return false;
}
