#pragma once

#include <optional>
#include <span>
#include <string>

#include "apps/zoltctl/arguments/settings.h"

namespace zoltctl {

/// An option of every command that takes a value.
struct OptionRow {
    const char* name;
    const char* variable;  ///< the environment variable with the same effect
    const char* value;
    const char* purpose;
    std::optional<std::string> GivenSettings::*given;
};

/// The options, in the order in which --help shows them.
std::span<const OptionRow> optionRows();

}  // namespace zoltctl
