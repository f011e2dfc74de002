#include "control/io_forms.h"

#include <gtest/gtest.h>

#include "tests/unit/control/io_forms_fixture.h"

namespace {

// Blocks

TEST_F(IoForms, ABlockOfADigitalOutputSendsBothBytes) {
    EXPECT_EQ(outcome("a5b1dFB"), "5: 10 05 02 FF FB");
    EXPECT_EQ(outcome("a5b1dFF"), "5: 10 05 02 FF FF");
    EXPECT_EQ(outcome("a5b0d00"), "5: 10 05 02 00 FF");
}

TEST_F(IoForms, ABlockOfAServoSendsSixPositions) {
    EXPECT_EQ(outcome("a0b2d40"), "0: 10 00 06 80 80 40 80 80 80");
    EXPECT_EQ(outcome("a0b5dFF"), "0: 10 00 06 80 80 40 80 80 FF");
}

TEST_F(IoForms, ABlockOfAMotorSendsFourValues) {
    EXPECT_EQ(outcome("aAb0d7F"), "10: 10 0A 04 7F 00 00 00");
    EXPECT_EQ(outcome("aAb3d01"), "10: 10 0A 04 7F 00 00 01");
    EXPECT_EQ(outcome("aAb4d02"), "10: 10 0A 04 7F 00 00 01") << "stored, but not sent";
    EXPECT_EQ(cards_[10].values[4], 2);
}

TEST_F(IoForms, AnyBlockDigitSelectsOneOfSixteenValues) {
    for (int block = 0; block < 16; ++block) {
        const char digit = "0123456789ABCDEF"[block];
        EXPECT_EQ(outcome(std::string("aEb") + digit + "d5A"), "14: ");
        EXPECT_EQ(cards_[14].values[static_cast<std::size_t>(block)], 0x5A) << block;
    }
}

TEST_F(IoForms, ABlockForAnyOtherKindIsAnEmptyFrame) {
    EXPECT_EQ(outcome("a3b0d40"), "3: ") << "input card";
    EXPECT_EQ(outcome("a7b0d40"), "7: ") << "empty";
    EXPECT_EQ(outcome("a9b0d40"), "9: ") << "infrared";
    EXPECT_EQ(outcome("aEb0d40"), "14: ") << "display";
}

TEST_F(IoForms, ABlockIsStoredWhateverTheCard) {
    outcome("a3b1d55");
    outcome("a7bFdAA");
    EXPECT_EQ(cards_[3].values[1], 0x55);
    EXPECT_EQ(cards_[7].values[15], 0xAA);
}

TEST_F(IoForms, DigitsThatAreNoneAreZero) {
    EXPECT_EQ(outcome("a5b1dfb"), "5: 10 05 02 FF 00") << "lower-case letters are no digits";
    EXPECT_EQ(outcome("a5b1dxF"), "5: 10 05 02 FF 0F");
    EXPECT_EQ(outcome("azb0d11"), "0: 10 00 06 11 80 80 80 80 80");
    EXPECT_EQ(outcome("a5bzd22"), "5: 10 05 02 22 0F");
}

TEST_F(IoForms, CharactersAfterABlockAreIgnored) {
    EXPECT_EQ(outcome("a5b1dFBxyz"), "5: 10 05 02 FF FB");
    EXPECT_EQ(outcome("a5b1dFB0"), "5: 10 05 02 FF FB");
    EXPECT_EQ(outcome("a5b1dFBHSPAp"), "5: 10 05 02 FF FB");
}

TEST_F(IoForms, ABlockNeedsItsLetters) {
    EXPECT_EQ(outcome("A5b1dFB"), kIllegal);
    EXPECT_EQ(outcome("a5B1dFB"), kIllegal);
    EXPECT_EQ(outcome("a5b1DFB"), kIllegal);
    EXPECT_EQ(outcome("a5b1 FB"), kIllegal);
    EXPECT_EQ(cards_[5].values[1], 0xFF) << "nothing stored";
}

TEST_F(IoForms, ACutBlockStoresNothing) {
    EXPECT_EQ(outcome("a5b1d"), kException);
    EXPECT_EQ(outcome("a5b1d0"), kException);
    EXPECT_EQ(cards_[5].values[1], 0xFF);
}

// Infrared streams

TEST_F(IoForms, AStreamIsSentAfterItsCount) {
    EXPECT_EQ(outcome("a9sHS434F434B524F414348"), "9: 10 09 0A 09 43 4F 43 4B 52 4F 41 43 48");
}

TEST_F(IoForms, AnOddLastDigitOfAStreamIsDropped) {
    EXPECT_EQ(outcome("a9sHS434"), "9: 10 09 02 01 43");
}

TEST_F(IoForms, AnEmptyStreamIsAFrame) {
    EXPECT_EQ(outcome("a9sHS"), "9: 10 09 01 00");
    EXPECT_EQ(outcome("a9sHS4"), "9: 10 09 01 00");
}

TEST_F(IoForms, AStreamTakesHighBytesAndDigitsThatAreNone) {
    EXPECT_EQ(outcome("a9sHSFF80ffG1"), "9: 10 09 05 04 FF 80 00 01");
}

TEST_F(IoForms, AStreamHasAtMost34Bytes) {
    EXPECT_EQ(outcome("a9sHS" + repeated("41", 34)), "9: 10 09 23 22" + repeated(" 41", 34));
    EXPECT_EQ(outcome("a9sHS" + repeated("41", 34) + "4"), "9: 10 09 23 22" + repeated(" 41", 34));
    EXPECT_EQ(outcome("a9sHS" + repeated("41", 35)), kIllegal);
    EXPECT_EQ(outcome("a9sHS" + repeated("41", 125)), kIllegal);
}

TEST_F(IoForms, AStreamNeedsItsLettersInPlace) {
    EXPECT_EQ(outcome("a9s4343HS"), kIllegal);
    EXPECT_EQ(outcome("a9sxHS43"), kIllegal);
    EXPECT_EQ(outcome("a9shs43"), kIllegal);
    EXPECT_EQ(outcome("a9s"), kIllegal);
    EXPECT_EQ(outcome("a9sH"), kIllegal);
    EXPECT_EQ(outcome("HSa9s43"), kIllegal);
}

TEST_F(IoForms, AStreamNeedsAnInfraredCard) {
    for (const char* command : {"a5sHS43", "a3sHS43", "a7sHS43", "aEsHS43", "a0sHS"}) {
        EXPECT_EQ(outcome(command), kIllegal) << command;
    }
}

// LCD controls

TEST_F(IoForms, EachLcdControlHasItsCode) {
    EXPECT_EQ(outcome("aElCL"), "14: 10 0E 01 00");
    EXPECT_EQ(outcome("aElLO"), "14: 10 0E 01 01");
    EXPECT_EQ(outcome("aElLF"), "14: 10 0E 01 02");
    EXPECT_EQ(outcome("aElCO"), "14: 10 0E 01 03");
    EXPECT_EQ(outcome("aElCF"), "14: 10 0E 01 04");
    EXPECT_EQ(outcome("aElBO"), "14: 10 0E 01 05");
    EXPECT_EQ(outcome("aElBF"), "14: 10 0E 01 06");
}

TEST_F(IoForms, AnUnknownLcdControlIsIllegal) {
    for (const char* command : {"aElXY", "aElBL", "aElcl", "aElLC", "aElCX", "aEl  "}) {
        EXPECT_EQ(outcome(command), kIllegal) << command;
    }
}

TEST_F(IoForms, CharactersAfterAnLcdControlAreIgnored) {
    EXPECT_EQ(outcome("aElCLxyz"), "14: 10 0E 01 00");
    EXPECT_EQ(outcome("aElBOHS"), "14: 10 0E 01 05");
}

TEST_F(IoForms, AnLcdControlNeedsAnLcd) {
    for (const char* command : {"a5lCL", "a3lCL", "a7lCL", "a9lCL", "aAlCL"}) {
        EXPECT_EQ(outcome(command), kIllegal) << command;
    }
}

// LCD texts

TEST_F(IoForms, ATextGoesToItsPlaceOnTheLcd) {
    EXPECT_EQ(outcome("aElPAp0301tTail of the cat"),
              "14: 10 0E 13 09 03 01 54 61 69 6C 20 6F 66 20 74 68 65 20 63 61 74 00");
}

TEST_F(IoForms, ATextMayBeEmpty) {
    EXPECT_EQ(outcome("aElPAp0301t"), "14: 10 0E 04 09 03 01 00");
}

TEST_F(IoForms, TheLetterAheadOfATextIsNotLookedAt) {
    EXPECT_EQ(outcome("aElPAp0301xA"), "14: 10 0E 05 09 03 01 41 00");
    EXPECT_EQ(outcome("aElPAp03010"), "14: 10 0E 04 09 03 01 00");
}

TEST_F(IoForms, ATextHasAtMost31Characters) {
    EXPECT_EQ(outcome("aElPAp0000t" + repeated("A", 31)),
              "14: 10 0E 23 09 00 00" + repeated(" 41", 31) + " 00");
    EXPECT_EQ(outcome("aElPAp0000t" + repeated("A", 32)), kIllegal);
    EXPECT_EQ(outcome("aElPAp0000t" + repeated("A", 34)), kIllegal);
    EXPECT_EQ(outcome("aElPAp0000t" + repeated("A", 240)), kIllegal);
}

TEST_F(IoForms, ATextMayHoldAnyByte) {
    EXPECT_EQ(outcome("aElPApFF1FtPAp\x80\xFFHS"), "14: 10 0E 0B 09 FF 1F 50 41 70 80 FF 48 53 00");
}

TEST_F(IoForms, TheMarkOfATextMayStandAnywhereButItsDataIsTakenByPosition) {
    EXPECT_EQ(outcome("aEl...1203xPAp"), "14: 10 0E 07 09 12 03 50 41 70 00");
    EXPECT_EQ(outcome("aElCL.....tPAp"), "14: 10 0E 07 09 00 00 50 41 70 00") << "no control";
}

TEST_F(IoForms, ATextNeedsAnLcd) {
    EXPECT_EQ(outcome("a5lPAp0301tTail"), kIllegal);
    EXPECT_EQ(outcome("a7lPAp0301tTail"), kIllegal);
}

// Splitting

using Commands = std::vector<std::string>;

TEST(CommandSplitting, CutsAtEverySeparator) {
    EXPECT_EQ(splitCommands("a5b1dFB\r\na5b1dFF\r\n", "\r\n"), (Commands{"a5b1dFB", "a5b1dFF"}));
}

TEST(CommandSplitting, TheLastPieceNeedsNoSeparator) {
    EXPECT_EQ(splitCommands("a5b1dFB", "\r\n"), Commands{"a5b1dFB"});
    EXPECT_EQ(splitCommands("one\r\ntwo", "\r\n"), (Commands{"one", "two"}));
}

TEST(CommandSplitting, DropsEmptyPieces) {
    EXPECT_EQ(splitCommands("", "\r\n"), Commands{});
    EXPECT_EQ(splitCommands("\r\n", "\r\n"), Commands{});
    EXPECT_EQ(splitCommands("\r\n\r\n\r\n", "\r\n"), Commands{});
    EXPECT_EQ(splitCommands("\r\none\r\n\r\n\r\ntwo\r\n\r\n", "\r\n"), (Commands{"one", "two"}));
}

TEST(CommandSplitting, TakesTheWholeSeparatorOnly) {
    EXPECT_EQ(splitCommands("one\rtwo\nthree\r\nfour", "\r\n"),
              (Commands{"one\rtwo\nthree", "four"}));
    EXPECT_EQ(splitCommands("one\r\r\ntwo", "\r\n"), (Commands{"one\r", "two"}));
    EXPECT_EQ(splitCommands("a;;;b", ";;"), (Commands{"a", ";b"}));
}

TEST(CommandSplitting, KeepsBlanks) {
    EXPECT_EQ(splitCommands(" \r\n a ", "\r\n"), (Commands{" ", " a "}));
}

TEST(CommandSplitting, AnEmptySeparatorSeparatesNothing) {
    EXPECT_EQ(splitCommands("one\r\ntwo", ""), Commands{"one\r\ntwo"});
    EXPECT_EQ(splitCommands("", ""), Commands{});
}

}  // namespace
