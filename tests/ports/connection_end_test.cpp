#include <gtest/gtest.h>

#include "tests/ports/interface_fixture.h"

namespace {

using support::TcpClient;

/// How a connection ends, and what happens then to the replies and to the next client.
class ConnectionEnd : public InterfaceFixture {
  protected:
    /// A reply that cannot be written until the client reads.
    static std::string moreThanTheSocketsHold() {
        own_sockets::shrinkSendBuffer(own_sockets::accepted(own_sockets::listeningPort()));
        return std::string(std::size_t{2} << 20, 'x');
    }

    const std::string closedByClient_ = "[INF] connection is closed by client on IO interface";
    const std::string closedByCommand_ = "[INF] connection is closed by command on IO interface";
    const std::string writeError_ = "[ERR] socket write error on IO interface";
};

TEST_F(ConnectionEnd, ALeavingClientTakesOneReplyWithItAndTheNextGetsTheRest) {
    TcpClient client = connected();
    client.receiveUntil(kBanner);
    const std::uint16_t port = port_;
    const std::size_t known = log_.lines().size();
    reply("lost");
    reply("left over");
    client = TcpClient::connect(port);  // waits in the backlog while the first leaves
    arrive();
    EXPECT_TRUE(interface_->OnTask());
    EXPECT_EQ(loggedSince(known), (Texts{closedByClient_, writeError_}));
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_FALSE(TcpClient::tryConnect(port).has_value()) << "refused until it is reopened";
    EXPECT_EQ(client.receiveUntil("anything"), "");
    EXPECT_TRUE(client.closedByPeer()) << "the client that waited is lost";

    EXPECT_TRUE(interface_->OnTask());
    EXPECT_EQ(pauses_.take(), (std::vector<int>{3, 2, 2}));
    EXPECT_EQ(state(), ConnectionState::kListening);
    TcpClient next = connectNext();
    interface_->OnTask();
    EXPECT_EQ(next.receiveUntil(kBanner), "left over\r" + std::string(kBanner));
}

TEST_F(ConnectionEnd, AResetIsACloseByTheClient) {
    TcpClient client = connected();
    const std::size_t known = log_.lines().size();
    client.send("last words");
    client.reset();
    arrive();
    runOutOf(ConnectionState::kConnected);
    EXPECT_EQ(loggedSince(known), Texts{closedByClient_});
}

TEST_F(ConnectionEnd, AClientThatResetsWhileItIsWrittenToDoesNoHarm) {
    // The default action of a broken pipe would end this process.
    buildLive();
    interface_->Init();
    TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    client.receiveUntil(kBanner);
    reply(moreThanTheSocketsHold());
    ASSERT_TRUE(support::waitUntil([&] { return interface_->replyQueue.IsEmpty(); }));
    client.reset();
    ASSERT_TRUE(support::waitUntil([&] { return log_.has(closedByClient_); }));
    EXPECT_TRUE(log_.has(writeError_));
    // The old listening socket outlives that log line by a moment.
    ASSERT_TRUE(support::waitUntil([&] { return state() != ConnectionState::kConnected; }));
    ASSERT_TRUE(support::waitUntil([&] { return own_sockets::listeningPort() != 0; }));
    TcpClient next = TcpClient::connect(own_sockets::listeningPort());
    next.receiveUntil(kBanner);
    EXPECT_FALSE(next.closedByPeer());
}

TEST_F(ConnectionEnd, ACommandEndsTheConnectionAndKeepsTheReplies) {
    TcpClient client = connected();
    const std::uint16_t port = port_;
    const std::size_t known = log_.lines().size();
    client.receiveUntil(kBanner);
    interface_->CloseByCommand();
    reply(">\r\n");
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_EQ(client.receiveUntil("anything"), "");
    EXPECT_TRUE(client.closedByPeer());
    EXPECT_FALSE(TcpClient::tryConnect(port).has_value());
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    interface_->OnTask();
    EXPECT_EQ(loggedSince(known),
              (Texts{closedByCommand_, "[INF] IO interface listening on port 0"}));
    EXPECT_EQ(pauses_.take(), (std::vector<int>{3, 2, 2}));
    TcpClient next = connectNext();
    interface_->OnTask();
    EXPECT_EQ(next.receiveUntil(kBanner), ">\r\n\r" + std::string(kBanner));
}

TEST_F(ConnectionEnd, ACommandInTheMiddleOfACycleKeepsTheRepliesToo) {
    TcpClient client = connected();
    const std::size_t known = log_.lines().size();
    faults_.beforeNext(Call::kSelect, [&] {
        interface_->CloseByCommand();
        reply(">\r\n");
    });
    interface_->OnTask();
    EXPECT_EQ(loggedSince(known), Texts{closedByCommand_});
    EXPECT_FALSE(interface_->replyQueue.IsEmpty());
    EXPECT_EQ(client.receiveUntil("anything"), kBanner);
}

TEST_F(ConnectionEnd, ACommandIsNotHeldUpByAClientThatDoesNotRead) {
    buildLive();
    interface_->Init();
    TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    client.receiveUntil(kBanner);
    reply(moreThanTheSocketsHold());
    ASSERT_TRUE(support::waitUntil([&] { return interface_->replyQueue.IsEmpty(); }));
    interface_->CloseByCommand();
    EXPECT_TRUE(support::waitUntil([&] { return log_.has(writeError_); }));
    ASSERT_TRUE(support::waitUntil([&] { return own_sockets::listeningPort() != 0; }));
    TcpClient next = TcpClient::connect(own_sockets::listeningPort());
    EXPECT_EQ(next.receiveUntil(kBanner), kBanner);
}

TEST_F(ConnectionEnd, ConnectionsLeaveNoDescriptorBehind) {
    build();
    interface_->Init();
    int afterFirst = 0;
    for (int round = 0; round < 5; ++round) {
        TcpClient client = connectNext();
        if (round % 2 == 0) {
            interface_->CloseByCommand();
        } else {
            client.reset();
            arrive();
        }
        if (round % 2 == 1) runOutOf(ConnectionState::kConnected);
        runOutOf(ConnectionState::kClosed);
        client.reset();
        if (round == 0) afterFirst = own_sockets::openDescriptors();
    }
    EXPECT_EQ(own_sockets::openDescriptors(), afterFirst);
}

}  // namespace
