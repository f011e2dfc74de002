#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "apps/zolt-sim/bytes.h"

namespace zolt_sim {

/// What a request asks for.
enum class RequestKind { kPoll, kOutput, kDiscovery, kCheck, kConfig, kUnknown };

/// Reads only the first byte. An empty request is kUnknown.
RequestKind requestKind(const Bytes& request);

/// The kind for a word of the controls, such as "poll"; nothing for any other word.
std::optional<RequestKind> requestKindNamed(std::string_view word);
/// The word of the controls for a kind; "unknown" for kUnknown.
std::string_view requestKindName(RequestKind kind);

/// The card that a poll, output or configuration request names in its second byte.
/// Other requests, and a request that ends before that byte, name no card.
std::optional<std::uint8_t> namedCard(const Bytes& request);

}  // namespace zolt_sim
