#pragma once

#include <string>

/// The decimal number at the start of `text` (leading blanks and a sign
/// allowed, the rest ignored), 0 when there is none. Never throws; saturates at
/// the limits of long.
long ATOL(const std::string& text);

/// The number in decimal.
std::string ITOA(int number);

/// "TRUE" or "FALSE".
std::string BTOA(bool value);

/// True for exactly "True", "true" and "TRUE".
bool ATOB(const std::string& text);

/// `text` as a string. Ends the process for 1000 characters or more (kConversionLimit of
/// byte_list.h).
/// REQUIRES: `text` is zero-terminated.
std::string Convert_CharBuff2String(const char* text);

/// The value of the digit: 0 to 15 for 0-9 and A-F. Every other character gives 0, also a
/// lower-case letter.
char HexCharToByte(char digit);

/// The byte of two hexadecimal digits.
char HexNum2Byte(char high, char low);

/// The byte of a one-digit or two-digit text; further characters are ignored.
/// Ends the process for a text of 5 characters or more.
char Convert_HexStr2Byte(const std::string& digits);
