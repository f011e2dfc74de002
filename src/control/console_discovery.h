#pragma once

#include "control/console_context.h"
#include "control/console_line.h"

/// "DISCOVER": lists what was identified last; nothing goes to the bus.
void showCards(ConsoleContext& console, const ConsoleLine& line);

/// "FORCEDISCOVER": forgets all cards, asks the bus anew and lists what has
/// answered by then. Blocks for two seconds.
void rediscoverCards(ConsoleContext& console, const ConsoleLine& line);
