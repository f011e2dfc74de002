#include "tests/faults/fault_test.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "tests/support/files.h"
#include "tests/support/process/private_view.h"
#include "tests/support/text/time_stamp.h"
#include "tests/support/wait.h"

using support::TcpClient;
using support::waitUntil;

namespace {

// A daemon that still handles the effects of a fault may take a while.
constexpr std::chrono::seconds kLongPatience{60};

// The memory that may stay in use forever: each of the five threads has an arena, of which
// glibc gives back nothing below 128 KiB, and has used some of its stack.
constexpr long kMemoryMargin = 5L * (128 + 64) * 1024;

constexpr const char* kPrompt = ">\r\n\r";

constexpr std::array kCards{"6 channel RC SERVO CONTROLLER",
                            "EMPTY",
                            "EMPTY",
                            "16 channel DIGITAL INPUT",
                            "EMPTY",
                            "16 channel DIGITAL OUTPUT",
                            "EMPTY",
                            "EMPTY",
                            "KEYMX and ROTE CONTROLLER",
                            "IR REMOTE CONTROLLER",
                            "3 channel DC MOTOR CONTROLLER",
                            "EMPTY",
                            "EMPTY",
                            "EMPTY",
                            "ALPHANUMERIC LCD CONTROLLER",
                            "6 channel ANALOGUE INPUT"};

std::string discoveryList() {
    std::string text = "FORCED DISCOVER LIST:\r\n\r";
    for (std::size_t address = 0; address < kCards.size(); ++address) {
        text +=
            std::string("DTI:0x") + "0123456789ABCDEF"[address] + ":" + kCards[address] + "\r\n\r";
    }
    return text + kPrompt;
}

std::string welcomeOf(std::uint16_t port) {
    switch (port) {
        case support::kCaePort:
            return "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r";
        case support::kIoPort:
            return "ZOLT IO interface is ready\r\n\r";
        default:
            return "ZOLT MON interface is ready\r\n\r";
    }
}

}  // namespace

FaultTest::FaultTest(const std::string& program) : daemon_(program) {
    settings_.polling = true;
}

void FaultTest::SetUp() {
    support::enterTestBed();
}

void FaultTest::TearDown() {
    if (daemon_.running()) {
        EXPECT_EQ(daemon_.stop(), "");
    }
    EXPECT_EQ(daemon_.standardError(), "");
    if (bus_ != nullptr) {
        EXPECT_EQ(bus_->stop(), "");
    }
    if (HasFailure()) {
        const auto log = support::splitLines(support::readFile(settings_.logFile));
        const std::size_t shown = std::min<std::size_t>(log.size(), 30);
        for (std::size_t i = log.size() - shown; i < log.size(); ++i) {
            std::printf("log: %s\n", log[i].c_str());
        }
    }
}

void FaultTest::plugBus(const std::string& link) {
    support::SimProcess::Options options;
    options.bus = support::shippedBus("all-kinds");
    options.link = link;
    bus_ = std::make_unique<support::SimProcess>(options);
}

void FaultTest::startDaemon() {
    support::writeConfiguration(settings_.toXml());
    ASSERT_EQ(daemon_.start(), "status 0");
}

void FaultTest::startServing() {
    if (bus_ == nullptr) plugBus();
    startDaemon();
    expectFullRound();
    noteState();
}

TcpClient FaultTest::greeted(std::uint16_t port, std::string* before) {
    const std::string welcome = welcomeOf(port);
    std::optional<TcpClient> client;
    std::string got;
    const bool welcomed = waitUntil(
        [&] {
            client = TcpClient::tryConnect(port);
            if (!client) return false;
            got += client->receiveUntil(welcome, kLongPatience);
            return got.ends_with(welcome);
        },
        kLongPatience);
    EXPECT_TRUE(welcomed) << "no welcome on port " << port << ", only: " << got;
    if (!client) throw std::runtime_error("port stays refused");
    if (before != nullptr && welcomed) *before = got.substr(0, got.size() - welcome.size());
    return std::move(*client);
}

TcpClient& FaultTest::console() {
    if (!console_) console_ = greeted(support::kCaePort);
    return *console_;
}

TcpClient& FaultTest::io() {
    if (!io_) {
        reports_.clear();
        io_ = greeted(support::kIoPort);
    }
    return *io_;
}

