#pragma once

#include <string>

#include "lib/ports/port_error.h"

/// The text of the error that a call throws; "none" if it throws none, and "another
/// reason: " before the text if the reason is not the expected one.
template <typename Call>
std::string errorOf(zolt_ports::Reason expected, Call call) {
    try {
        call();
    } catch (const zolt_ports::PortError& error) {
        return (error.reason() == expected ? "" : "another reason: ") + std::string(error.what());
    }
    return "none";
}
