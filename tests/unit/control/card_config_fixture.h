#pragma once

#include "tests/unit/control/console_fixture.h"

/// What one line leads to: a request, a success reply, and a second reply or none.
struct Exchange {
    /// The line, without the line end that a sent line has; a line that begins with a line
    /// end is sent as it is here.
    std::string line;
    std::string request;
    std::string reply;
};

/// All cards of the bus are of one kind, and they answer with the value 07.
class CardConfig : public ConsoleFixture {
  protected:
    CardConfig() { host_.answerWith("51 00 00 07"); }

    void fillWith(char kind) {
        for (std::size_t address = 0; address < 16; ++address) host_.addCard(address, kind);
    }

    Events eventsOfLine(const std::string& line) {
        return line.starts_with("\r\n") ? eventsOfText(line) : eventsOf(line);
    }

    /// Each line makes its request, waits a second and draws two replies: `success`
    /// and its own.
    void expectExchanges(const std::string& success, const std::vector<Exchange>& exchanges) {
        for (const Exchange& each : exchanges) {
            EXPECT_EQ(eventsOfLine(each.line),
                      (Events{"request " + each.request, "pause 1", replyEvent(success),
                              replyEvent(each.reply), kPrompt}))
                << each.line;
        }
    }

    /// The same with one reply, which begins with `success`.
    void expectShort(const std::string& success, const std::vector<Exchange>& exchanges) {
        for (const Exchange& each : exchanges) {
            EXPECT_EQ(eventsOfLine(each.line), (Events{"request " + each.request, "pause 1",
                                                       replyEvent(success + each.reply), kPrompt}))
                << each.line;
        }
    }
};
