#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/zolt-sim/bytes.h"
#include "apps/zolt-sim/cards/request.h"
#include "apps/zolt-sim/words.h"

namespace zolt_sim {

/// One fault made on purpose: what goes wrong with an answer, and how often.
struct Fault {
    enum class Kind {
        kSilence,   ///< no answer
        kDelay,     ///< the answer comes later by `delay`
        kNoise,     ///< `bytes` before the answer
        kTruncate,  ///< the last `count` bytes are missing
        kOversize,  ///< `count` more bytes, which the length byte includes
        kLength,    ///< `bytes[0]` as length byte
        kAddress,   ///< `bytes[0]` as second byte of the payload
        kClass,     ///< `bytes[0]` as first byte of the payload
        kAnswer,    ///< `bytes` as payload
        kRaw        ///< `bytes` on the wire, without a frame around them
    };
    Kind kind = Kind::kSilence;
    std::chrono::milliseconds delay{0};
    unsigned count = 0;
    Bytes bytes;
    /// The fault is for requests that name this card alone.
    std::optional<std::uint8_t> at;
    /// The fault is for requests of this kind alone.
    std::optional<RequestKind> requestKind;
    /// How many strikes are left; nothing if there is no end.
    std::optional<unsigned> times = 1;
};

/// What goes onto the wire for one request.
struct WireOutput {
    /// Empty for silence.
    Bytes bytes;
    /// Added to the time that the wire takes.
    std::chrono::milliseconds delay{0};
    /// Whether `bytes` differ from the frame that the bus meant to send.
    bool faulty = false;
    /// The fault that struck, if any.
    std::optional<Fault::Kind> struckBy;
};

/// The word for a kind of fault in controls.
std::string faultName(Fault::Kind kind);
/// The words that make this fault when they follow "fault".
std::string faultText(const Fault& fault);

/// Reads the words after "fault". Throws Error with the reason.
Fault parseFault(const Words& words);

/// The faults that wait to strike. The list has no lock; the owner calls it from one
/// thread at a time.
class FaultList {
  public:
    void add(Fault fault) { faults_.push_back(std::move(fault)); }
    void clear() { faults_.clear(); }

    /// One line per fault, oldest first.
    std::vector<std::string> describe() const;

    /// Puts a frame around the answer and lets the oldest fault that fits strike it. At
    /// most one fault strikes. A fault that would change nothing, such as the truncation
    /// of an answer that is not given, waits for the next request.
    WireOutput apply(const Bytes& request, const std::optional<Bytes>& answer);

  private:
    std::vector<Fault> faults_;
};

}  // namespace zolt_sim
