// Arguments of commands. What the daemon would silently misread is a Failure of
// status kUsage here, before anything is sent.
#pragma once

#include <string>

#include "ctl/deadline.h"

namespace ctl {

/// One digit 0 to F, as the daemon wants it: in upper case.
char parseAddress(const std::string& text);

/// The block of a card, one digit 0 to F in upper case.
char parseBlock(const std::string& text);

/// Hexadecimal pairs of an IR stream, in upper case.
std::string parseStream(const std::string& text);

/// "on" or "off".
bool parseSwitch(const std::string& text);

/// Percent, 1 to 3 digits; the daemon judges the range.
std::string parsePercent(const std::string& text);

/// How long or how much a command that goes on shows; without them it does until
/// it is interrupted.
Seconds parseDuration(const std::string& text);
unsigned parseCount(const std::string& text);

}  // namespace ctl
