#pragma once

#include <cstdint>
#include <string>

#include "core/speed.h"
#include "thread/shared_field.h"

/// What INTERFACE_DESCRIPTOR::connectionState says.
enum class ConnectionState : std::int32_t {
    kNotListening = 0,  ///< the listening socket has never been opened
    kListening = 1,     ///< open for a client
    kAccepting = 2,     ///< waiting in accept
    kConnected = 3,     ///< a client is there
    kClosed = 4,        ///< the client is gone, and the listening socket too
};

/// The settings of one TCP interface, and where it keeps its live state.
struct INTERFACE_DESCRIPTOR {
    /// "IO", "CAE" or "MON"; empty when the configuration names none.
    std::string name;
    std::int32_t port = 0;
    /// The interface's thread and CloseByCommand write the state; the master loop reads
    /// it.
    SharedField<ConnectionState> connectionState{ConnectionState::kNotListening};
    /// Appended to every line sent.
    std::string outSeparator = "\r\n";
    /// Ends every line received.
    std::string inpSeparator = "\r\n";
    /// The pause per cycle in microseconds. The master loop writes it ("SPEED="), and
    /// the interface's thread reads it once per cycle.
    SharedField<std::int32_t> threadDelay{kDefaultThreadDelay};
};

/// The whole configuration.
struct CONFIG_DESCRIPTOR {
    /// The error text of a configuration without an error.
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
