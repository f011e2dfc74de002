#pragma once

#include "common/byte_list.h"

/// What the first byte of a card answer says about it. The serial task acts on
/// the two classes named here and drops the others (2 to 6).
namespace answer_class {
inline constexpr unsigned kUsable = 0;
inline constexpr unsigned kTimeout = 1;
}  // namespace answer_class

/// The class of an answer, 0 to 6; only its first byte is looked at.
unsigned GetQListError(const ByteList& answer);
