// Fuzzes what an IO client sends: the bytes arrive in reads of at most 255, are split at the
// separator, and each command is translated into a frame.

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "bus/card_kinds.h"
#include "bus/wire.h"
#include "control/io_forms.h"
#include "fuzz/support/cards.h"
#include "fuzz/support/target.h"
#include "ports/framing.h"

namespace {

constexpr std::size_t kMostBytes = 1020;
constexpr std::size_t kLongestFrame = 38;

/// Holds for the frame of a command, whatever the command says.
void requireFrame(const std::string& command, const OutputFrame& frame) {
    fuzz::require(frame.address < wire::kAddresses, "a frame is for an address of the bus");
    if (frame.bytes.empty()) {
        fuzz::require(command.size() >= 7 && command[2] == 'b', "only a block command is empty");
        return;
    }
    const std::string bytes(frame.bytes.begin(), frame.bytes.end());
    fuzz::require(bytes.size() > 3 && bytes.size() <= kLongestFrame, "a frame has 4 to 38 bytes");
    fuzz::require(bytes[0] == wire::kOutput, "an output frame");
    fuzz::require(bytes[1] == static_cast<char>(frame.address), "the frame names its card");
    fuzz::require(bytes[2] == static_cast<char>(bytes.size() - 3), "the frame counts its bytes");
}

void requireCommand(const std::string& command, const std::string& separator) {
    fuzz::require(!command.empty(), "no command is empty");
    fuzz::require(separator.empty() || command.find(separator) == std::string::npos,
                  "no command holds the separator");
}

/// Handles one read as the master loop does.
void handle(const ByteList& read, const std::string& separator, CardTable& cards) {
    for (const std::string& command : splitCommands(Convert_QList2String(read), separator)) {
        requireCommand(command, separator);
        try {
            if (const std::optional<OutputFrame> frame = translateOutput(command, cards)) {
                requireFrame(command, *frame);
            } else {
                Convert_String2QList("COE:Illegal command -> " + command + "\r\n");
            }
        } catch (const CommandTooShort&) {
            Convert_String2QList("COE:Parser exception -> " + command + "\r\n");
        }
    }
}

void run(std::string_view sent, const std::string& separator) {
    CardTable cards;
    for (std::size_t address = 0; address < fuzz::kKinds.size(); ++address) {
        setUpCard(cards[address], static_cast<std::uint8_t>(address), fuzz::kKinds[address]);
    }
    while (!sent.empty()) {
        std::array<char, framing::kReadSize + 1> buffer{};
        const std::string_view read = sent.substr(0, framing::kReadSize);
        std::copy(read.begin(), read.end(), buffer.begin());
        handle(framing::received(FramingMode::kText, buffer.data()), separator, cards);
        sent.remove_prefix(read.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const char* separator : {"\r\n", "\n", "", ";;"}) {
        run(fuzz::textOf(data, size, kMostBytes), separator);
    }
    return 0;
}
