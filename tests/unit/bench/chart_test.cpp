#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bench/report/bar_chart.h"
#include "bench/report/line_chart.h"
#include "bench/report/pictures.h"
#include "tests/unit/bench/sample_report.h"

namespace bench {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(AxisMarks, AreRoundAndReachTheTop) {
    EXPECT_THAT(axisMarks(3.2), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(axisMarks(10), ElementsAre(0, 2, 4, 6, 8, 10));
    EXPECT_THAT(axisMarks(230), ElementsAre(0, 50, 100, 150, 200, 250));
    EXPECT_THAT(axisMarks(0),
                ElementsAre(0, 0.2, testing::DoubleNear(0.4, 1e-9), testing::DoubleNear(0.6, 1e-9),
                            testing::DoubleNear(0.8, 1e-9), 1));
}

TEST(BarChart, DrawsBarsInProportion) {
    const std::string svg =
        barChart("Both", {{"Figure", 1, {{"one", 10, "#111111"}, {"two", 5, "#222222"}}}});
    EXPECT_THAT(svg, HasSubstr("width=\"202.0\" height=\"17.0\" fill=\"#111111\""));
    EXPECT_THAT(svg, HasSubstr("width=\"101.0\" height=\"17.0\" fill=\"#222222\""));
    EXPECT_THAT(svg, HasSubstr(">10.0</text>"));
    EXPECT_THAT(svg, HasSubstr(">two</text>"));
}

TEST(BarChart, WritesNamesAsText) {
    EXPECT_THAT(barChart("a < b & \"c\"", {}), HasSubstr(">a &lt; b &amp; &quot;c&quot;</text>"));
}

TEST(LineChart, JoinsThePointsOfACurve) {
    const std::string svg =
        draw({"Cost", "cards", "ms", {1, 2}, {{"zolt", "#111111", false, {{0, 0}, {2, 4}}}}});
    // The axes end where the curve does.
    EXPECT_THAT(svg, HasSubstr("<line x1=\"70.0\" y1=\"360.0\" x2=\"690.0\" y2=\"70.0\" "
                               "stroke=\"#111111\""));
    EXPECT_THAT(svg, HasSubstr(">zolt</text>"));
}

TEST(Pictures, AreFilesWithAWhiteGround) {
    const auto all = pictures(sampleReport());
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[0].fileName, "performance-cards.svg");
    EXPECT_EQ(all[1].fileName, "performance-latency.svg");
    EXPECT_EQ(all[2].fileName, "performance-rates.svg");
    EXPECT_EQ(all[3].fileName, "performance-speeds.svg");
    for (const Picture& picture : all) {
        EXPECT_THAT(picture.svg, StartsWith("<svg "));
        EXPECT_THAT(picture.svg, EndsWith("</svg>\n"));
        EXPECT_THAT(picture.svg, HasSubstr("rx=\"8\" fill=\"#ffffff\"/>"));
    }
}

TEST(Pictures, GrowWithTheCardsButForTheGatewayAsShipped) {
    const std::string cards = pictures(sampleReport()).at(0).svg;
    EXPECT_THAT(cards, HasSubstr(">zolt</text>"));
    EXPECT_THAT(cards, HasSubstr(">the wire alone</text>"));
    EXPECT_THAT(cards, Not(HasSubstr(">shipped</text>")));
}

TEST(Pictures, AreNotDrawnOfNothing) {
    EXPECT_TRUE(pictures(Report()).empty());
}

}  // namespace
}  // namespace bench
