#pragma once

#include <string>

#include "apps/zolt-sim/error.h"

namespace zolt_sim {

/// The message of the Error that `call` throws; empty if it throws none.
template <typename Call>
std::string complaintOf(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

}  // namespace zolt_sim
