// How values appear in findings and settings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/config_document.h"

namespace check {

/// A text of the file in quotation marks, as typed there: backslashes stay,
/// control characters become \xHH, a long text is cut.
std::string inQuotes(std::string_view text);

/// A separator in quotation marks, whole, every character told apart: \r, \n,
/// \t, \\ and \xHH.
std::string shownSeparator(std::string_view separator);

/// "Percent 50", or "Percent "50x" (counts as 50)" where the daemon reads another
/// number than a person does.
std::string asCounted(const std::string& label, const std::string& typed, long number);

/// Why the daemon reads `number` where `typed` stands; empty when a person reads
/// the same.
std::string whyCounted(const std::string& typed, long number);

/// The speed in percent that a pause belongs to, rounded; nothing for the pauses
/// at the limits of 32 bits, which many speeds have.
std::optional<long> percentOfDelay(std::int32_t delay);

/// The microseconds that the daemon sleeps for a pause: its sleep has no sign.
std::uint32_t pauseOf(std::int32_t delay);

/// The same as "2525 microseconds" or "71 minutes".
std::string pauseText(std::int32_t delay);

/// "line 7".
std::string inLine(ConfigPlace place);

}  // namespace check
