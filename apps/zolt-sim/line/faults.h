// Faults that are made on purpose: what goes wrong with an answer, and how often.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/zolt-sim/cards/request.h"
#include "apps/zolt-sim/text.h"

namespace sim {

struct Fault {
    enum class Kind {
        kSilence,   // no answer
        kDelay,     // `number` milliseconds later than usual
        kNoise,     // `bytes` before the answer
        kTruncate,  // the last `number` bytes are missing
        kOversize,  // `number` more bytes, counted by the length byte
        kLength,    // `bytes[0]` as length byte
        kAddress,   // `bytes[0]` as second payload byte
        kClass,     // `bytes[0]` as first payload byte
        kAnswer,    // `bytes` as payload
        kRaw        // `bytes` on the line, without a frame around them
    };
    Kind kind = Kind::kSilence;
    unsigned number = 0;
    Bytes bytes;
    std::optional<std::uint8_t> at;          // only requests that name this card
    std::optional<RequestKind> requestKind;  // only requests of this kind
    std::optional<unsigned> times = 1;       // strikes left; nothing: without end
};

// What goes onto the line for one request.
struct LineOutput {
    Bytes bytes;                          // nothing: silence
    std::chrono::milliseconds delay{0};   // on top of the time that the wire takes
    bool faulty = false;                  // not the frame that the bus meant to send
    std::optional<Fault::Kind> struckBy;  // the fault that struck, if any
};

// The word for a kind in controls, and the text after "fault" that makes this fault.
std::string faultName(Fault::Kind kind);
std::string faultText(const Fault& fault);

// Reads the words after "fault"; throws std::invalid_argument with the reason.
Fault parseFault(const std::vector<std::string>& words);

// The faults that wait to strike. Not thread-safe: the owner locks.
class FaultList {
  public:
    void add(Fault fault) { faults_.push_back(std::move(fault)); }
    void clear() { faults_.clear(); }

    // One line per fault, oldest first.
    std::vector<std::string> describe() const;

    // Frames the answer and lets the oldest fault that fits strike it. At most one
    // fault strikes; one that would change nothing (such as truncating an answer
    // that is not given at all) waits for the next request.
    LineOutput apply(const Bytes& request, const std::optional<Bytes>& answer);

  private:
    std::vector<Fault> faults_;
};

}  // namespace sim
