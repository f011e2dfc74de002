#include "tests/golden/bus_trace.h"

#include <gtest/gtest.h>

namespace golden {
namespace {

std::vector<std::string> read(BusTrace& trace, const std::vector<std::string>& lines) {
    std::vector<std::string> items;
    for (const auto& line : lines) {
        for (const auto& item : trace.read(line)) items.push_back(writeItem(item));
    }
    return items;
}

TEST(BusTrace, FramesAndCardChangesLoseTheirTimes) {
    BusTrace trace(false);
    EXPECT_EQ(read(trace, {"0001.000002 host> 05 | 10 05 02 FF FB",
                           "0001.000003 card E lcd: text at column 3 row 1 \"a  b\"",
                           "0001.000004 bus>  01 | 06", "0001.000005 raw>  FF 00",
                           "0001.000006 note unplugged"}),
              (std::vector<std::string>{"bus    host> 05 | 10 05 02 FF FB",
                                        "card   E lcd: text at column 3 row 1 \"a  b\"",
                                        "bus    bus> 01 | 06", "bus    raw> FF 00"}));
}

TEST(BusTrace, PollsAndTheirAnswersAreLeftOut) {
    BusTrace trace(false);
    EXPECT_EQ(
        read(trace, {"0001.000000 host> 03 | 20 03 02", "0001.000001 raw>  AA",
                     "0001.000002 bus>  04 | 21 03 00 00", "0001.000003 host> 05 | 10 05 02 FF FB",
                     "0001.000004 bus>  01 | 06"}),
        (std::vector<std::string>{"bus    host> 05 | 10 05 02 FF FB", "bus    bus> 01 | 06"}));
}

TEST(BusTrace, ShownPollsCountOncePerCardUntilTheyChange) {
    BusTrace trace(true);
    const std::vector<std::string> round = {
        "0001.000000 host> 03 | 20 03 02", "0001.000001 bus>  04 | 21 03 00 00",
        "0001.000002 host> 03 | 20 08 01", "0001.000003 bus>  03 | 21 08 00"};
    EXPECT_EQ(read(trace, round), (std::vector<std::string>{
                                      "bus    host> 03 | 20 03 02", "bus    bus> 04 | 21 03 00 00",
                                      "bus    host> 03 | 20 08 01", "bus    bus> 03 | 21 08 00"}));
    EXPECT_EQ(read(trace, round), std::vector<std::string>());
    EXPECT_EQ(
        read(trace, {"0001.000000 host> 03 | 20 03 02", "0001.000001 bus>  04 | 21 03 40 00"}),
        (std::vector<std::string>{"bus    host> 03 | 20 03 02", "bus    bus> 04 | 21 03 40 00"}));
}

TEST(BusTrace, ShownPollWithoutAnswerIsKnownAtTheNextRequest) {
    BusTrace trace(true);
    EXPECT_EQ(read(trace, {"0001.000000 host> 03 | 20 03 02"}), std::vector<std::string>());
    EXPECT_EQ(
        read(trace, {"0001.100000 host> 03 | 40 6F 9A"}),
        (std::vector<std::string>{"bus    host> 03 | 20 03 02", "bus    host> 03 | 40 6F 9A"}));
}

}  // namespace
}  // namespace golden
