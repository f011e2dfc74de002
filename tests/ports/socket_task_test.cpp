#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/select.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

#include "lib/os/descriptor.h"
#include "tests/ports/interface_fixture.h"

namespace {

using support::TcpClient;

class Client : public InterfaceFixture {
  protected:
    const std::string closedByClient_ = "[INF] connection is closed by client on IO interface";
    const std::string selectError_ = "[ERR] socket select error on IO interface";
};

TEST_F(Client, APacketIsOneRequestSeparatorsIncluded) {
    TcpClient client = connected();
    client.send("HELP\r\n");
    arrive();
    interface_->OnTask();
    EXPECT_EQ(requested(), Texts{"HELP\r\n"});
    client.send("a5b1dFB\r\na5b1dFF\r\n");
    arrive();
    interface_->OnTask();
    EXPECT_EQ(requested(), Texts{"a5b1dFB\r\na5b1dFF\r\n"});
}

TEST_F(Client, AtFullSpeedAnInterfaceWithNothingToDoRests) {
    TcpClient client = connected();
    goFullSpeed();
    const auto begin = std::chrono::steady_clock::now();
    interface_->OnTask();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, LoopPause::kLongestRest);
}

TEST_F(Client, AtFullSpeedAnInterfaceWithoutAClientRestsBesideItsReplies) {
    build();
    goFullSpeed();
    reply("for the next client");
    const auto begin = std::chrono::steady_clock::now();
    interface_->OnTask();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, LoopPause::kLongestRest);
}

TEST_F(Client, AtFullSpeedARestOverlooksNothing) {
    TcpClient client = connected();
    EXPECT_EQ(client.receiveUntil("\r\n\r"), kBanner);
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { client.send("HELP\r\n"); }));
    EXPECT_EQ(requested(), Texts{"HELP\r\n"});
    EXPECT_TRUE(restEndsWith([&] { reply("no\r\n"); }));
    EXPECT_EQ(client.receiveUntil("\r\n\r"), "no\r\n\r");
    EXPECT_TRUE(restEndsWith([&] { client.reset(); }));
    EXPECT_EQ(state(), ConnectionState::kClosed);
}

TEST_F(Client, AtFullSpeedANewSpeedEndsTheRest) {
    const TcpClient client = connected();
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { interface_->descriptor.threadDelay = 5000; }));
}

TEST_F(Client, AtFullSpeedANewConnectionStateEndsTheRest) {
    build();
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { interface_->CloseByCommand(); }));
    EXPECT_EQ(state(), ConnectionState::kClosed);
}

TEST_F(Client, HalvesOfALineAreTwoRequests) {
    TcpClient client = connected();
    client.send("HE");
    arrive();
    interface_->OnTask();
    client.send("LP\r\n");
    arrive();
    interface_->OnTask();
    EXPECT_EQ(requested(), (Texts{"HE", "LP\r\n"}));
}

TEST_F(Client, ARequestHas255BytesAtMost) {
    TcpClient client = connected();
    client.send(std::string(255, 'x') + std::string(45, 'y'));
    ASSERT_TRUE(support::waitUntil([&] {
        int count = 0;
        ::ioctl(own_sockets::accepted(port_), FIONREAD, &count);
        return count == 300;
    }));
    interface_->OnTask();
    interface_->OnTask();
    EXPECT_EQ(requested(), (Texts{std::string(255, 'x'), std::string(45, 'y')}));
}

TEST_F(Client, ARequestIsCutAtItsFirstZeroByte) {
    TcpClient client = connected();
    client.send(std::string("HE\0LP", 5));
    arrive();
    interface_->OnTask();
    client.send(std::string("\0HELP", 5));
    arrive();
    interface_->OnTask();
    EXPECT_EQ(requested(), (Texts{"HE", ""})) << "a chunk that begins with 0 is an empty item";
}

TEST_F(Client, OneReplyGoesOutPerCycle) {
    TcpClient client = connected();
    EXPECT_EQ(client.receiveUntil(kBanner), kBanner);
    reply("one\r\n");
    reply("ab");
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("\r\n\r"), "one\r\n\r");
    EXPECT_FALSE(interface_->replyQueue.IsEmpty());
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("b\r"), "ab\r");
    interface_->OnTask();
    reply("end");
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("end\r"), "end\r") << "nothing came in between";
}

TEST_F(Client, ReadsAndWritesInOneCycle) {
    TcpClient client = connected();
    client.send("in");
    reply("out");
    arrive();
    interface_->OnTask();
    EXPECT_EQ(requested(), Texts{"in"});
    EXPECT_EQ(client.receiveUntil("out\r"), kBanner + std::string("out\r"));
}

TEST_F(Client, LongRepliesArriveWholeWithOneCarriageReturn) {
    TcpClient client = connected();
    client.receiveUntil(kBanner);
    for (const std::size_t size : {254U, 255U, 256U, 280U, 5000U}) {
        reply(std::string(size, 'x'));
        interface_->OnTask();
        EXPECT_EQ(client.receiveUntil("\r"), std::string(size, 'x') + "\r");
    }
}

