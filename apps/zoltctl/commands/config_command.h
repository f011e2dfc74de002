#pragma once

#include <nlohmann/json_fwd.hpp>
#include <span>

#include "apps/zoltctl/output/output.h"
#include "lib/ports/card_config.h"

namespace zoltctl {

/// A card configuration command in readable words.
struct ConfigForm {
    const char* pattern;  ///< as in phrase.h
    const char* name;     ///< what the JSON calls it
    zolt_ports::CardConfig command;
    const char* text;  ///< the result for people, for zolt_ports::filledIn()
};

std::span<const ConfigForm> configForms();

Json configJson(const ConfigForm& form, const zolt_ports::CardFields& fields);

}  // namespace zoltctl
