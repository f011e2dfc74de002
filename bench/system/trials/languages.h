#pragma once

#include "bench/system/trials/command_sender.h"

namespace bench {

/// A client of the daemon sends a line of text and hears nothing back.
CommandSender::Language daemonLanguage();

/// A client of a gateway sends the frame of the bus and hears the card's answer.
CommandSender::Language gatewayLanguage();

}  // namespace bench
