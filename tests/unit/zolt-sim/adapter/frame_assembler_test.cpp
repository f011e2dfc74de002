#include "apps/zolt-sim/adapter/frame_assembler.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

TEST(FrameAssembler, TakesTheLengthByteOff) {
    FrameAssembler assembler;
    assembler.feed(Bytes{0x03, 0x20, 0x03, 0x02});
    EXPECT_EQ(assembler.next(), (Bytes{0x20, 0x03, 0x02}));
    EXPECT_EQ(assembler.next(), std::nullopt);
    EXPECT_FALSE(assembler.incomplete());
}

TEST(FrameAssembler, PutsAFrameTogetherFromSingleBytes) {
    FrameAssembler assembler;
    for (const std::uint8_t byte : Bytes{0x03, 0x20, 0x03}) {
        assembler.feed(Bytes{byte});
        EXPECT_EQ(assembler.next(), std::nullopt);
        EXPECT_TRUE(assembler.incomplete());
    }
    assembler.feed(Bytes{0x02});
    EXPECT_EQ(assembler.next(), (Bytes{0x20, 0x03, 0x02}));
}

TEST(FrameAssembler, SeparatesFramesThatArriveTogether) {
    FrameAssembler assembler;
    assembler.feed(Bytes{0x01, 0x30, 0x00, 0x02, 0xAA, 0xBB, 0x05, 0x10});
    EXPECT_EQ(assembler.next(), (Bytes{0x30}));
    EXPECT_EQ(assembler.next(), (Bytes{}));
    EXPECT_EQ(assembler.next(), (Bytes{0xAA, 0xBB}));
    EXPECT_EQ(assembler.next(), std::nullopt);
    EXPECT_TRUE(assembler.incomplete());
}

TEST(FrameAssembler, ReadsTheLengthUnsigned) {
    FrameAssembler assembler;
    Bytes frame(256, 0x11);
    frame[0] = 0xFF;
    assembler.feed(frame);
    EXPECT_EQ(assembler.next(), Bytes(255, 0x11));
}

TEST(FrameAssembler, ForgetsWhatIsDropped) {
    FrameAssembler assembler;
    assembler.feed(Bytes{0x05, 0x10});
    EXPECT_EQ(assembler.drop(), (Bytes{0x05, 0x10}));
    EXPECT_FALSE(assembler.incomplete());
    assembler.feed(Bytes{0x01, 0x30});
    EXPECT_EQ(assembler.next(), (Bytes{0x30}));
}

}  // namespace
}  // namespace zolt_sim
