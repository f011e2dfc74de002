#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "lib/os/descriptor.h"

namespace ctl_test {

/// What the daemon sends: each line is an item, followed by a carriage return of
/// its own; a reply ends with the prompt.
std::string item(const std::string& text, const std::string& lineEnd = "\r\n");
std::string reply(const std::vector<std::string>& lines, const std::string& lineEnd = "\r\n");
std::string unknownCommand(const std::string& lineEnd = "\r\n");
inline constexpr const char* kConsoleBanner =
    "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r";
inline constexpr const char* kIoBanner = "ZOLT IO interface is ready\r\n\r";
inline constexpr const char* kMonBanner = "ZOLT MON interface is ready\r\n\r";

/// The ports that zoltctl uses by default.
inline constexpr std::uint16_t kDefaultCae = 4001;
inline constexpr std::uint16_t kDefaultIo = 4002;
inline constexpr std::uint16_t kDefaultMon = 4003;

/// The scripted daemon's end of one connection. What a client does otherwise
/// than the script demands fails the test.
class FakeConnection {
  public:
    explicit FakeConnection(int socket) : socket_(socket) {}

    void send(std::string_view bytes) const;
    /// Each byte in a packet of its own.
    void sendSingly(std::string_view bytes) const;
    /// The next packet has to be `line`.
    void expect(const std::string& line);
    /// The next packet; empty at the end of what the client sends.
    std::string receive();
    /// Reads until the client has ended its direction, and returns what came.
    std::string receiveRest();
    /// Takes whatever comes and sends nothing, until the client has left.
    void keepSilent();
    /// Waits until something has come, and leaves it unread: the end of the script
    /// then resets the connection.
    void awaitUnread() const;
    /// Leaves the connection as it is until the port goes away.
    void hold() const;
    /// Sends `bytes` again and again until the client has left; one that has not
    /// after a gigabyte, or in good time, fails the test.
    void flood(std::string_view bytes) const;

  private:
    int socket_;
};

/// A port on loopback that plays bytes. A thread serves one connection after the other,
/// each by its script; after the last script no connection is accepted. The end of a
/// script closes its connection.
class FakeTcpPort {
  public:
    using Script = std::function<void(FakeConnection&)>;
    FakeTcpPort(std::uint16_t port, std::vector<Script> scripts);
    FakeTcpPort(std::uint16_t port, Script script)
        : FakeTcpPort(port, std::vector<Script>{std::move(script)}) {}
    /// Ends the connection that is still served.
    ~FakeTcpPort();
    FakeTcpPort(const FakeTcpPort&) = delete;
    FakeTcpPort& operator=(const FakeTcpPort&) = delete;

  private:
    void serve(const std::vector<Script>& scripts);

    zolt_os::Descriptor listening_;
    std::mutex lock_;
    int served_ = -1;
    bool ending_ = false;
    std::thread thread_;
};

/// Commands, with their line end, and what the console sends for each.
using Replies = std::map<std::string, std::string>;

/// A console with these answers, for one client; another command is an unknown
/// one there, too.
FakeTcpPort::Script console(Replies answers);
/// An IO port whose client has to send `expected` and nothing else.
FakeTcpPort::Script ioPort(const std::string& expected);

}  // namespace ctl_test
