#include "apps/zolt-sim/cards/bus_file.h"

#include <optional>

#include "apps/zolt-sim/cards/card_kinds.h"
#include "apps/zolt-sim/error.h"
#include "apps/zolt-sim/text_file.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

void readMissing(const Words& words, BusLayout& layout) {
    if (words.size() != 2 || (words[1] != "negative" && words[1] != "silent")) {
        throw Error("missing takes one word: negative or silent");
    }
    layout.missingSilent = words[1] == "silent";
}

void readSlot(const Words& words, BusLayout& layout) {
    const auto address = zolt_text::parseHexDigit(words[0]);
    if (!address) {
        throw Error("\"" + words[0] + "\" is neither an address (0 to F) nor \"missing\"");
    }
    SlotSetup& slot = layout.slots[*address];
    if (slot.content != SlotSetup::Content::kEmpty) {
        throw Error("address " + zolt_text::hexDigit(*address) + " is given a second time");
    }
    slot = parseSlot({words.begin() + 1, words.end()});
}

SlotSetup parseCode(const Words& words) {
    const auto code = words.size() == 2 ? zolt_text::parseHexByte(words[1]) : std::nullopt;
    if (!code || *code == wire::kNoCard) {
        throw Error("code takes one hexadecimal number from 01 to FF");
    }
    if (const CardKind* kind = findKind(*code)) {
        throw Error("code " + zolt_text::hexByte(*code) + " is the kind " +
                    std::string(kind->name) + ": write that name");
    }
    return {SlotSetup::Content::kCard, *code};
}

}  // namespace

SlotSetup parseSlot(const Words& words) {
    if (words.empty()) {
        throw Error("the kind of the card is missing");
    }
    if (words[0] == "code") {
        return parseCode(words);
    }
    if (words.size() != 1) {
        throw Error("too many words after \"" + words[0] + "\"");
    }
    if (words[0] == "silent") {
        return {SlotSetup::Content::kSilent, wire::kNoCard};
    }
    const CardKind* kind = findKind(words[0]);
    if (kind == nullptr) {
        throw Error("unknown kind of card \"" + words[0] + "\" (kinds: " + kindNames(", ") +
                    ", code NN, silent)");
    }
    return {SlotSetup::Content::kCard, kind->code};
}

BusLayout parseBusText(std::string_view text, const std::string& fileName) {
    BusLayout layout;
    forEachEntry(text, fileName, [&layout](const std::string& entry) {
        const Words words = splitWords(entry);
        if (words[0] == "missing") {
            readMissing(words, layout);
        } else {
            readSlot(words, layout);
        }
    });
    return layout;
}

BusLayout readBusFile(const std::string& path) {
    return parseBusText(readTextFile(path), path);
}

}  // namespace zolt_sim
