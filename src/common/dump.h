#pragma once

#include <cstddef>

#include "common/byte_list.h"

/// These functions dump bytes to standard output, for tracing. Each byte is one item: the character
/// ("." for control characters and bytes from 128 on), ":", the unsigned value
/// in decimal, "|". Calls from several threads may interleave.

/// "Buffer content: " and `count` items.
/// REQUIRES: `buffer` holds `count` bytes.
void PrintBuffer(const char* buffer, std::size_t count);

/// The label, " Buffer content: " and `count` items.
/// REQUIRES: `buffer` holds `count` bytes, and `label` is zero-terminated.
void PrintBufferID(const char* buffer, std::size_t count, const char* label);

/// "List size: ", the number of elements, "\nContent: " and the items.
void PrintQList(const ByteList& list);
