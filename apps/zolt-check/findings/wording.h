#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "apps/zolt-check/document/config_place.h"

namespace zolt_check {

/// How values appear in findings and settings.

/// A separator of any length in quotation marks, with every byte readable: \r, \n,
/// \t, \\ and \xHH.
std::string shownSeparator(std::string_view separator);

/// "Percent 50", or "Percent "50x" (counts as 50)" if the daemon reads another number
/// than a person does.
std::string asCounted(const std::string& label, const std::string& typed, long number);

/// The reason why the daemon reads `typed` as `number`; empty if a person reads the
/// same number.
std::string whyCounted(const std::string& typed, long number);

/// The speed in percent that results in the pause `delay`, rounded; nothing for the two
/// pauses at the limits of 32 bits, which many speeds share. `delay` is in microseconds
/// here and below.
std::optional<long> percentOfDelay(std::int32_t delay);

/// The microseconds that the daemon really sleeps: its sleep takes the pause as a
/// number without a sign.
std::uint32_t pauseOf(std::int32_t delay);

/// The result of pauseOf() as "2525 microseconds" or "71 minutes".
std::string pauseText(std::int32_t delay);

/// "line 7".
std::string inLine(ConfigPlace place);

}  // namespace zolt_check
