#pragma once

#include <optional>
#include <string>

#include "apps/zoltctl/arguments/settings.h"
#include "lib/ports/card_kind.h"

namespace zoltctl {

/// A line for the IO port and the card that it is for.
struct OutputLine {
    zolt_ports::OutputCommand command;
    char address;
    std::string line;
    /// The block that is set; nothing if none is.
    std::optional<unsigned> block = std::nullopt;
};

/// Delivers the line. Unless --no-check is given, the console is asked first whether the
/// card takes the command, and afterwards whether the daemon has refused the line. Throws
/// Failure or zolt_ports::PortError.
void sendChecked(const Settings& settings, const OutputLine& output);

/// " (unchecked)" with --no-check: it is then not known whether the daemon and the card
/// took the command.
const char* uncheckedNote(const Settings& settings);

}  // namespace zoltctl
