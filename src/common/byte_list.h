#pragma once

#include <list>
#include <string>

/// The byte list: the one shape in which frames, command chunks, replies and
/// reports cross the queues between threads. Elements are signed chars, a 0 is
/// an ordinary element, and the size is the only length there is. It is passed
/// by value, so no function changes its caller's list.
using ByteList = std::list<char>;

/// The conversions below that say so end the process for a text or a list of this many
/// characters or more. No text of the daemon gets near this length, so one that does is
/// corrupted.
inline constexpr std::size_t kConversionLimit = 1000;

/// The characters of `text` in order. The first is taken even when it is 0 or
/// missing, so an empty text gives a list of one 0 byte; after it the first 0
/// ends the list. Ends the process at kConversionLimit characters.
ByteList Convert_String2QList(const std::string& text);

/// The characters of `text` without the terminator; an empty text gives an empty list.
/// REQUIRES: `text` is zero-terminated.
ByteList Convert_CharBuff2QList(const char* text);

/// The bytes that follow the count byte of `buffer`. The count byte is signed: 0x80 or
/// more is negative and gives an empty list.
/// REQUIRES: `buffer` holds the count byte and as many bytes as that counts.
ByteList Convert_BinBuff2QList(const char* buffer);

/// The bytes up to the first 0. Ends the process for a list of kConversionLimit
/// bytes or more, wherever its first 0 is.
std::string Convert_QList2String(const ByteList& list);

/// Writes list.size() bytes to `buffer`, without a count and without a terminator.
/// REQUIRES: `buffer` has room for them.
void Convert_QList2BinBuff(const ByteList& list, char* buffer);
