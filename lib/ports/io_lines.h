#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The lines that a client sends to the IO port, without their line end. An address is an
/// upper-case hexadecimal digit: the daemon takes every other character for 0.
namespace zolt_ports {

/// The longest text and the longest stream that fit into one frame of the bus.
constexpr std::size_t kLcdTextLimit = 31;
constexpr std::size_t kStreamLimit = 34;

/// Sets a block of an output card: "a5b1dFB". REQUIRES: `block` is at most 15.
std::string blockLine(char address, unsigned block, std::uint8_t value);

/// Steers an LCD: "aElCL". The letters are CL (clear), LO and LF (light on and off), CO
/// and CF (cursor on and off), BO and BF (blinking on and off).
std::string lcdLine(char address, std::string_view letters);

/// Writes a text on an LCD: "aElPAp0301tTail of the cat". REQUIRES: the text has at most
/// kLcdTextLimit bytes.
std::string lcdTextLine(char address, std::uint8_t column, std::uint8_t row, std::string_view text);

/// Sends a stream by infrared: "a9sHS434F". REQUIRES: `digits` are 1 to kStreamLimit pairs
/// of upper-case hexadecimal digits.
std::string streamLine(char address, std::string_view digits);

}  // namespace zolt_ports
