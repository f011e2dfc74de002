#pragma once

#include <array>
#include <string>
#include <vector>

namespace bench {

/// The numbers of polled cards for which full scans are counted, and those for which the
/// table has the shares of the wire's limit and of the bare loop.
inline constexpr std::array kCards{1U, 2U, 4U, 8U, 12U, 16U};
inline constexpr std::array kShareCards{1U, 8U, 16U};
inline constexpr std::array kSpeeds{1, 10, 25, 50, 75, 90, 99, 100};
inline constexpr std::array kRestSpeeds{"default", "full"};
inline constexpr std::array kRestBuses{"none", "empty", "sixteen"};

/// One row of the table: the key of its values, and how they are shown.
struct Figure {
    std::string key;
    std::string text;
    std::string unit;
    int digits = 0;
    /// Whether the figure counts events of the whole run, so that rounds are added up.
    bool total = false;
};

struct Section {
    std::string title;
    std::vector<Figure> figures;
};

/// The rows of the table in its order, without those of the speeds.
std::vector<Section> sections();

/// The key of full scans a second with `cards` polled cards.
std::string scansKey(unsigned cards);
/// The key of one figure of a speed: `what` is "scans", "p50" or "cpu".
std::string speedKey(int percent, const std::string& what);

}  // namespace bench
