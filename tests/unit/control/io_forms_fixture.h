#pragma once

#include <gtest/gtest.h>

#include <string>

#include "bus/card_kinds.h"
#include "bus/wire.h"
#include "control/io_forms.h"
#include "tests/support/text/bytes.h"

inline constexpr const char* kIllegal = "illegal";
inline constexpr const char* kException = "exception";

/// The bus has one card of each kind, at the addresses that the help text uses.
class IoForms : public testing::Test {
  protected:
    IoForms() {
        for (PERIFCARD& card : cards_) card.clearPerifCard();
        setUpCard(cards_[0], 0, card_kind::kServo);
        setUpCard(cards_[3], 3, card_kind::kDigitalInput);
        setUpCard(cards_[5], 5, card_kind::kDigitalOutput);
        setUpCard(cards_[9], 9, card_kind::kInfrared);
        setUpCard(cards_[10], 10, card_kind::kMotor);
        setUpCard(cards_[14], 14, card_kind::kLcd);
    }

    /// The address of the queue and the frame in hexadecimal ("5: 10 05..."), or
    /// kIllegal or kException for a command that makes no frame.
    std::string outcome(const std::string& command) {
        try {
            const auto frame = translateOutput(command, cards_);
            if (!frame) return kIllegal;
            return std::to_string(frame->address) + ": " + hexText(frame->bytes);
        } catch (const CommandTooShort&) {
            return kException;
        }
    }

    static std::string repeated(const std::string& text, std::size_t times) {
        std::string result;
        for (std::size_t i = 0; i < times; ++i) result += text;
        return result;
    }

    CardTable cards_;
};
