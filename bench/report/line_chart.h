#pragma once

#include <string>
#include <utility>
#include <vector>

namespace bench {

struct Curve {
    std::string label;
    std::string colour;
    bool dashed = false;
    /// In ascending order of x.
    std::vector<std::pair<double, double>> points;
};

struct LineChart {
    std::string heading;
    std::string xTitle;
    std::string yTitle;
    /// Where the x axis is labelled.
    std::vector<double> xMarks;
    std::vector<Curve> curves;
};

/// The chart as an SVG file; both axes begin at 0.
std::string draw(const LineChart& chart);

/// Marks of an axis from 0 to at least `most`, in steps of 1, 2 or 5 times a power
/// of ten, about five of them.
std::vector<double> axisMarks(double most);

}  // namespace bench
