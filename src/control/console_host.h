#pragma once

#include <cstddef>
#include <cstdint>

#include "bus/perifcard.h"
#include "common/byte_list.h"

/// What the console's commands act on: the live daemon, or what takes its place in
/// a test. All calls come from the thread that interprets the line.
class ConsoleHost {
  public:
    virtual ~ConsoleHost() = default;

    /// Queues one item for the console's client.
    virtual void reply(ByteList item) = 0;
    /// The record at a bus address, 0 to 15.
    virtual PERIFCARD& card(std::size_t address) = 0;
    virtual bool polling() const = 0;
    virtual void setPolling(bool on) = 0;
    /// Sets the pause per cycle of every loop, in microseconds.
    virtual void setThreadDelay(std::int32_t microseconds) = 0;
    /// Puts a frame into the system queue of the bus.
    virtual void request(ByteList frame) = 0;
    /// Sends a report on its way as if the bus had made it.
    virtual void report(ByteList line) = 0;
    /// Blocks the interpreter and everything that its thread serves.
    virtual void pause(int seconds) = 0;
    /// Ends the console's connection.
    virtual void closeConnection() = 0;
};
