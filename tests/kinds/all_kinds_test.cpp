// Every kind of card, from the simulated card through the daemon to zoltctl. The kinds
// are the rows of the simulator's table, so a new row has to work at all three ends.
#include <signal.h>

#include <algorithm>
#include <optional>

#include "apps/zolt-sim/cards/card_kinds.h"
#include "bus/card_kinds.h"
#include "lib/ports/card_kind.h"
#include "lib/text/hexadecimal.h"
#include "tests/zoltctl/daemon_test.h"

namespace zolt_sim {

void PrintTo(const CardKind& kind, std::ostream* out) {
    *out << kind.name;
}

}  // namespace zolt_sim

namespace {

using ctl_test::ZoltctlProcess;

/// The daemon's row for a kind of the simulator.
const CardKind& daemonKind(const zolt_sim::CardKind& kind) {
    PERIFCARD card;
    setUpCard(card, 0, static_cast<char>(kind.code));
    return kindOf(card);
}

TEST_F(DaemonTest, ListsACardOfEachKindByItsName) {
    bus_.clear();
    std::string expected;
    unsigned address = 0;
    for (const zolt_sim::CardKind& kind : zolt_sim::cardKinds()) {
        const std::string digit = zolt_text::hexDigit(address++);
        bus_ += digit + " " + std::string(kind.name) + "\n";
        expected += digit + "  " + daemonKind(kind).name + "\n";
    }
    start();
    EXPECT_EQ(outputOf({"cards"}), expected);
}

/// An order for an output card: a command of zoltctl, and a text in what the simulated
/// card shows once it has carried the command out.
struct Order {
    std::vector<std::string> command;
    std::string shown;
};

/// The order for a card of this kind at address 3. Nothing if the clients' table has no
/// command for the kind.
std::optional<Order> orderFor(const zolt_sim::CardKind& kind) {
    const auto clientKind = zolt_ports::kindNamed(daemonKind(kind).name);
    const auto command = zolt_ports::rowOf(clientKind).output;
    if (!command) {
        return std::nullopt;
    }
    switch (*command) {
        case zolt_ports::OutputCommand::kBlock:
            return Order{{"set", "3", "0", "5A"}, ": 5A"};
        case zolt_ports::OutputCommand::kLcd:
            return Order{{"lcd", "3", "light", "on"}, "light on"};
        case zolt_ports::OutputCommand::kInfrared:
            return Order{{"ir", "3", "434F"}, "stream 43 4F"};
    }
    return std::nullopt;
}

/// A bus with one card, of the kind in the parameter, at address 3.
class EveryKind : public DaemonTest, public ::testing::WithParamInterface<zolt_sim::CardKind> {
  protected:
    void SetUp() override {
        DaemonTest::SetUp();
        settings_.polling = true;
        // Slow loops: few polls, so that a busy machine loses no answer.
        settings_.percent = -400;
        bus_ = "3 " + std::string(GetParam().name) + "\n";
    }

    void expectReported() {
        ZoltctlProcess watch({"watch"});
        ASSERT_TRUE(logged("client is connected on CAE interface"));
        ASSERT_TRUE(logged("client is connected on IO interface"));
        sim_->control("set 3 0 5A");
        const std::string report =
            std::string("  3  ") + daemonKind(GetParam()).name + "  block 0  5A\n";
        std::string watched;
        EXPECT_TRUE(support::waitUntil([&] {
            watched += watch.readNewOutput();
            return watched.find(report) != std::string::npos;
        })) << "no \""
            << report << "\" in \"" << watched << "\"";
        watch.signal(SIGINT);
        EXPECT_EQ(watch.waitForEnd().end, "status 130");
    }

    void expectCarriedOut() {
        const std::optional<Order> order = orderFor(GetParam());
        ASSERT_TRUE(order) << "lib/ports/card_kind.cpp has no command for the kind";
        outputOf(order->command);
        ASSERT_FALSE(HasFailure());
        std::string shown;
        EXPECT_TRUE(support::waitUntil([&] {
            shown = sim_->control("show 3").at(0);
            return shown.find(order->shown) != std::string::npos;
        })) << shown;
    }
};

TEST_P(EveryKind, WorksBetweenTheSimulatedCardAndZoltctl) {
    start();
    if (GetParam().inputs != zolt_sim::InputDevice::kNone) {
        expectReported();
    } else {
        expectCarriedOut();
    }
}

std::string nameOfKind(const ::testing::TestParamInfo<zolt_sim::CardKind>& kind) {
    std::string name(kind.param.name);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind,
                         ::testing::ValuesIn(zolt_sim::cardKinds().begin(),
                                             zolt_sim::cardKinds().end()),
                         nameOfKind);

}  // namespace
