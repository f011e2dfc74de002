#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ports/socket_interface.h"
#include "tests/ports/own_sockets.h"
#include "tests/ports/system_faults.h"
#include "tests/support/doubles/long_rests.h"
#include "tests/support/doubles/recorded_pauses.h"
#include "tests/support/tcp/tcp_client.h"
#include "tests/support/temporary_log.h"

/// One TCP interface on a port of the system's choice. build() ends its worker, and the test
/// runs the cycles itself, one by one; buildLive() lets the worker run. The interface's
/// pauses of whole seconds are recorded and take no time.
class InterfaceFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;
    using Call = SystemFaults::Call;

    static constexpr const char* kBanner = "ZOLT IO interface is ready\r\n\r";

    void buildLive(const std::string& name = "IO", FramingMode mode = FramingMode::kText,
                   int port = 0) {
        INTERFACE_DESCRIPTOR settings;
        settings.name = name;
        settings.port = port;
        settings.threadDelay = 100;
        LOGGER logger;
        logger.fileName = log_.path();
        interface_ = std::make_unique<SOCKET_INTERFACE>(settings, logger, &requests_, mode);
    }

    void build(const std::string& name = "IO", FramingMode mode = FramingMode::kText,
               int port = 0) {
        buildLive(name, mode, port);
        interface_->Stop();
    }

    /// An interface with a client that has read its banner.
    support::TcpClient connected(const std::string& name = "IO",
                                 FramingMode mode = FramingMode::kText) {
        build(name, mode);
        EXPECT_TRUE(interface_->Init());
        return connectNext();
    }

    support::TcpClient connectNext() {
        support::TcpClient client = support::TcpClient::connect(own_sockets::listeningPort());
        port_ = own_sockets::listeningPort();
        interface_->OnTask();
        EXPECT_EQ(state(), ConnectionState::kConnected);
        return client;
    }

    /// From the next cycle on, the interface rests when it has nothing to do.
    void goFullSpeed() {
        interface_->descriptor.threadDelay = 1;
        // The change of the speed itself keeps the interface from resting once.
        interface_->OnTask();
    }

    /// Whether `wakeUp` ends the rest of the interface's next cycle.
    bool restEndsWith(const std::function<void()>& wakeUp) {
        return support::LongRests().endsWith([this] { interface_->OnTask(); }, wakeUp);
    }

    /// Runs cycles until the interface has left `from`, at most ten.
    void runOutOf(ConnectionState from) {
        for (int cycle = 0; cycle < 10 && state() == from; ++cycle) interface_->OnTask();
        ASSERT_NE(state(), from);
    }

    ConnectionState state() const { return interface_->descriptor.connectionState; }

    void reply(const std::string& item) {
        interface_->replyQueue.ToQueue(ByteList(item.begin(), item.end()));
    }

    /// Waits for what the client sent to be there for the next cycle.
    void arrive() const { ASSERT_TRUE(own_sockets::readable(own_sockets::accepted(port_))); }

    Texts requested() {
        Texts items;
        while (!requests_.IsEmpty()) {
            const ByteList item = requests_.DeQueue();
            items.emplace_back(item.begin(), item.end());
        }
        return items;
    }

    /// The log lines after the first `known`.
    Texts loggedSince(std::size_t known) const {
        const Texts lines = log_.lines();
        return {lines.begin() + static_cast<std::ptrdiff_t>(known), lines.end()};
    }

    SystemFaults faults_;
    support::RecordedPauses pauses_;
    support::TemporaryLog log_;
    ZLQUEUE requests_;
    std::unique_ptr<SOCKET_INTERFACE> interface_;
    std::uint16_t port_ = 0;
};
