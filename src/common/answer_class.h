#pragma once

#include <cstdint>

#include "common/byte_list.h"

/// What the first byte of a card answer says about the answer. The serial task acts on the
/// first two classes and drops the answers of all others.
enum class AnswerClass : std::uint32_t {
    kUsable = 0,      ///< any first byte that is none of the below
    kTimeout = 1,     ///< 'T', as in the answer that the host makes when none came
    kControl = 2,     ///< the control character 0x12
    kMark = 3,        ///< '#' or '$'
    kRefusal = 4,     ///< 'N'
    kEmpty = 5,       ///< no byte at all
    kLetterBOrC = 6,  ///< 'B' or 'C'
};

/// The class of an answer; only the answer's first byte is looked at.
AnswerClass GetQListError(const ByteList& answer);
