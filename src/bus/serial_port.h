#pragma once

#include <sys/types.h>
#include <termios.h>

#include <cstddef>
#include <string>

#include "thread/MutexClass.h"

/// The port's descriptor. The serial task owns it; the master loop may close it
/// at shutdown. Every call holds a small lock, so none ever works on a number
/// that has been closed and given to another file; reads and writes do not
/// block. On a closed port calls fail with EBADF.
class SerialPort {
  public:
    ~SerialPort() { Close(); }

    /// Closes what is open, then opens `path` for non-blocking traffic. False when
    /// the system refuses.
    bool Open(const std::string& path);
    /// 0, or the errno of tcsetattr.
    int Apply(const termios& settings);
    /// As read(2) and write(2).
    ssize_t Read(char* buffer, std::size_t size);
    ssize_t Write(const char* bytes, std::size_t size);
    void Close();

  private:
    void closeLocked();

    CMutexClass lock_;
    int descriptor_ = -1;
};
