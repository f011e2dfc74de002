#include "apps/zolt-sim/trace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zolt_sim {
namespace {

/// The line with '#' in place of each digit of its time.
std::string withoutDigits(std::string line) {
    const auto end =
        line.begin() + static_cast<std::ptrdiff_t>(std::min(line.size(), line.find(' ')));
    std::replace_if(
        line.begin(), end, [](char c) { return c >= '0' && c <= '9'; }, '#');
    return line;
}

TEST(Trace, WritesFramesWithTheirLengthByte) {
    EXPECT_EQ(hostFrameText({0x20, 0x03, 0x02}), "host> 03 | 20 03 02");
    EXPECT_EQ(busFrameText({0x21, 0x03, 0x40, 0x00}), "bus>  04 | 21 03 40 00");
    EXPECT_EQ(hostFrameText({}), "host> 00 |");
}

TEST(Trace, PutsTheTimeInFront) {
    Trace trace;
    std::vector<std::string> lines;
    trace.addSink([&](const std::string& line) { lines.push_back(line); }, true);
    trace.record(Trace::Topic::kOther, "host> 01 | 30");
    trace.note("unplugged");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(withoutDigits(lines[0]), "####.###### host> 01 | 30");
    EXPECT_EQ(withoutDigits(lines[1]), "####.###### note unplugged");
    EXPECT_LE(lines[0].substr(0, 11), lines[1].substr(0, 11));
}

TEST(Trace, FilterHoldsForFilteredSinksOnly) {
    Trace trace;
    std::size_t filtered = 0;
    std::size_t whole = 0;
    trace.addSink([&](const std::string&) { ++filtered; }, true);
    trace.addSink([&](const std::string&) { ++whole; }, false);
    const auto recordBoth = [&] {
        trace.record(Trace::Topic::kPoll, "poll");
        trace.record(Trace::Topic::kOther, "other");
    };
    recordBoth();
    EXPECT_EQ(filtered, 1U);
    trace.setFilter(TraceFilter::kAll);
    recordBoth();
    EXPECT_EQ(filtered, 3U);
    trace.setFilter(TraceFilter::kNone);
    recordBoth();
    EXPECT_EQ(filtered, 3U);
    EXPECT_EQ(whole, 6U);
}

TEST(Trace, FiltersHaveNames) {
    EXPECT_EQ(parseTraceFilter("all"), TraceFilter::kAll);
    EXPECT_EQ(parseTraceFilter("commands"), TraceFilter::kCommands);
    EXPECT_EQ(parseTraceFilter("none"), TraceFilter::kNone);
    EXPECT_EQ(parseTraceFilter("ALL"), std::nullopt);
}

}  // namespace
}  // namespace zolt_sim
