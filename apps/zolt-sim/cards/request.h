// What a request asks for and of whom, read from its first bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "apps/zolt-sim/text.h"

namespace sim {

enum class RequestKind { kPoll, kOutput, kDiscovery, kCheck, kConfig, kUnknown };

// By the first byte alone; an empty request is kUnknown.
RequestKind requestKind(const Bytes& request);

// The word used in controls ("poll"), or nothing for a word that names no kind.
std::optional<RequestKind> requestKindNamed(std::string_view word);
std::string_view requestKindName(RequestKind kind);

// The card that a poll, output or configuration request names in its second
// byte; nothing for the other requests and for one that ends before it.
std::optional<std::uint8_t> namedCard(const Bytes& request);

}  // namespace sim
