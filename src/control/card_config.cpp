#include "control/card_config.h"

#include "bus/wire.h"
#include "common/byte_list.h"
#include "control/card_config_table.h"

namespace {

using Shape = CardConfigCommand::Shape;
using Value = CardConfigCommand::Value;

/// Offset of the value in a card's answer.
constexpr std::size_t kAnswerValue = 3;

/// "ON" and "OF" (of "OFF") select a state. With any other text the state that was
/// sent last is sent again, and the reply repeats the text as it was typed.
void parseState(CardConfigArguments& arguments, const std::string& text, std::uint8_t& carried) {
    arguments.stateText = text;
    if (text == "ON") {
        carried = 0xFF;
    } else if (text == "OF") {
        carried = 0x00;
        arguments.stateText = "OFF";
    }
    arguments.value = carried;
}

/// The carried state of an LCD command changes here, before the card's kind is
/// known: the last state that was typed is carried, whatever card it was for.
CardConfigArguments parse(const CardConfigCommand& command, const ConsoleLine& line,
                          CarriedStates& carried) {
    CardConfigArguments arguments;
    arguments.addressText = line.atColon(1);
    arguments.address = digitOf(arguments.addressText);
    if (command.shape != Shape::kAddress) {
        arguments.channelText = line.atColon(-1);
        arguments.channel = digitOf(arguments.channelText);
    }
    if (command.shape == Shape::kEndChannel) {
        arguments.endText = line.atColon(-2);
    }
    if (command.value == Value::kByte) {
        arguments.value = byteOf(line.afterEquals(2));
    } else if (command.value == Value::kState) {
        parseState(arguments, line.afterEquals(2), carried.*command.carried);
    }
    return arguments;
}

ByteList frameOf(const CardConfigCommand& command, const CardConfigArguments& arguments) {
    // Every text but "B" is end A.
    const unsigned base =
        command.registerBase + (arguments.endText == "B" ? command.endBOffset : 0U);
    ByteList frame{wire::kConfiguration, static_cast<char>(arguments.address),
                   static_cast<char>(command.operation),
                   static_cast<char>(base + arguments.channel)};
    if (command.value != Value::kNone) {
        frame.push_back(static_cast<char>(arguments.value));
    }
    return frame;
}

std::string successText(const CardConfigCommand& command, const CardConfigArguments& arguments) {
    std::string text = command.success + arguments.stateText;
    if (command.namesAddress) {
        text += " at address " + arguments.addressText;
    }
    return text;
}

void run(const CardConfigCommand& command, ConsoleContext& console, const ConsoleLine& line) {
    const CardConfigArguments arguments = parse(command, line, console.carriedStates());
    PERIFCARD& card = console.host().card(arguments.address);
    if (command.settings != CardSettings::kNone && command.settings != kindOf(card).settings) {
        console.reply(command.wrongKind);
        return;
    }
    // The old answer goes before the request does, so that it cannot count.
    card.ClearPIOAnswer();
    console.host().request(frameOf(command, arguments));
    console.host().pause(1);
    if (card.pioAnswer(0) != wire::kPioAnswer) {
        console.reply(command.failure);
        return;
    }
    console.reply(successText(command, arguments));
    if (command.resultLine != nullptr) {
        console.reply(command.resultLine(arguments, card.pioAnswer(kAnswerValue)));
    }
}

}  // namespace

bool runCardConfigCommands(ConsoleContext& console, const ConsoleLine& line) {
    bool handled = false;
    for (const CardConfigCommand& command : cardConfigCommands()) {
        if (matches(line, command.keyword, Match::kContains)) {
            run(command, console, line);
            handled = true;
        }
    }
    return handled;
}
