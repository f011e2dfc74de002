#pragma once

#include <cstddef>
#include <string>

#include "common/byte_list.h"

/// How byte lists travel on a client connection.
namespace framing {

inline constexpr int kBinary = 1;  ///< a length byte, then that many bytes
inline constexpr int kText = 2;    ///< bytes; a carriage return behind each item sent

/// The most bytes taken from a client in one read, and so in one item.
inline constexpr std::size_t kReadSize = 255;

/// What a client sent in one read, as one item. `buffer` holds kReadSize + 1
/// bytes, zeros behind what was read. Text ends at the first 0 byte.
ByteList received(int mode, const char* buffer);

/// The bytes on the wire for one item.
std::string toSend(int mode, const ByteList& item);

}  // namespace framing
