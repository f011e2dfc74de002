#pragma once

#include <sys/types.h>
#include <termios.h>

#include <cstddef>
#include <string>

#include "thread/MutexClass.h"

/// The port's descriptor. The serial task owns it; the master loop may close it when the
/// daemon stops. Every call holds a small lock, so that none works on a number that has been
/// closed and given to another file. Reads and writes do not block. On a closed port calls
/// fail with EBADF.
class SerialPort {
  public:
    ~SerialPort() { close(); }

    /// Closes what is open, then opens `path` for non-blocking traffic. False when the
    /// system refuses.
    bool open(const std::string& path) ZOLT_EXCLUDES(lock_);
    /// 0, or the errno of tcsetattr.
    int apply(const termios& settings) ZOLT_EXCLUDES(lock_);
    /// These two do and return what read(2) and write(2) do.
    ssize_t read(char* buffer, std::size_t size) ZOLT_EXCLUDES(lock_);
    ssize_t write(const char* bytes, std::size_t size) ZOLT_EXCLUDES(lock_);
    void close() ZOLT_EXCLUDES(lock_);

  private:
    void closeLocked() ZOLT_REQUIRES(lock_);

    CMutexClass lock_;
    int descriptor_ ZOLT_GUARDED_BY(lock_) = -1;
};
