#include "tests/support/doubles/fake_serial_port.h"

namespace {

support::SerialLine* current = nullptr;

}  // namespace

// The definitions below take the place of those in the daemon's libraries: the
// linker takes a file out of a library only for what is still missing.

bool SerialPort::open(const std::string& /*path*/) {
    return current != nullptr;
}

int SerialPort::apply(const termios& /*settings*/) {
    return 0;
}

ssize_t SerialPort::read(char* buffer, std::size_t size) {
    return current->read(buffer, size);
}

ssize_t SerialPort::write(const char* bytes, std::size_t size) {
    current->written({bytes, size});
    return static_cast<ssize_t>(size);
}

void SerialPort::close() {}

namespace support {

void plugIn(SerialLine& line) {
    current = &line;
}

std::unique_ptr<SERIAL_INTERFACE> makeLink(SerialLine& line, CardTable& cards, ZLQUEUE* reports) {
    plugIn(line);
    auto link = std::make_unique<SERIAL_INTERFACE>("adapter", LOGGER(), cards, reports, true, true);
    link->threadDelay = 0;
    return link;
}

}  // namespace support
