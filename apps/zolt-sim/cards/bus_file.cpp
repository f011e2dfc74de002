#include "apps/zolt-sim/cards/bus_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "apps/zolt-sim/cards/card_kinds.h"
#include "apps/zolt-sim/text.h"

namespace sim {
namespace {

void readMissing(const std::vector<std::string>& words, BusLayout& layout) {
    if (words.size() != 2 || (words[1] != "negative" && words[1] != "silent")) {
        throw std::invalid_argument("missing takes one word: negative or silent");
    }
    layout.missingSilent = words[1] == "silent";
}

void readSlot(const std::vector<std::string>& words, BusLayout& layout) {
    const auto address = parseHexDigit(words[0]);
    if (!address) {
        throw std::invalid_argument("\"" + words[0] +
                                    "\" is no address (0 to F) and not \"missing\"");
    }
    SlotSetup& slot = layout.slots[*address];
    if (slot.content != SlotSetup::Content::kEmpty) {
        throw std::invalid_argument("address " + hexDigit(*address) + " is given a second time");
    }
    slot = parseSlot({words.begin() + 1, words.end()});
}

}  // namespace

SlotSetup parseSlot(const std::vector<std::string>& words) {
    if (words.empty()) {
        throw std::invalid_argument("the kind of the card is missing");
    }
    if (words[0] == "code") {
        const auto code = words.size() == 2 ? parseHexByte(words[1]) : std::nullopt;
        if (!code || *code == wire::kCodeEmpty) {
            throw std::invalid_argument("code takes one hexadecimal number from 01 to FF");
        }
        if (isNamedKind(*code)) {
            throw std::invalid_argument("code " + hexByte(*code) + " is the kind " +
                                        kindName(*code) + ": write that name");
        }
        return {SlotSetup::Content::kCard, *code};
    }
    if (words.size() != 1) {
        throw std::invalid_argument("too much after \"" + words[0] + "\"");
    }
    if (words[0] == "silent") {
        return {SlotSetup::Content::kSilent, wire::kCodeEmpty};
    }
    const auto code = kindCode(words[0]);
    if (!code) {
        throw std::invalid_argument("\"" + words[0] + "\" is no kind of card (" + kindNames() +
                                    ", code NN, silent)");
    }
    return {SlotSetup::Content::kCard, *code};
}

BusLayout parseBusText(std::string_view text, const std::string& fileName) {
    BusLayout layout;
    unsigned lineNumber = 0;
    for (const std::string& line : splitLines(text)) {
        ++lineNumber;
        const std::vector<std::string> words = splitWords(withoutComment(line));
        if (words.empty()) {
            continue;
        }
        try {
            if (words[0] == "missing") {
                readMissing(words, layout);
            } else {
                readSlot(words, layout);
            }
        } catch (const std::invalid_argument& error) {
            throw BusFileError(fileName + ":" + std::to_string(lineNumber) + ": " + error.what());
        }
    }
    return layout;
}

BusLayout readBusFile(const std::string& path) {
    try {
        return parseBusText(readTextFile(path), path);
    } catch (const BusFileError&) {
        throw;
    } catch (const std::runtime_error& error) {
        throw BusFileError(error.what());
    }
}

std::string readTextFile(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        throw std::runtime_error(path + ": is a directory");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path + ": " + std::strerror(errno));
    }
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace sim
