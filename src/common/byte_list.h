#pragma once

#include <list>
#include <string>

/// The byte list: the one shape in which frames, command chunks, replies and
/// reports cross the queues between threads. Elements are signed chars, a 0 is
/// an ordinary element, and the size is the only length there is. It is passed
/// by value, so no function changes its caller's list.
using ByteList = std::list<char>;

/// Texts and lists of this many characters or more end the process in the
/// conversions below that say so: nothing in the daemon gets near it, so one
/// that does is a corrupted one.
inline constexpr std::size_t kConversionLimit = 1000;

/// The characters of `text` in order. The first is taken even when it is 0 or
/// missing, so an empty text gives a list of one 0 byte; after it the first 0
/// ends the list. Ends the process at kConversionLimit characters.
ByteList Convert_String2QList(const std::string& text);

/// The characters of a zero-terminated text without the terminator; an empty
/// text gives an empty list.
ByteList Convert_CharBuff2QList(const char* text);

/// The bytes of a buffer that begins with a signed count byte and holds that
/// many bytes behind it; a count of 0x80 or more is negative and gives an
/// empty list.
ByteList Convert_BinBuff2QList(const char* buffer);

/// The bytes up to the first 0. Ends the process for a list of kConversionLimit
/// bytes or more, wherever its first 0 is.
std::string Convert_QList2String(const ByteList& list);

/// Writes list.size() bytes to `buffer`: no count, no terminator. The caller
/// provides the room.
void Convert_QList2BinBuff(const ByteList& list, char* buffer);
