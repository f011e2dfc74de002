// Getting in, against scripted ports: who is there, and who is not.
#include <signal.h>

#include "tests/support/tcp/tcp_client.h"
#include "tests/zoltctl/fake_test.h"

namespace {

using namespace ctl_test;

const Replies kVersion{{"DRVVER\r\n", reply({"CIA: DRIVER VERSION 1.20"})}};

FakeTcpPort::Script sending(const std::string& bytes) {
    return [bytes](FakeConnection& client) {
        client.send(bytes);
        client.keepSilent();
    };
}

class Opening : public FakeTest {};

TEST_F(Opening, NoDaemonListens) {
    expectOutcome(run({"--timeout", "0.5", "version"}), 3, "",
                  "zoltctl: no daemon at console 127.0.0.1:4001: Connection refused");
    expectOutcome(run({"--timeout=0.5", "--io-port=4999", "watch", "--no-names"}), 3, "",
                  "zoltctl: no daemon at IO 127.0.0.1:4999: Connection refused");
    expectOutcome(run({"monitor", "--timeout=0.5", "--mon-port=5999"}), 3, "",
                  "zoltctl: no daemon at monitor 127.0.0.1:5999: Connection refused");
}

TEST_F(Opening, AnUnknownHostIsReportedWithItsName) {
    const auto outcome = run({"--timeout", "3", "--host", "no-such-host.invalid", "version"});
    EXPECT_EQ(outcome.end, "status 3");
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.starts_with("zoltctl: ")) << outcome.errors;
    EXPECT_NE(outcome.errors.find("no-such-host.invalid"), std::string::npos) << outcome.errors;
    EXPECT_EQ(support::splitLines(outcome.errors).size(), 1U) << outcome.errors;
}

TEST_F(Opening, AnUnreachableHostIsNoDaemon) {
    // The view has no road to other machines.
    expectOutcome(run({"--host", "192.0.2.1", "version"}), 3, "",
                  "zoltctl: no daemon at console 192.0.2.1:4001: Network is unreachable");
}

TEST_F(Opening, AHostMayBeAName) {
    const FakeTcpPort cae(kDefaultCae, console(kVersion));
    expectOutcome(run({"--host", "localhost", "version"}), 0, kVersionText);
}

TEST_F(Opening, APortThatServesAnotherClientIsHeld) {
    const FakeTcpPort cae(kDefaultCae, std::vector<FakeTcpPort::Script>{});
    const FakeTcpPort io(kDefaultIo, std::vector<FakeTcpPort::Script>{});
    const FakeTcpPort mon(kDefaultMon, std::vector<FakeTcpPort::Script>{});
    const auto held = [](const std::string& port) {
        return "zoltctl: " + port + ": no banner came; another client holds the port";
    };
    expectOutcome(run({"--timeout", "0.3", "version"}), 4, "", held("console 127.0.0.1:4001"));
    expectOutcome(run({"--timeout", "0.3", "watch", "--no-names"}), 4, "",
                  held("IO 127.0.0.1:4002"));
    expectOutcome(run({"--timeout", "0.3", "monitor"}), 4, "", held("monitor 127.0.0.1:4003"));
}

// No further client can even connect then, whatever else the host's name stands for.
TEST_F(Opening, AFullQueueOfWaitingClientsIsHeld) {
    support::writeFile("/etc/hosts", "127.0.0.1 twofold\n127.0.0.2 twofold\n");
    const FakeTcpPort cae(kDefaultCae, std::vector<FakeTcpPort::Script>{});
    const auto first = support::TcpClient::connect(kDefaultCae);
    const auto second = support::TcpClient::connect(kDefaultCae);
    for (const std::string host : {"127.0.0.1", "twofold"}) {
        expectOutcome(
            run({"--host", host, "--timeout", "0.5", "version"}), 4, "",
            "zoltctl: console " + host + ":4001: no banner came; another client holds the port");
    }
}

TEST_F(Opening, ConnectionsThatAreTurnedAwayAreTriedAgain) {
    const auto turnedAway = [](FakeConnection&) {};
    const FakeTcpPort cae(kDefaultCae, {turnedAway, turnedAway, turnedAway, console(kVersion)});
    expectOutcome(run({"version"}), 0, kVersionText);
}

