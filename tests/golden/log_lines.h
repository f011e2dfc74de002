#pragma once

#include <string>

#include "tests/golden/item.h"

namespace golden {

/// Makes an item of a line of the daemon's log file: cuts the time stamp off and masks the port
/// number of a client. A line without a proper time stamp is kept whole, so that it shows.
Item logItem(const std::string& line);

/// Names the thread of the daemon that writes this text. Lines of one source come in a fixed
/// order, lines of different sources in any order. The line about the opened socket of an
/// interface counts as the main thread's, because the interface's own thread may already be
/// reporting that it waits.
std::string logSource(const std::string& text);

/// Returns a key that is the same for items that come in a fixed order: those of one channel,
/// or of one source of the log.
std::string channelKey(const Item& item);

/// Returns true for the log line about an answer that the daemon gave up.
bool isTimeout(const Item& item);

/// Returns true for an item that the serial link or an interface may or may not produce while
/// the daemon is being stopped, depending on what the signal interrupted.
bool isShutdownNoise(const Item& item);

}  // namespace golden
