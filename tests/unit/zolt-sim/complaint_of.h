#pragma once

#include <string>

namespace sim {

/// What a call complains of with an Error; empty when it does not.
template <typename Error, typename Call>
std::string complaintOf(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

}  // namespace sim
