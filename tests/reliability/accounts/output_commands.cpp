#include "tests/reliability/accounts/output_commands.h"

#include "tests/support/text/hex_number.h"

namespace reliability {
namespace {

constexpr unsigned kStreamCard = 0x9;
constexpr unsigned kTextCard = 0xE;

// The bytes as " 34" each.
std::string blankAndByte(unsigned value) {
    return " " + support::hexNumber(value, 2);
}

}  // namespace

OutputCommands::OutputCommands()
    : blockCards_{{0x0, std::vector<unsigned>(6, 0x80)},
                  {0x5, std::vector<unsigned>(2, 0xFF)},
                  {0xA, std::vector<unsigned>(4, 0x00)}} {}

OutputCommand OutputCommands::next() {
    const std::size_t turn = turn_++ % (blockCards_.size() + 2);
    if (turn < blockCards_.size()) return block(blockCards_[turn]);
    return turn == blockCards_.size() ? stream() : text();
}

OutputCommand OutputCommands::nextWithoutState() {
    return turn_++ % 2 == 0 ? stream() : text();
}

// Each command increases one block; the card gets all its blocks.
OutputCommand OutputCommands::block(BlockCard& card) {
    const std::size_t index = card.commands++ % card.values.size();
    unsigned& value = card.values[index];
    value = (value + 1) & 0xFF;
    OutputCommand command{card.address,
                          "a" + support::hexNumber(card.address, 1) + "b" +
                              support::hexNumber(index, 1) + "d" + support::hexNumber(value, 2),
                          "10" + blankAndByte(card.address) +
                              blankAndByte(static_cast<unsigned>(card.values.size()))};
    for (const unsigned each : card.values) command.frame += blankAndByte(each);
    return command;
}

OutputCommand OutputCommands::stream() {
    const unsigned number = number_++;
    OutputCommand command{kStreamCard, "a9sHS" + support::hexNumber(number, 8),
                          "10" + blankAndByte(kStreamCard) + " 05 04"};
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        command.frame += blankAndByte((number >> shift) & 0xFF);
    }
    return command;
}

OutputCommand OutputCommands::text() {
    const std::string number = support::hexNumber(number_++, 8);
    OutputCommand command{kTextCard, "aElPAp0000t" + number,
                          "10" + blankAndByte(kTextCard) + " 0C 09 00 00"};
    for (const char digit : number) command.frame += blankAndByte(static_cast<unsigned>(digit));
    command.frame += " 00";
    return command;
}

}  // namespace reliability
