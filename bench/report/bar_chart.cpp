#include "bench/report/bar_chart.h"

#include <algorithm>

#include "bench/report/number_text.h"
#include "bench/report/svg.h"

namespace bench {
namespace {

constexpr double kMargin = 24;
constexpr double kHeading = 52;
constexpr double kPanelWidth = Svg::kUsualWidth / 2 - kMargin;
constexpr double kTitle = 26;
constexpr double kBar = 22;
constexpr double kGap = 22;
constexpr double kLabels = 140;
constexpr double kValues = 70;

double heightOf(const BarPanel& panel) {
    return kTitle + kBar * static_cast<double>(panel.bars.size()) + kGap;
}

void drawPanel(Svg& svg, const BarPanel& panel, double left, double top) {
    double most = 0;
    for (const Bar& bar : panel.bars) most = std::max(most, bar.value);
    svg.text(left, top + 14, panel.title, Svg::Anchor::kStart, {13, true});
    double y = top + kTitle;
    const double room = kPanelWidth - kMargin - kLabels - kValues;
    for (const Bar& bar : panel.bars) {
        const double length = most > 0 ? room * bar.value / most : 0;
        svg.text(left + kLabels - 8, y + 13, bar.label, Svg::Anchor::kEnd, {12});
        svg.rectangle(left + kLabels, y, std::max(length, 1.0), kBar - 5, bar.colour);
        svg.text(left + kLabels + length + 6, y + 13, numberText(bar.value, panel.digits),
                 Svg::Anchor::kStart, {12});
        y += kBar;
    }
}

}  // namespace

std::string barChart(const std::string& heading, const std::vector<BarPanel>& panels) {
    // Row by row, each as high as the higher of its two panels.
    double height = kHeading;
    for (std::size_t i = 0; i < panels.size(); i += 2) {
        height += i + 1 < panels.size() ? std::max(heightOf(panels[i]), heightOf(panels[i + 1]))
                                        : heightOf(panels[i]);
    }
    Svg svg(Svg::kUsualWidth, height);
    svg.text(kMargin, 32, heading, Svg::Anchor::kStart, {16, true});
    double top = kHeading;
    for (std::size_t i = 0; i < panels.size(); i += 2) {
        double row = heightOf(panels[i]);
        drawPanel(svg, panels[i], kMargin, top);
        if (i + 1 < panels.size()) {
            drawPanel(svg, panels[i + 1], kMargin + kPanelWidth, top);
            row = std::max(row, heightOf(panels[i + 1]));
        }
        top += row;
    }
    return svg.finish();
}

}  // namespace bench
