#include <array>
#include <limits>

#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/error.h"
#include "lib/text/decimal.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

using Verb = Control::Verb;

std::uint8_t address(const std::string& word) {
    const auto value = zolt_text::parseHexDigit(word);
    if (!value) {
        throw Error("\"" + word + "\" is not an address (0 to F)");
    }
    return *value;
}

std::uint8_t byteValue(const std::string& word) {
    const auto value = zolt_text::parseHexByte(word);
    if (!value) {
        throw Error("\"" + word + "\" is not a byte (00 to FF)");
    }
    return *value;
}

unsigned digit(const std::string& word) {
    const auto value = zolt_text::parseHexDigit(word);
    if (!value) {
        throw Error("\"" + word + "\" is not a number from 0 to F");
    }
    return *value;
}

void readNothing(const Words&, Control&) {}

void readShow(const Words& words, Control& control) {
    if (words.size() > 1) {
        control.address = address(words[1]);
    }
}

void readAddress(const Words& words, Control& control) {
    control.address = address(words[1]);
}

void readInput(const Words& words, Control& control) {
    constexpr unsigned kLastInput = 15;
    control.address = address(words[1]);
    const auto input = zolt_text::parseDecimal(words[2], kLastInput);
    if (!input) {
        throw Error("\"" + words[2] + "\" is not an input (0 to 15)");
    }
    control.number = *input;
}

void readBlockValue(const Words& words, Control& control) {
    control.address = address(words[1]);
    control.number = digit(words[2]);
    control.value = byteValue(words[3]);
}

void readKey(const Words& words, Control& control) {
    control.address = address(words[1]);
    control.value = byteValue(words[2]);
}

void readPlug(const Words& words, Control& control) {
    if (words.size() > 1) {
        control.path = words[1];
    }
}

void readInsert(const Words& words, Control& control) {
    control.address = address(words[1]);
    control.slot = parseSlot({words.begin() + 2, words.end()});
}

void readFault(const Words& words, Control& control) {
    control.fault = parseFault({words.begin() + 1, words.end()});
}

void readFaults(const Words& words, Control& control) {
    if (words.size() > 1) {
        if (words[1] != "clear") {
            throw Error("faults takes clear or nothing");
        }
        control.verb = Verb::kFaultsClear;
    }
}

void readTrace(const Words& words, Control& control) {
    const auto filter = parseTraceFilter(words[1]);
    if (!filter) {
        throw Error("trace takes all, commands or none");
    }
    control.filter = *filter;
}

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

struct ControlRow {
    std::string_view word;
    Verb verb;
    /// Both numbers of words count the control's own word.
    std::size_t fewestWords;
    std::size_t mostWords;
    void (*read)(const Words& words, Control& control);
    std::string_view usage;
    std::string_view purpose;
};

constexpr std::array kControls{
    ControlRow{"show", Verb::kShow, 1, 2, readShow, "show [A]",
               "the bus, or everything about card A"},
    ControlRow{"set", Verb::kSet, 4, 4, readBlockValue, "set A B VV",
               "the input byte of block B becomes VV"},
    ControlRow{"press", Verb::kPress, 3, 3, readInput, "press A N",
               "digital input N (0 to 15) goes on"},
    ControlRow{"release", Verb::kRelease, 3, 3, readInput, "release A N",
               "digital input N goes off"},
    ControlRow{"turn", Verb::kTurn, 4, 4, readBlockValue, "turn A C VV",
               "the potentiometer of channel C (0 to 5) is at VV"},
    ControlRow{"key", Verb::kKey, 3, 3, readKey, "key A VV", "the key matrix reports key code VV"},
    ControlRow{"insert", Verb::kInsert, 3, 4, readInsert, "insert A KIND",
               "puts in a card; KIND as in a bus file"},
    ControlRow{"remove", Verb::kRemove, 2, 2, readAddress, "remove A", "takes the card out"},
    ControlRow{"unplug", Verb::kUnplug, 1, 1, readNothing, "unplug",
               "takes the adapter out of the host"},
    ControlRow{"plug", Verb::kPlug, 1, 2, readPlug, "plug [PATH]",
               "puts the adapter back, under the same or another name"},
    ControlRow{
        "fault", Verb::kFault, 2, kAnyNumber, readFault,
        "fault KIND [ARG] [at A] [for REQUEST] [once|N times|always]",
        "silence, delay MS, noise HEX, truncate N, oversize N, length VV, address VV, class N, "
        "answer HEX, raw HEX"},
    ControlRow{"faults", Verb::kFaults, 1, 2, readFaults, "faults [clear]",
               "lists or removes the faults"},
    ControlRow{"trace", Verb::kTrace, 2, 2, readTrace, "trace all|commands|none",
               "what is shown from now on"},
    ControlRow{"help", Verb::kHelp, 1, 1, readNothing, "help", "this list"},
    ControlRow{"quit", Verb::kQuit, 1, 1, readNothing, "quit", "ends the simulated bus"},
};

}  // namespace

Control parseControl(std::string_view line) {
    const Words words = splitWords(line);
    if (words.empty()) {
        throw Error("the line is empty (help lists the controls)");
    }
    for (const ControlRow& row : kControls) {
        if (row.word != words[0]) {
            continue;
        }
        if (words.size() < row.fewestWords || words.size() > row.mostWords) {
            throw Error("use: " + std::string(row.usage));
        }
        Control control;
        control.verb = row.verb;
        row.read(words, control);
        return control;
    }
    throw Error("unknown control \"" + words[0] + "\" (help lists the controls)");
}

std::vector<std::string> controlHelp() {
    std::vector<std::string> lines;
    lines.reserve(kControls.size());
    for (const ControlRow& row : kControls) {
        lines.push_back(std::string(row.usage) + " - " + std::string(row.purpose));
    }
    return lines;
}

}  // namespace zolt_sim
