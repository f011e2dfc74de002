#pragma once

#include <string>

#include "tests/golden/item.h"

namespace golden {

/// A line of the daemon's log file as an item: the time stamp is cut off (a line
/// without a proper one is kept whole, so that it shows) and the client's port
/// number is masked.
Item logItem(const std::string& line);

/// Which of the daemon's threads writes this text. Lines of one source come in a
/// fixed order, lines of different sources in any. What an interface says when
/// its socket is opened counts as the main thread's, because the interface's own
/// thread may already be announcing that it waits.
std::string logSource(const std::string& text);

/// Items with the same key come in a fixed order: those of one channel, of the
/// log those of one source.
std::string channelKey(const Item& item);

/// True for the log line about an answer that the daemon gave up.
bool isTimeout(const Item& item);

/// True for what the serial link and the interfaces may still say while the
/// daemon is being stopped, depending on what the signal interrupted.
bool isShutdownNoise(const Item& item);

}  // namespace golden
