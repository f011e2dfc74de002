#pragma once

#include <string>

#include "apps/zoltctl/failure.h"

/// What a call fails with, "STATUS TEXT"; "none" when it does not fail.
template <typename Call>
std::string failureOf(Call call) {
    try {
        call();
    } catch (const ctl::Failure& failure) {
        return std::to_string(static_cast<int>(failure.status())) + " " + failure.what();
    }
    return "none";
}
