#pragma once

#include <string>
#include <vector>

namespace bench {

struct Bar {
    std::string label;
    double value = 0;
    std::string colour;
};

/// One figure: a bar for each contestant, on a scale of its own that begins at 0.
struct BarPanel {
    std::string title;
    /// Digits behind the point of the values that stand at the bars.
    int digits = 0;
    std::vector<Bar> bars;
};

/// The panels in two columns below a heading, as an SVG file.
std::string barChart(const std::string& heading, const std::vector<BarPanel>& panels);

}  // namespace bench