TEST_F(Opening, APortThatOpensLaterIsWaitedFor) {
    ZoltctlProcess process({"version"}, {.environment = {"ZOLT_LINE_END=crlf"}});
    // It connects at once, so it has most likely been refused.
    ASSERT_TRUE(support::waitUntil([&] { return process.hasStarted(); }));
    const FakeTcpPort cae(kDefaultCae, console(kVersion));
    expectOutcome(process.waitForEnd(), 0, kVersionText);
}

TEST_F(Opening, WhatWaitedForAnEarlierClientIsSkipped) {
    const std::string left = item(">") + item("COE:Illegal command -> nonsense") + item(">") +
                             item("ZOLT: Bye Bye...") + "half an item";
    const FakeTcpPort cae(kDefaultCae, [&](FakeConnection& client) {
        client.send(left);
        client.send(kConsoleBanner);
        client.expect("DRVVER\r\n");
        client.send(reply({"CIA: DRIVER VERSION 1.20"}));
        client.keepSilent();
    });
    expectOutcome(run({"version"}), 0, kVersionText);
}

TEST_F(Opening, TheBannerMayComeInSingleBytes) {
    const FakeTcpPort cae(kDefaultCae, [](FakeConnection& client) {
        client.sendSingly(item("COE:Illegal command -> x") + item(">") + kConsoleBanner);
        client.expect("DRVVER\r\n");
        client.sendSingly(reply({"CIA: DRIVER VERSION 1.20"}));
        client.keepSilent();
    });
    expectOutcome(run({"version"}), 0, kVersionText);
}

TEST_F(Opening, ABannerThatBreaksOffIsAnEndInMidAnswer) {
    const FakeTcpPort cae(kDefaultCae,
                          [](FakeConnection& client) { client.send("ZOLT CAE interface is re"); });
    expectOutcome(run({"version"}), 5, "",
                  "zoltctl: console 127.0.0.1:4001: the connection ended in the banner");
}

TEST_F(Opening, AnotherServiceIsNotTakenForTheDaemon) {
    struct Row {
        std::string sent;
        std::string quoted;
    };
    const std::vector<Row> rows{
        {"SSH-2.0-OpenSSH_9.2p1\r\n", "\"SSH-2.0-OpenSSH_9.2p1\\r\\n\""},
        {std::string("\x00\x01\x1B[31m\x7F\xFF", 9), "\"\\x00\\x01\\x1B[31m\\x7F\\xFF\""},
        {kIoBanner, "\"ZOLT IO interface is ready\\r\\n\\r\""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.quoted);
        const FakeTcpPort cae(kDefaultCae, sending(row.sent));
        expectOutcome(
            run({"--timeout", "0.5", "version"}), 7, "",
            "zoltctl: console 127.0.0.1:4001 does not look like zolt: instead of its banner "
            "it sent " +
                row.quoted);
    }
}

TEST_F(Opening, AnEndlessGreetingIsGivenUpWithBoundedMemory) {
    const FakeTcpPort cae(kDefaultCae,
                          [](FakeConnection& client) { client.flood(std::string(65536, 'x')); });
    const auto outcome = ctl_test::run({"--timeout", "1", "version"},
                                       {.environment = {"ASAN_OPTIONS=quarantine_size_mb=16"}});
    EXPECT_EQ(outcome.end, "status 7");
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(support::splitLines(outcome.errors).size(), 1U);
    EXPECT_LT(outcome.errors.size(), 300U);
    EXPECT_LT(largestChildKilobytes(), 200'000);
}

TEST_F(Opening, CtrlCEndsTheWait) {
    const FakeTcpPort cae(kDefaultCae, std::vector<FakeTcpPort::Script>{});
    ZoltctlProcess process({"version"});
    ASSERT_TRUE(support::waitUntil([&] { return process.hasStarted(); }));
    process.signal(SIGINT);
    EXPECT_EQ(process.waitForEnd().end, "signal 2");
}

}  // namespace
