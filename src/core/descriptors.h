#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "core/speed.h"

/// An atomic that copies like the plain value it holds, for fields of copyable
/// records that other threads read without a lock.
template <typename T>
class SharedField {
  public:
    SharedField(T value) : value_(value) {}
    SharedField(const SharedField& other) : value_(other.load()) {}
    SharedField& operator=(const SharedField& other) {
        store(other.load());
        return *this;
    }
    SharedField& operator=(T value) {
        store(value);
        return *this;
    }
    ~SharedField() = default;

    operator T() const { return load(); }
    T load() const { return value_.load(); }
    void store(T value) { value_.store(value); }
    /// Stores `next` and returns true if the value is `expected`.
    bool replace(T expected, T next) { return value_.compare_exchange_strong(expected, next); }

  private:
    std::atomic<T> value_;
};

/// Values of INTERFACE_DESCRIPTOR::connectionState.
namespace connection_state {
inline constexpr std::int32_t kNotListening = 0;
inline constexpr std::int32_t kListening = 1;
inline constexpr std::int32_t kAccepting = 2;
inline constexpr std::int32_t kConnected = 3;
inline constexpr std::int32_t kClosed = 4;  ///< client gone, listening socket too
}  // namespace connection_state

/// The settings of one TCP interface, and where it keeps its live state.
struct INTERFACE_DESCRIPTOR {
    /// "IO", "CAE" or "MON"; empty when the configuration names none.
    std::string name;
    std::int32_t port = 0;
    /// Written by the interface's thread and CloseByCommand; read by the master
    /// loop, for which a value one cycle old is fine.
    SharedField<std::int32_t> connectionState{connection_state::kNotListening};
    /// Appended to every line sent.
    std::string outSeparator = "\r\n";
    /// Ends every line received.
    std::string inpSeparator = "\r\n";
    /// Pause per cycle in microseconds. Written by the master loop ("SPEED="),
    /// read by the interface's thread once per cycle.
    SharedField<std::int32_t> threadDelay{kDefaultThreadDelay};
};

/// The whole configuration.
struct CONFIG_DESCRIPTOR {
    /// The error text that means that there is none.
    static constexpr const char* kNoError = "NONE";

    INTERFACE_DESCRIPTOR io;
    INTERFACE_DESCRIPTOR cae;
    INTERFACE_DESCRIPTOR mon;
    /// Room for a fourth interface; nothing sets it.
    INTERFACE_DESCRIPTOR spare;
    std::string debugLogFile;
    std::int32_t logLevel = 0;
    std::string errorText = kNoError;
    /// Pause per cycle of the master loop and the serial task, in microseconds.
    std::int32_t threadDelay = kDefaultThreadDelay;
    bool initialPollState = false;
    bool autoDiscover = false;
};
