#pragma once

#include <array>
#include <string>
#include <vector>

namespace bench {

/// How many cards are polled when full scans are counted, and for which of these
/// counts their shares are told.
inline constexpr std::array kCards{1U, 2U, 4U, 8U, 12U, 16U};
inline constexpr std::array kShareCards{1U, 8U, 16U};
inline constexpr std::array kSpeeds{1, 10, 25, 50, 75, 90, 99, 100};
inline constexpr std::array kRestSpeeds{"default", "full"};
inline constexpr std::array kRestBuses{"none", "empty", "sixteen"};

/// One row of the table: the key of its values, and how they are told.
struct Figure {
    std::string key;
    std::string text;
    std::string unit;
    int digits = 0;
    /// Whether it counts events of the whole run, so that rounds are added up.
    bool total = false;
};

struct Section {
    std::string title;
    std::vector<Figure> figures;
};

/// The rows of the table, in its order; without those of the speeds.
std::vector<Section> sections();

/// The key of full scans a second with so many polled cards.
std::string scansKey(unsigned cards);
/// The keys of one speed: "scans", "p50" and "cpu".
std::string speedKey(int percent, const std::string& what);

}  // namespace bench
