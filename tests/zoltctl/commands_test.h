#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/zoltctl/fake_test.h"

/// Lines that the console is asked, with the lines of their replies.
using Dialogue = std::vector<std::pair<std::string, std::vector<std::string>>>;

/// One command: what has to be asked and sent, and printed.
struct CommandRow {
    std::vector<std::string> arguments;
    Dialogue dialogue;
    std::string text;
    std::string json;
    /// What is sent on IO, and what comes from there.
    std::string io = {};
    std::string fromIo = {};
};

class CommandTest : public FakeTest {
  protected:
    /// A console whose client has to ask just this, and then leaves.
    static ctl_test::FakeTcpPort::Script playing(const Dialogue& dialogue);
    /// Runs a command with further options.
    static ctl_test::Outcome runRow(const CommandRow& row, const std::vector<std::string>& options);
    /// Runs each command twice, for text and for JSON.
    static void expectRows(const std::vector<CommandRow>& rows);

    /// The lines of a list of cards, below their heading; address 7 has a card of
    /// an unknown kind, the others are as in apps/zolt-sim/buses/all-kinds.bus.
    static std::vector<std::string> cardList(const std::string& heading);
    /// The table of all sixteen addresses, or of those with a card.
    static std::string cardText(bool all);
    static std::string cardJson(bool all);
    static std::string addressOf(std::size_t index);
};
