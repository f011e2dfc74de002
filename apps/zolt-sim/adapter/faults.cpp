#include "apps/zolt-sim/adapter/faults.h"

#include <algorithm>

#include "apps/zolt-sim/cards/wire.h"

namespace zolt_sim {
namespace {

constexpr std::uint8_t kExtraByte = 0xEE;

Bytes frame(const Bytes& payload) {
    Bytes bytes{static_cast<std::uint8_t>(payload.size())};
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

/// The payload, made at least `index` + 1 bytes long, with `value` at `index`.
Bytes withByte(Bytes payload, std::size_t index, std::uint8_t value) {
    payload.resize(std::max(payload.size(), index + 1));
    payload[index] = value;
    return payload;
}

/// Whether the fault changes nothing when the bus gives no answer.
bool needsAnswer(Fault::Kind kind) {
    switch (kind) {
        case Fault::Kind::kNoise:
        case Fault::Kind::kClass:
        case Fault::Kind::kAnswer:
        case Fault::Kind::kRaw:
            return false;
        default:
            return true;
    }
}

bool fits(const Fault& fault, const Bytes& request, bool hasAnswer) {
    return (!fault.at || fault.at == namedCard(request)) &&
           (!fault.requestKind || fault.requestKind == requestKind(request)) &&
           (hasAnswer || !needsAnswer(fault.kind));
}

/// The bytes on the wire in place of the frame around `answer`.
Bytes struck(const Fault& fault, const std::optional<Bytes>& answer) {
    const Bytes payload = answer.value_or(Bytes{});
    Bytes bytes = answer ? frame(payload) : Bytes{};
    switch (fault.kind) {
        case Fault::Kind::kSilence:
            return {};
        case Fault::Kind::kDelay:
            return bytes;
        case Fault::Kind::kNoise:
            bytes.insert(bytes.begin(), fault.bytes.begin(), fault.bytes.end());
            return bytes;
        case Fault::Kind::kTruncate:
            bytes.resize(bytes.size() - std::min<std::size_t>(bytes.size(), fault.count));
            return bytes;
        case Fault::Kind::kOversize: {
            Bytes longer = payload;
            longer.resize(std::min(payload.size() + fault.count, wire::kLongestPayload),
                          kExtraByte);
            return frame(longer);
        }
        case Fault::Kind::kLength:
            bytes.front() = fault.bytes.front();
            return bytes;
        case Fault::Kind::kAddress:
            return frame(withByte(payload, 1, fault.bytes.front()));
        case Fault::Kind::kClass:
            return frame(withByte(payload, 0, fault.bytes.front()));
        case Fault::Kind::kAnswer:
            return frame(fault.bytes);
        case Fault::Kind::kRaw:
            break;
    }
    return fault.bytes;
}

}  // namespace

std::vector<std::string> FaultList::describe() const {
    std::vector<std::string> lines;
    for (const Fault& fault : faults_) {
        lines.push_back(faultText(fault));
    }
    return lines;
}

WireOutput FaultList::apply(const Bytes& request, const std::optional<Bytes>& answer) {
    const auto fault = std::find_if(faults_.begin(), faults_.end(), [&](const Fault& entry) {
        return fits(entry, request, answer.has_value());
    });
    WireOutput output;
    if (fault == faults_.end()) {
        output.bytes = answer ? frame(*answer) : Bytes{};
        return output;
    }
    output.bytes = struck(*fault, answer);
    output.struckBy = fault->kind;
    if (fault->kind == Fault::Kind::kDelay) {
        output.delay = fault->delay;
    } else {
        output.faulty = true;
    }
    if (fault->times && --*fault->times == 0) {
        faults_.erase(fault);
    }
    return output;
}

}  // namespace zolt_sim
