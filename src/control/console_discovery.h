#pragma once

#include "control/console.h"
#include "control/console_line.h"

/// "DISCOVER": lists what was identified last; nothing goes to the bus.
bool showCards(Console& console, const ConsoleLine& line);

/// "FORCEDISCOVER": forgets all cards, asks the bus anew and lists what has
/// answered by then. Blocks for two seconds.
bool rediscoverCards(Console& console, const ConsoleLine& line);
