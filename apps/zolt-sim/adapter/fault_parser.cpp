#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

#include "apps/zolt-sim/adapter/faults.h"
#include "apps/zolt-sim/cards/wire.h"
#include "apps/zolt-sim/error.h"
#include "lib/text/decimal.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

enum class Argument { kNone, kMilliseconds, kCount, kByte, kBytes, kClass };

struct FaultRow {
    std::string_view name;
    Fault::Kind kind;
    Argument argument;
};

constexpr std::array kFaults{
    FaultRow{"silence", Fault::Kind::kSilence, Argument::kNone},
    FaultRow{"delay", Fault::Kind::kDelay, Argument::kMilliseconds},
    FaultRow{"noise", Fault::Kind::kNoise, Argument::kBytes},
    FaultRow{"truncate", Fault::Kind::kTruncate, Argument::kCount},
    FaultRow{"oversize", Fault::Kind::kOversize, Argument::kCount},
    FaultRow{"length", Fault::Kind::kLength, Argument::kByte},
    FaultRow{"address", Fault::Kind::kAddress, Argument::kByte},
    FaultRow{"class", Fault::Kind::kClass, Argument::kClass},
    FaultRow{"answer", Fault::Kind::kAnswer, Argument::kBytes},
    FaultRow{"raw", Fault::Kind::kRaw, Argument::kBytes},
};

/// A class of answers and a first payload byte that belongs to it. Class 5 is the empty
/// answer, which the fault "length 00" makes.
struct ClassRow {
    std::string_view name;
    std::uint8_t firstByte;
};
constexpr std::array kClasses{ClassRow{"1", 0x54}, ClassRow{"2", 0x12}, ClassRow{"3", 0x23},
                              ClassRow{"4", 0x4E}, ClassRow{"6", 0x42}};

/// Longer than any pause of the daemon, and short enough that a mistyped number does
/// not stop the bus for good.
constexpr std::chrono::milliseconds kLongestDelay = std::chrono::minutes(1);
constexpr unsigned kMostTimes = 1000000;

const FaultRow& rowOf(Fault::Kind kind) {
    return *std::find_if(kFaults.begin(), kFaults.end(),
                         [kind](const FaultRow& row) { return row.kind == kind; });
}

/// Reads the words after "fault", one after the other.
class FaultReader {
  public:
    explicit FaultReader(const Words& words) : words_(words) {}

    Fault read() {
        const std::string& name = take("the kind of fault is missing");
        const auto* row = std::find_if(kFaults.begin(), kFaults.end(),
                                       [&](const FaultRow& entry) { return entry.name == name; });
        if (row == kFaults.end()) {
            throw Error("unknown fault \"" + name + "\"");
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
            throw Error(missing);
        }
        return words_[next_++];
    }

    void readArgument(const FaultRow& row) {
        const std::string name(row.name);
        switch (row.argument) {
            case Argument::kNone:
                return;
            case Argument::kMilliseconds:
                fault_.delay = std::chrono::milliseconds(number(
                    name + " takes milliseconds", 1, static_cast<unsigned>(kLongestDelay.count())));
                return;
            case Argument::kCount:
                fault_.count = number(name + " takes a number of bytes", 1, wire::kLongestPayload);
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
        const auto value = next_ < words_.size() ? zolt_text::parseDecimal(words_[next_], largest)
                                                 : std::optional<unsigned>();
        if (!value || *value < smallest) {
            throw Error(what + ", " + std::to_string(smallest) + " to " + std::to_string(largest));
        }
        ++next_;
        return *value;
    }

    std::uint8_t byte(const std::string& name) {
        const auto value =
            zolt_text::parseHexByte(take((name + " takes a hexadecimal byte").c_str()));
        if (!value) {
            throw Error(name + " takes a hexadecimal byte, 00 to FF");
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
        throw Error(kUse);
    }

    /// Whether a count such as "10 times" comes next; its number could also be a byte.
    bool atCount() const { return next_ + 1 < words_.size() && words_[next_ + 1] == "times"; }

    void readBytes(const std::string& name) {
        while (next_ < words_.size() && !atCount()) {
            const auto bytes = zolt_text::parseHexBytes(words_[next_]);
            if (!bytes) {
                break;
            }
            fault_.bytes.insert(fault_.bytes.end(), bytes->begin(), bytes->end());
            ++next_;
        }
        if (fault_.bytes.empty() || fault_.bytes.size() > wire::kLongestPayload) {
            throw Error(name + " takes 1 to 255 bytes of two hexadecimal digits");
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
            fault_.at = zolt_text::parseHexDigit(take("at takes an address"));
            if (!fault_.at) {
                throw Error("at takes an address, 0 to F");
            }
        } else if (word == "for" && !fault_.requestKind) {
            constexpr const char* kUse = "for takes poll, output, discovery, check or config";
            fault_.requestKind = requestKindNamed(take(kUse));
            if (!fault_.requestKind) {
                throw Error(kUse);
            }
        } else {
            throw Error("\"" + word + "\" is not expected here");
        }
    }

    void setTimes(std::optional<unsigned> times) {
        if (timesGiven_) {
            throw Error("once, N times and always exclude each other");
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
            return " " + std::to_string(fault.delay.count());
        case Argument::kCount:
            return " " + std::to_string(fault.count);
        case Argument::kByte:
        case Argument::kBytes:
            return " " + zolt_text::hexBytes(fault.bytes);
        case Argument::kClass:
            break;
    }
    const auto* row = std::find_if(kClasses.begin(), kClasses.end(), [&](const ClassRow& entry) {
        return entry.firstByte == fault.bytes.front();
    });
    return " " + std::string(row->name);
}

}  // namespace

std::string faultName(Fault::Kind kind) {
    return std::string(rowOf(kind).name);
}

std::string faultText(const Fault& fault) {
    std::string text = faultName(fault.kind) + argumentText(fault);
    if (fault.at) {
        text += " at " + zolt_text::hexDigit(*fault.at);
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

}  // namespace zolt_sim
