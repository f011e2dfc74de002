#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "apps/zolt-sim/cards/wire.h"
#include "apps/zolt-sim/line/faults.h"

namespace sim {
namespace {

using Words = std::vector<std::string>;

enum class Argument { kNone, kMilliseconds, kCount, kByte, kBytes, kClass };

struct FaultRow {
    std::string_view name;
    Fault::Kind kind;
    Argument argument;
};

constexpr FaultRow kFaults[] = {
    {"silence", Fault::Kind::kSilence, Argument::kNone},
    {"delay", Fault::Kind::kDelay, Argument::kMilliseconds},
    {"noise", Fault::Kind::kNoise, Argument::kBytes},
    {"truncate", Fault::Kind::kTruncate, Argument::kCount},
    {"oversize", Fault::Kind::kOversize, Argument::kCount},
    {"length", Fault::Kind::kLength, Argument::kByte},
    {"address", Fault::Kind::kAddress, Argument::kByte},
    {"class", Fault::Kind::kClass, Argument::kClass},
    {"answer", Fault::Kind::kAnswer, Argument::kBytes},
    {"raw", Fault::Kind::kRaw, Argument::kBytes},
};

// An answer's class is told by its first byte; class 5 is the empty answer, for
// which "length 00" serves.
struct ClassRow {
    std::string_view name;
    std::uint8_t firstByte;
};
constexpr ClassRow kClasses[] = {{"1", 0x54}, {"2", 0x12}, {"3", 0x23}, {"4", 0x4E}, {"6", 0x42}};

constexpr unsigned kLongestDelay = 60000;
constexpr unsigned kMostTimes = 1000000;

const FaultRow& rowOf(Fault::Kind kind) {
    return *std::find_if(std::begin(kFaults), std::end(kFaults),
                         [kind](const FaultRow& row) { return row.kind == kind; });
}

// Walks the words after "fault".
class FaultReader {
  public:
    explicit FaultReader(const Words& words) : words_(words) {}

    Fault read() {
        const std::string& name = take("the kind of fault is missing");
        const auto* row = std::find_if(std::begin(kFaults), std::end(kFaults),
                                       [&](const FaultRow& entry) { return entry.name == name; });
        if (row == std::end(kFaults)) {
            throw std::invalid_argument("\"" + name + "\" is no kind of fault");
        }
        fault_.kind = row->kind;
        readArgument(*row);
        while (next_ < words_.size()) {
            readModifier();
        }
        return fault_;
    }

  private:
    const std::string& take(const char* missing) {
        if (next_ == words_.size()) {
            throw std::invalid_argument(missing);
        }
        return words_[next_++];
    }

    void readArgument(const FaultRow& row) {
        const std::string name(row.name);
        switch (row.argument) {
            case Argument::kNone:
                return;
            case Argument::kMilliseconds:
                fault_.number = number(name + " takes milliseconds", 1, kLongestDelay);
                return;
            case Argument::kCount:
                fault_.number = number(name + " takes a number of bytes", 1, wire::kLongestPayload);
                return;
            case Argument::kByte:
                fault_.bytes = {byte(name)};
                return;
            case Argument::kClass:
                fault_.bytes = {classByte()};
                return;
            case Argument::kBytes:
                readBytes(name);
                return;
        }
    }

    unsigned number(const std::string& what, unsigned smallest, unsigned largest) {
        const auto value = next_ < words_.size() ? parseDecimal(words_[next_], largest)
                                                 : std::optional<unsigned>();
        if (!value || *value < smallest) {
            throw std::invalid_argument(what + ", " + std::to_string(smallest) + " to " +
                                        std::to_string(largest));
        }
        ++next_;
        return *value;
    }

    std::uint8_t byte(const std::string& name) {
        const auto value = parseHexByte(take((name + " takes a hexadecimal byte").c_str()));
        if (!value) {
            throw std::invalid_argument(name + " takes a hexadecimal byte, 00 to FF");
        }
        return *value;
    }

    std::uint8_t classByte() {
        constexpr const char* kUse = "class takes 1, 2, 3, 4 or 6";
        const std::string& word = take(kUse);
        for (const ClassRow& row : kClasses) {
            if (row.name == word) {
                return row.firstByte;
            }
        }
        throw std::invalid_argument(kUse);
    }

    // "10 times" after the bytes is a count, not a byte more.
    bool atCount() const { return next_ + 1 < words_.size() && words_[next_ + 1] == "times"; }

    void readBytes(const std::string& name) {
        while (next_ < words_.size() && !atCount()) {
            const auto bytes = parseHexBytes(words_[next_]);
            if (!bytes) {
                break;
            }
            fault_.bytes.insert(fault_.bytes.end(), bytes->begin(), bytes->end());
            ++next_;
        }
        if (fault_.bytes.empty() || fault_.bytes.size() > wire::kLongestPayload) {
            throw std::invalid_argument(name + " takes 1 to 255 bytes of two hexadecimal digits");
        }
    }

    void readModifier() {
        if (atCount()) {
            setTimes(number("times takes a number", 1, kMostTimes));
            ++next_;
            return;
        }
        const std::string& word = words_[next_++];
        if (word == "once") {
            setTimes(1U);
        } else if (word == "always") {
            setTimes(std::nullopt);
        } else if (word == "at" && !fault_.at) {
            fault_.at = parseHexDigit(take("at takes an address"));
            if (!fault_.at) {
                throw std::invalid_argument("at takes an address, 0 to F");
            }
        } else if (word == "for" && !fault_.requestKind) {
            constexpr const char* kUse = "for takes poll, output, discovery, check or config";
            fault_.requestKind = requestKindNamed(take(kUse));
            if (!fault_.requestKind) {
                throw std::invalid_argument(kUse);
            }
        } else {
            throw std::invalid_argument("\"" + word + "\" is not understood here");
        }
    }

    void setTimes(std::optional<unsigned> times) {
        if (timesGiven_) {
            throw std::invalid_argument("once, N times and always exclude each other");
        }
        timesGiven_ = true;
        fault_.times = times;
    }

    const Words& words_;
    std::size_t next_ = 0;
    bool timesGiven_ = false;
    Fault fault_;
};

std::string argumentText(const Fault& fault) {
    switch (rowOf(fault.kind).argument) {
        case Argument::kNone:
            return "";
        case Argument::kMilliseconds:
        case Argument::kCount:
            return " " + std::to_string(fault.number);
        case Argument::kByte:
        case Argument::kBytes:
            return " " + hexBytes(fault.bytes);
        case Argument::kClass:
            break;
    }
    const auto* row =
        std::find_if(std::begin(kClasses), std::end(kClasses),
                     [&](const ClassRow& entry) { return entry.firstByte == fault.bytes.front(); });
    return " " + std::string(row->name);
}

}  // namespace

std::string faultName(Fault::Kind kind) {
    return std::string(rowOf(kind).name);
}

std::string faultText(const Fault& fault) {
    std::string text = faultName(fault.kind) + argumentText(fault);
    if (fault.at) {
        text += " at " + hexDigit(*fault.at);
    }
    if (fault.requestKind) {
        text += " for " + std::string(requestKindName(*fault.requestKind));
    }
    if (!fault.times) {
        return text + " always";
    }
    return text + (*fault.times == 1 ? " once" : " " + std::to_string(*fault.times) + " times");
}

Fault parseFault(const Words& words) {
    return FaultReader(words).read();
}

}  // namespace sim
