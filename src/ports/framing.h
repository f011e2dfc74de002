#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "common/byte_list.h"

/// The way in which byte lists travel on a client connection.
enum class FramingMode : std::int32_t {
    kBinary = 1,  ///< a length byte, then that many bytes
    kText = 2,    ///< the bytes; a carriage return follows each item that is sent
};

/// Turns what a connection carries into items, and back.
namespace framing {

/// The most bytes taken from a client in one read, and so in one item.
inline constexpr std::size_t kReadSize = 255;

/// What a client sent in one read, as one item. Text ends at the first 0 byte.
/// REQUIRES: `buffer` holds kReadSize + 1 bytes, zeros after what was read.
ByteList received(FramingMode mode, const char* buffer);

/// The bytes on the wire for one item.
std::string toSend(FramingMode mode, const ByteList& item);

}  // namespace framing
