#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zolt_ports {

/// The value of one block of an input card, "a3b0d40" on the IO port. A report says what
/// the state is: the same state may be reported again.
struct Report {
    char address;  ///< an upper-case hexadecimal digit
    unsigned block;
    std::uint8_t value;
};

/// Nothing if the line is no report. Bytes after the report are ignored unless they
/// continue its number: they may be a separator that is not known here.
std::optional<Report> parseReport(std::string_view line);

}  // namespace zolt_ports
