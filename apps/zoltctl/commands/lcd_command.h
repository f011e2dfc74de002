#pragma once

#include <span>

#include "apps/zoltctl/arguments/parameters.h"
#include "apps/zoltctl/arguments/settings.h"

namespace zoltctl {

/// What "lcd" can do.
struct LcdForm {
    const char* pattern;  ///< as in phrase.h
    const char* action;   ///< what the JSON calls it
    const char* text;     ///< the result for people, for zolt_ports::filledIn()
    const char* letters;  ///< of the IO command, as in zolt_ports::lcdLine(); null for a text
    const char* off;      ///< the letters that switch off; null if nothing is switched
    void (*run)(const Settings& settings, const Fields& fields, const LcdForm& form);
};

std::span<const LcdForm> lcdForms();

}  // namespace zoltctl
