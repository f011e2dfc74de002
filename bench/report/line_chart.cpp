#include "bench/report/line_chart.h"

#include <algorithm>
#include <cmath>

#include "bench/report/number_text.h"
#include "bench/report/svg.h"

namespace bench {
namespace {

constexpr double kHeight = 420;
constexpr double kLeft = 70;
constexpr double kRight = 690;
constexpr double kTop = 70;
constexpr double kBottom = 360;
constexpr const char* kGrid = "#d9dfe6";
constexpr double kLegendStep = 24;

// From values to points on the picture.
struct Scale {
    double mostX = 1;
    double mostY = 1;
    double x(double value) const { return kLeft + (kRight - kLeft) * value / mostX; }
    double y(double value) const { return kBottom - (kBottom - kTop) * value / mostY; }
};

int digitsFor(double step) {
    return step >= 1 ? 0 : static_cast<int>(std::ceil(-std::log10(step)));
}

void drawAxes(Svg& svg, const LineChart& chart, const Scale& scale,
              const std::vector<double>& yMarks) {
    const int digits = digitsFor(yMarks[1]);
    for (const double mark : yMarks) {
        svg.line(kLeft, scale.y(mark), kRight, scale.y(mark), kGrid, 1);
        svg.text(kLeft - 8, scale.y(mark) + 4, numberText(mark, digits), Svg::Anchor::kEnd, {12});
    }
    for (const double mark : chart.xMarks) {
        svg.text(scale.x(mark), kBottom + 20, numberText(mark, 0), Svg::Anchor::kMiddle, {12});
    }
    svg.text(kLeft, kTop - 12, chart.yTitle, Svg::Anchor::kStart, {12});
    svg.text((kLeft + kRight) / 2, kBottom + 44, chart.xTitle, Svg::Anchor::kMiddle, {12});
}

void drawCurve(Svg& svg, const Curve& curve, const Scale& scale) {
    constexpr double kThickness = 2.2;
    for (std::size_t i = 1; i < curve.points.size(); ++i) {
        const auto& [x1, y1] = curve.points[i - 1];
        const auto& [x2, y2] = curve.points[i];
        svg.line(scale.x(x1), scale.y(y1), scale.x(x2), scale.y(y2), curve.colour, kThickness,
                 curve.dashed);
    }
    if (curve.dashed) return;
    for (const auto& [x, y] : curve.points) svg.dot(scale.x(x), scale.y(y), 3.2, curve.colour);
}

}  // namespace

std::vector<double> axisMarks(double most) {
    if (!(most > 0)) most = 1;
    constexpr double kAbout = 5;
    const double power = std::pow(10, std::floor(std::log10(most / kAbout)));
    double step = power;
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        step = factor * power;
        if (step * kAbout >= most) break;
    }
    std::vector<double> marks{0};
    // A hair less, so that a rounded sum is not taken for too little.
    while (marks.back() < most * (1 - 1e-9)) {
        marks.push_back(step * static_cast<double>(marks.size()));
    }
    return marks;
}

std::string draw(const LineChart& chart) {
    Scale scale;
    for (const double mark : chart.xMarks) scale.mostX = std::max(scale.mostX, mark);
    double most = 0;
    for (const Curve& curve : chart.curves) {
        for (const auto& point : curve.points) most = std::max(most, point.second);
    }
    const auto yMarks = axisMarks(most);
    scale.mostY = yMarks.back();

    Svg svg(Svg::kUsualWidth, kHeight);
    svg.text(24, 32, chart.heading, Svg::Anchor::kStart, {16, true});
    drawAxes(svg, chart, scale, yMarks);
    double legend = kTop + 10;
    for (const Curve& curve : chart.curves) {
        drawCurve(svg, curve, scale);
        svg.line(kRight + 20, legend, kRight + 48, legend, curve.colour, 3, curve.dashed);
        svg.text(kRight + 56, legend + 4, curve.label, Svg::Anchor::kStart, {12});
        legend += kLegendStep;
    }
    return svg.finish();
}

}  // namespace bench
