#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/console.h"
#include "tests/support/doubles/recording_host.h"

using Events = std::vector<std::string>;

inline const std::string kPrompt = "reply >\r\n";
inline const std::string kUnknownCommand = "reply CIE: UNKNOWN COMMAND \r\n>\r\n";

inline std::string replyEvent(const std::string& text) {
    return "reply " + text + "\r\n";
}

/// The events of a line that only causes these replies, and then the prompt.
inline Events repliesAndPrompt(const std::vector<std::string>& texts) {
    Events events;
    for (const std::string& text : texts) events.push_back(replyEvent(text));
    events.push_back(kPrompt);
    return events;
}

/// Lets a record hold an answer that begins with this byte.
inline void leaveAnswer(PERIFCARD& card, char first) {
    std::array<char, 16> answer{};
    answer[0] = first;
    card.storePioAnswer(answer);
}

/// A console with the usual separators on a bus without cards.
class ConsoleFixture : public testing::Test {
  protected:
    /// What a text causes that is sent as it is.
    Events eventsOfText(const std::string& text) {
        console_.interpret(text);
        return host_.takeEvents();
    }

    /// What a line causes; the line end is added.
    Events eventsOf(const std::string& line) { return eventsOfText(line + "\r\n"); }

    support::RecordingHost host_;
    Console console_{host_, "\r\n", "\r\n"};
};
