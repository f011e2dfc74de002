#pragma once

#include <span>
#include <string>

#include "apps/zoltctl/arguments/settings.h"

namespace zoltctl {

/// Where "raw" sends a line.
struct RawForm {
    const char* pattern;  ///< as in phrase.h
    void (*send)(const Settings& settings, const std::string& line);
};

std::span<const RawForm> rawForms();

}  // namespace zoltctl
