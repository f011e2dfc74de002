#include "fuzz/support/fake_port.h"

#include "common/pauses.h"

namespace {

fuzz::Line* current = nullptr;

}  // namespace

// The definitions below take the place of those in the daemon's libraries: the
// linker takes a file out of a library only for what is still missing.

bool SerialPort::Open(const std::string& /*path*/) {
    return current != nullptr;
}

int SerialPort::Apply(const termios& /*settings*/) {
    return 0;
}

ssize_t SerialPort::Read(char* buffer, std::size_t size) {
    return current->read(buffer, size);
}

ssize_t SerialPort::Write(const char* bytes, std::size_t size) {
    current->written({bytes, size});
    return static_cast<ssize_t>(size);
}

void SerialPort::Close() {}

void sleepsec(int /*seconds*/) {}

void Sleep(unsigned int /*n*/) {}

// A program that links this leads usleep here (--wrap=usleep).
extern "C" {
int __wrap_usleep(unsigned int microseconds);

int __wrap_usleep(unsigned int /*microseconds*/) {
    return 0;
}
}

CThread::CThread() : queue_(nullptr), capacity_(0) {}

CThread::~CThread() = default;

bool CThread::OnTask(void* /*event*/) {
    return true;
}

bool CThread::OnTask() {
    return true;
}

void CThread::Stop() {}

void CThread::SetThreadType(ThreadType_t /*type*/, long /*idleTime*/) {}

namespace fuzz {

std::unique_ptr<SERIAL_INTERFACE> makeLink(Line& line, PERIFCARD* cards, ZLQUEUE* reports) {
    current = &line;
    auto link = std::make_unique<SERIAL_INTERFACE>("adapter", LOGGER(), cards, reports, true, true);
    link->threadDelay = 0;
    return link;
}

}  // namespace fuzz
