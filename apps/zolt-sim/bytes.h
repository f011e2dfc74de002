#pragma once

#include <cstdint>
#include <vector>

namespace zolt_sim {

using Bytes = std::vector<std::uint8_t>;

}  // namespace zolt_sim
