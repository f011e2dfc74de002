#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

#include "tests/ports/interface_fixture.h"

namespace {

using support::TcpClient;

class Listening : public InterfaceFixture {};

TEST_F(Listening, InitOpensThePort) {
    build();
    EXPECT_EQ(state(), ConnectionState::kNotListening);
    EXPECT_TRUE(interface_->Init());
    EXPECT_EQ(state(), ConnectionState::kListening);
    EXPECT_EQ(log_.lines(), Texts{"[INF] IO interface listening on port 0"});
    const int socket = own_sockets::listening();
    EXPECT_EQ(own_sockets::option(socket, SOL_SOCKET, SO_REUSEADDR), 1);
    EXPECT_EQ(own_sockets::option(socket, SOL_SOCKET, SO_DOMAIN), AF_INET);
    EXPECT_EQ(::fcntl(socket, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

TEST_F(Listening, ListensOnTheConfiguredPortOfEveryAddress) {
    // These ports are below the range from which the system picks ports by itself.
    for (int port = 20000 + ::getpid() % 5000; port < 32000; ++port) {
        build("MON", FramingMode::kText, port);
        interface_->Init();
        if (own_sockets::listeningPort() == port) break;
    }
    const int port = interface_->descriptor.port;
    EXPECT_EQ(own_sockets::listeningPort(), port);
    EXPECT_EQ(log_.lines().back(), "[INF] MON interface listening on port " + std::to_string(port));
    EXPECT_EQ(own_sockets::local(own_sockets::listening()).sin_addr.s_addr, htonl(INADDR_ANY));
}

TEST_F(Listening, ABusyPortIsLoggedAndStillListens) {
    build();
    ASSERT_TRUE(interface_->Init());
    const int busy = own_sockets::listeningPort();
    const auto holder = std::move(interface_);
    build("IO", FramingMode::kText, busy);
    const std::size_t known = log_.lines().size();
    EXPECT_TRUE(interface_->Init());
    EXPECT_EQ(state(), ConnectionState::kListening);
    EXPECT_EQ(loggedSince(known),
              (Texts{"[ERR] couldn't bind socket forIO interface",
                     "[INF] IO interface listening on port " + std::to_string(busy)}));
}

TEST_F(Listening, ARefusedBindListensOnAnotherPort) {
    build("CAE");
    faults_.fail(Call::kBind, EACCES);
    EXPECT_TRUE(interface_->Init());
    EXPECT_EQ(log_.lines(), (Texts{"[ERR] couldn't bind socket forCAE interface",
                                   "[INF] CAE interface listening on port 0"}));
    EXPECT_TRUE(TcpClient::tryConnect(own_sockets::listeningPort()).has_value());
}

TEST_F(Listening, ARefusedSocketIsLoggedAndNeverTriedAgain) {
    build();
    faults_.fail(Call::kSocket, EMFILE);
    EXPECT_FALSE(interface_->Init());
    for (int cycle = 0; cycle < 5; ++cycle) EXPECT_TRUE(interface_->OnTask());
    EXPECT_EQ(log_.lines(), Texts{"[ERR] couldn't open socket forIO interface"});
    EXPECT_EQ(state(), ConnectionState::kNotListening);
    EXPECT_EQ(own_sockets::listening(), -1);
}

TEST_F(Listening, ARefusedOptionIsLoggedAndStillListens) {
    build();
    faults_.fail(Call::kSetsockopt, ENOBUFS);
    EXPECT_TRUE(interface_->Init());
    EXPECT_EQ(log_.lines(), (Texts{"[ERR] couldn't set socket options forIO interface",
                                   "[INF] IO interface listening on port 0"}));
}

TEST_F(Listening, ARefusedListenIsLoggedAndLeavesNothingOpen) {
    build();
    const int before = own_sockets::openDescriptors();
    faults_.fail(Call::kListen, EADDRINUSE);
    EXPECT_FALSE(interface_->Init());
    for (int cycle = 0; cycle < 3; ++cycle) interface_->OnTask();
    EXPECT_EQ(log_.lines(), Texts{"[ERR] IO interface listening error on port 0"});
    EXPECT_EQ(state(), ConnectionState::kNotListening);
    EXPECT_EQ(own_sockets::openDescriptors(), before);
}

TEST_F(Listening, TakesAClientAfterAPause) {
    build();
    interface_->Init();
    const TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    ConnectionState stateInPause = ConnectionState::kNotListening;
    pauses_.duringNext([&] { stateInPause = state(); });
    EXPECT_TRUE(interface_->OnTask());
    EXPECT_EQ(pauses_.take(), std::vector<int>{3});
    EXPECT_EQ(stateInPause, ConnectionState::kAccepting);
    EXPECT_EQ(state(), ConnectionState::kConnected);

    // The log shows the port in network byte order, as the address has it.
    const std::uint16_t clientPort =
        ntohs(own_sockets::peer(own_sockets::accepted(own_sockets::listeningPort())).sin_port);
    EXPECT_EQ(log_.lines(), (Texts{"[INF] IO interface listening on port 0",
                                   "[INF] IO interface is waiting for incoming connection",
                                   "[INF] client is connected on IO interface from 127.0.0.1:" +
                                       std::to_string(htons(clientPort))}));
}

TEST_F(Listening, ADeadClientIsFoundOutAndRepliesAreNotHeldBack) {
    const TcpClient client = connected();
    const int socket = own_sockets::accepted(port_);
    EXPECT_EQ(own_sockets::option(socket, SOL_SOCKET, SO_KEEPALIVE), 1);
    EXPECT_EQ(own_sockets::option(socket, IPPROTO_TCP, TCP_KEEPIDLE), 60);
    EXPECT_EQ(own_sockets::option(socket, IPPROTO_TCP, TCP_KEEPINTVL), 15);
    EXPECT_EQ(own_sockets::option(socket, IPPROTO_TCP, TCP_KEEPCNT), 3);
    EXPECT_EQ(own_sockets::option(socket, IPPROTO_TCP, TCP_USER_TIMEOUT), 105000);
    EXPECT_EQ(own_sockets::option(socket, IPPROTO_TCP, TCP_NODELAY), 1);
    EXPECT_EQ(::fcntl(socket, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

struct Banner {
    const char* name;
    const char* text;
};

class Banners : public InterfaceFixture, public testing::WithParamInterface<Banner> {};

TEST_P(Banners, GoByTheExactName) {
    TcpClient client = connected(GetParam().name);
    reply("next");
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("next\r"), std::string(GetParam().text) + "next\r");
}

INSTANTIATE_TEST_SUITE_P(
    Listening, Banners,
    testing::Values(Banner{"CAE", "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r"},
                    Banner{"IO", "ZOLT IO interface is ready\r\n\r"},
                    Banner{"MON", "ZOLT MON interface is ready\r\n\r"}, Banner{"io", ""},
                    Banner{"IO ", ""}, Banner{"", ""}));

TEST_F(Listening, AFailedAcceptIsClosedInTheSameCycleAndHeals) {
    build();
    interface_->Init();
    faults_.fail(Call::kAccept, EMFILE);
    reply("old");
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_EQ(loggedSince(2), (Texts{"[ERR] socket accept error on IO interface",
                                     "[INF] client is connected on IO interface from 0.0.0.0:0",
                                     "[ERR] socket select error on IO interface",
                                     "[ERR] socket write error on IO interface"}));
    EXPECT_EQ(own_sockets::listening(), -1);
    EXPECT_EQ(pauses_.take(), (std::vector<int>{3, 2}));

    interface_->OnTask();
    EXPECT_EQ(pauses_.take(), std::vector<int>{2});
    EXPECT_EQ(log_.lines().back(), "[INF] IO interface listening on port 0");
    TcpClient client = connectNext();
    EXPECT_TRUE(own_sockets::listening() != -1);
}

TEST_F(Listening, ACommandClosesAnInterfaceThatListens) {
    build();
    interface_->Init();
    const std::uint16_t port = own_sockets::listeningPort();
    interface_->CloseByCommand();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_FALSE(TcpClient::tryConnect(port).has_value());
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    interface_->OnTask();
    EXPECT_EQ(log_.lines(), (Texts{"[INF] IO interface listening on port 0",
                                   "[INF] connection is closed by command on IO interface",
                                   "[INF] IO interface listening on port 0"}));
}

TEST_F(Listening, ACommandDuringThePauseTakesNoClient) {
    build();
    interface_->Init();
    TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    pauses_.duringNext([&] { interface_->CloseByCommand(); });
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_EQ(loggedSince(2), (Texts{"[INF] connection is closed by command on IO interface",
                                     "[ERR] socket accept error on IO interface"}));
    EXPECT_EQ(client.receiveUntil("anything"), "");
    EXPECT_TRUE(client.closedByPeer());
    EXPECT_TRUE(interface_->replyQueue.IsEmpty()) << "no banner";
}

TEST_F(Listening, ACommandJustAfterTheAcceptStillCloses) {
    build();
    interface_->Init();
    const TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    faults_.beforeNext(Call::kSetsockopt, [&] { interface_->CloseByCommand(); });
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_FALSE(log_.has("[ERR] socket accept error on IO interface"));
    EXPECT_EQ(own_sockets::accepted(own_sockets::listeningPort()), -1);
    EXPECT_TRUE(interface_->replyQueue.IsEmpty()) << "no banner";
}

TEST_F(Listening, ACommandWakesTheWorkerFromItsWaitForAClient) {
    buildLive();
    interface_->Init();
    ASSERT_TRUE(support::waitUntil([&] { return state() == ConnectionState::kAccepting; }));
    interface_->CloseByCommand();
    ASSERT_TRUE(support::waitUntil([&] {
        const ConnectionState current = state();
        return current == ConnectionState::kListening || current == ConnectionState::kAccepting;
    }));
    TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    EXPECT_EQ(client.receiveUntil(kBanner), kBanner);
    EXPECT_TRUE(log_.has("[INF] connection is closed by command on IO interface"));
    EXPECT_TRUE(log_.has("[ERR] socket accept error on IO interface"));
}

TEST_F(Listening, ACommandToAClosedInterfacePutsItsReturnOff) {
    build();
    interface_->Init();
    interface_->CloseByCommand();
    interface_->OnTask();
    interface_->CloseByCommand();
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    EXPECT_EQ(own_sockets::listening(), -1);
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kListening);
    EXPECT_EQ(pauses_.take(), (std::vector<int>{2, 2, 2}));
    const std::string closed = "[INF] connection is closed by command on IO interface";
    EXPECT_EQ(loggedSince(1), (Texts{closed, closed, "[INF] IO interface listening on port 0"}));
}

TEST_F(Listening, AFailedReopeningIsTriedAgainEachCycle) {
    build();
    interface_->Init();
    interface_->CloseByCommand();
    faults_.fail(Call::kSocket, EMFILE, 2);
    for (int cycle = 0; cycle < 3; ++cycle) interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kClosed);
    interface_->OnTask();
    EXPECT_EQ(state(), ConnectionState::kListening);
    EXPECT_EQ(pauses_.take(), (std::vector<int>{2, 2, 2, 2}));
    EXPECT_EQ(loggedSince(2), (Texts{"[ERR] couldn't open socket forIO interface",
                                     "[ERR] couldn't open socket forIO interface",
                                     "[INF] IO interface listening on port 0"}));
}

TEST_F(Listening, EndWakesAWorkerThatWaitsForAClient) {
    buildLive();
    interface_->Init();
    ASSERT_TRUE(support::waitUntil([&] { return state() == ConnectionState::kAccepting; }));
    interface_->end();
    EXPECT_EQ(own_sockets::listening(), -1);
}

}  // namespace