std::string FaultTest::answered(const std::string& line, const std::string& part) {
    console().send(line + "\r\n");
    std::string got;
    waitUntil(
        [&] {
            got += console().receive();
            return got.find(part) != std::string::npos && got.ends_with(kPrompt);
        },
        kLongPatience);
    return got;
}

void FaultTest::keepSocketBuffersSmall() {
    support::writeFile("/proc/sys/net/ipv4/tcp_wmem", "4096 4096 4096\n");
    support::writeFile("/proc/sys/net/ipv4/tcp_rmem", "4096 4096 4096\n");
}

void FaultTest::sendOutput(unsigned low) {
    io().send("a5b1d" + hexByte(low) + "\r\n");
}

bool FaultTest::outputArrives(unsigned low) {
    return traced("card 5 digital-output: FF " + hexByte(low));
}

bool FaultTest::traced(const std::string& line) {
    return waitUntil(
        [&] {
            for (const auto& text : bus_->readNewTrace()) trace_.push_back(text);
            const auto found = std::find_if(
                trace_.begin(), trace_.end(),
                [&](const std::string& text) { return text.substr(text.find(' ') + 1) == line; });
            if (found == trace_.end()) {
                trace_.clear();
                return false;
            }
            trace_.erase(trace_.begin(), found + 1);
            return true;
        },
        kLongPatience);
}

bool FaultTest::reported(const std::string& report) {
    const std::string item = report + "\r\n\r";
    return waitUntil(
        [&] {
            reports_ += io().receive();
            const auto at = reports_.find(item);
            if (at == std::string::npos) return false;
            reports_.erase(0, at + item.size());
            return true;
        },
        kLongPatience);
}

bool FaultTest::logged(const std::string& line, long times) const {
    return waitUntil([&] { return timesLogged(line) >= times; }, kLongPatience);
}

long FaultTest::timesLogged(const std::string& line) const {
    const auto lines = support::splitLines(support::readFile(settings_.logFile));
    return std::count_if(lines.begin(), lines.end(), [&](const std::string& text) {
        return support::withoutLogTime(text) == line;
    });
}

bool FaultTest::faultsHaveStruck() {
    return waitUntil([this] { return bus_->control("faults").empty(); }, kLongPatience);
}

void FaultTest::expectDiscovery() {
    // While the link is down the request waits, and the list is still empty.
    const std::string expected = discoveryList();
    std::string got;
    for (int attempt = 0; attempt < 30; ++attempt) {
        got = answered("FORCEDISCOVER", "DTI:0xF:");
        if (got.ends_with(expected)) return;
    }
    ADD_FAILURE() << "the cards are not found: " << got;
}

void FaultTest::expectOutput() {
    sendOutput(value_);
    EXPECT_TRUE(outputArrives(value_)) << "output " << hexByte(value_) << " is lost";
}

void FaultTest::expectInputChange() {
    bus_->control("set 3 0 " + hexByte(value_));
    EXPECT_TRUE(reported("a3b0d" + hexByte(value_))) << "input change is lost";
}

void FaultTest::expectConsole() {
    EXPECT_TRUE(answered("DRVVER", "CIA: ").ends_with("CIA: DRIVER VERSION 1.20\r\n\r>\r\n\r"));
}

void FaultTest::expectFullRound() {
    value_ = value_ % 255 + 1;
    for (auto* client : {&console_, &io_}) {
        if (!client->has_value()) continue;
        const std::string pending = (*client)->receive();
        if (client == &io_) reports_ += pending;
        if ((*client)->closedByPeer()) client->reset();
    }
    console();
    io();
    expectDiscovery();
    expectOutput();
    expectInputChange();
    expectConsole();
}

void FaultTest::expectServesAsBefore() {
    expectFullRound();
    DaemonState now;
    // The log file and a search for adapters come and go.
    EXPECT_TRUE(waitUntil([&] {
        now = stateOf(daemon_.number());
        return now.descriptors == before_.descriptors && now.threads == before_.threads;
    })) << "before: "
        << before_.describe() << "\nafter:  " << now.describe();
    if (memoryIsMeaningful()) {
        EXPECT_LE(now.memory, before_.memory + kMemoryMargin)
            << "before: " << before_.describe() << "\nafter:  " << now.describe();
    }
    RecordProperty("memory_before", std::to_string(before_.memory));
    RecordProperty("memory_after", std::to_string(now.memory));
}