TEST_F(Client, BinaryFramingCountsBothWays) {
    TcpClient client = connected("IO", FramingMode::kBinary);
    EXPECT_EQ(client.receiveUntil("\r\n"), "\x1CZOLT IO interface is ready\r\n");
    client.send(std::string("\3a\0cd", 5));
    arrive();
    interface_->OnTask();
    client.send("\x80more");
    arrive();
    interface_->OnTask();
    EXPECT_EQ(requested(), (Texts{std::string("a\0c", 3), ""}));
    reply("abc");
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("abc"), "\3abc");
}

TEST_F(Client, AFailedSelectIsLoggedAndTheReplyStillGoesOut) {
    TcpClient client = connected();
    client.receiveUntil(kBanner);
    const std::size_t known = log_.lines().size();
    client.send("later");
    arrive();
    reply("reply");
    faults_.fail(Call::kSelect, EINTR);
    interface_->OnTask();
    EXPECT_EQ(loggedSince(known), Texts{selectError_});
    EXPECT_EQ(client.receiveUntil("reply\r"), "reply\r");
    EXPECT_EQ(requested(), Texts{});
    EXPECT_EQ(state(), ConnectionState::kConnected);
    interface_->OnTask();
    EXPECT_EQ(requested(), Texts{"later"});
}

TEST_F(Client, AHighDescriptorNumberWorksLikeAnyOther) {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    if (limit.rlim_max < FD_SETSIZE + 50) GTEST_SKIP() << "too few descriptors allowed";
    limit.rlim_cur = FD_SETSIZE + 50;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    std::vector<zolt_os::Descriptor> fillers;
    do {
        fillers.emplace_back(::open("/dev/null", O_RDONLY | O_CLOEXEC));
        ASSERT_TRUE(fillers.back().valid());
    } while (fillers.back().get() < FD_SETSIZE);

    TcpClient client = connected();
    ASSERT_GE(own_sockets::accepted(port_), FD_SETSIZE);
    EXPECT_EQ(client.receiveUntil(kBanner), kBanner);
    interface_->OnTask();
    EXPECT_EQ(requested(), Texts{});
    client.send("HELP\r\n");
    arrive();
    reply("reply");
    interface_->OnTask();
    EXPECT_EQ(requested(), Texts{"HELP\r\n"});
    EXPECT_EQ(client.receiveUntil("reply\r"), "reply\r");
    client.reset();
    arrive();
    interface_->OnTask();
    EXPECT_EQ(log_.lines().back(), closedByClient_);
}

TEST_F(Client, ASignalIsLoggedAndClosesNothing) {
    TcpClient client = connected();
    interface_->mf_SIGhandler(15);
    EXPECT_EQ(log_.lines().back(), "[INF] signal 15 on IO interface");
    EXPECT_EQ(state(), ConnectionState::kConnected);
    reply("still here");
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("here\r"), kBanner + std::string("still here\r"));
}

TEST_F(Client, ServesOneClientAfterTheOtherByItself) {
    buildLive();
    interface_->Init();
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(support::waitUntil([&] { return own_sockets::listeningPort() != 0; }));
        TcpClient client = TcpClient::connect(own_sockets::listeningPort());
        EXPECT_EQ(client.receiveUntil(kBanner), kBanner);
        client.send("HELP\r\n");
        ASSERT_TRUE(support::waitUntil([&] { return !requests_.IsEmpty(); }));
        EXPECT_EQ(requested(), Texts{"HELP\r\n"});
        client.reset();
        ASSERT_TRUE(support::waitUntil([&] { return state() != ConnectionState::kConnected; }));
    }
}

class Placeholder : public InterfaceFixture {
  protected:
    const std::string parked_ = "[INF] On task DMI interface";
};

TEST_F(Placeholder, SaysSoOnceAndServesNoClient) {
    buildLive("DMI");
    ASSERT_TRUE(support::waitUntil([&] { return log_.has(parked_); }));
    EXPECT_TRUE(interface_->Init());
    TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    client.send("HELP\r\n");
    interface_->end();
    EXPECT_EQ(requested(), Texts{});
    EXPECT_EQ(client.receiveUntil("anything"), "");
    EXPECT_EQ(log_.lines(), (Texts{parked_, "[INF] DMI interface listening on port 0"}));
}

TEST_F(Placeholder, RunsItsFirstCycleWhole) {
    build("DMI");
    const std::size_t known = log_.lines().size();
    interface_->Init();
    TcpClient client = TcpClient::connect(own_sockets::listeningPort());
    client.send("HELP\r\n");
    reply("reply");
    interface_->OnTask();
    EXPECT_EQ(client.receiveUntil("reply\r"), "reply\r");
    const Texts lines = loggedSince(known);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1], "[INF] DMI interface is waiting for incoming connection");
    EXPECT_EQ(lines[3], parked_);
}

}  // namespace
