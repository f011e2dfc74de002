#pragma once

#include <string>

#include "apps/zoltctl/failure.h"

/// "STATUS TEXT" of the failure that a call throws; "none" if it throws none.
template <typename Call>
std::string failureOf(Call call) {
    try {
        call();
    } catch (const zoltctl::Failure& failure) {
        return std::to_string(static_cast<int>(failure.status())) + " " + failure.what();
    }
    return "none";
}
