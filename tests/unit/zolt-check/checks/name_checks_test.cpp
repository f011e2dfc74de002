#include "apps/zolt-check/checks/name_checks.h"

#include "tests/unit/zolt-check/check_fixture.h"

namespace {

using Names = CheckFixture;

TEST_F(Names, AreTheOnesOfTheReader) {
    EXPECT_EQ(zolt_check::knownElements(),
              (Lines{"Interfaces", "Debuglog", "Speed", "InitPollState", "AutoDiscover"}));
    EXPECT_EQ(zolt_check::knownAttributes("Debuglog"), (Lines{"File", "Loglevel"}));
    EXPECT_EQ(zolt_check::knownAttributes("Interfaces"), Lines{});
    EXPECT_EQ(zolt_check::knownEntryAttributes(),
              (Lines{"Name", "InpSeparator", "OutSeparator", "Port"}));
    EXPECT_EQ(zolt_check::knownInterfaces(), (Lines{"CAE", "IO", "MON"}));
}

TEST_F(Names, AnUnknownElement) {
    EXPECT_EQ(
        inRoot("<speed Percent=\"0\"/>"),
        Lines{"2:2: warning: unknown element \"speed\" is ignored (did you mean \"Speed\"?)"});
    EXPECT_EQ(inRoot("<Interface Name=\"IO\"/>"),
              Lines{"2:2: warning: unknown element \"Interface\" is ignored (did you mean "
                    "\"Interfaces\"?)"});
    EXPECT_EQ(inRoot("<Settings><Speed/></Settings>"),
              Lines{"2:2: warning: unknown element \"Settings\" is ignored"});
}

TEST_F(Names, AnUnknownAttribute) {
    EXPECT_EQ(inRoot("<Speed percent=\"50\"/>"),
              Lines{"2:8: warning: unknown attribute \"percent\" of \"Speed\" is ignored (did you "
                    "mean \"Percent\"?)"});
    EXPECT_EQ(inRoot("<AutoDiscover\n  Action=\"TRUE\"  Port=\"80\"/>"),
              Lines{"3:18: warning: unknown attribute \"Port\" of \"AutoDiscover\" is ignored"});
    EXPECT_EQ(entries(R"(<I Name="CAE" Port="4001" port="80"/>)" + std::string(kIo) + kMon),
              Lines{"3:27: warning: unknown attribute \"port\" of \"I\" is ignored (did you mean "
                    "\"Port\"?)"});
    EXPECT_EQ(findings("<ZOLTConfig xmlns=\"urn:x\"><Interfaces Port=\"1\">" + std::string(kCae) +
                       kIo + kMon + "</Interfaces></ZOLTConfig>"),
              (Lines{"1:13: warning: unknown attribute \"xmlns\" of \"ZOLTConfig\" is ignored",
                     "1:39: warning: unknown attribute \"Port\" of \"Interfaces\" is ignored"}));
}

TEST_F(Names, AnAttributeGivenTwice) {
    EXPECT_EQ(inRoot("<Speed Percent=\"50\" Percent=\"60\"/>"),
              Lines{"2:21: warning: Percent is repeated in this element: the last value counts"});
    EXPECT_EQ(entries(R"(<I Name="IO" Name="CAE" Port="4001"/>)" + std::string(kIo) + kMon),
              Lines{"3:14: warning: Name is repeated in this element: the last value counts"});
}

TEST_F(Names, AnElementInsideAnother) {
    EXPECT_EQ(inRoot("<Speed Percent=\"50\">\n <Speed Percent=\"60\"/></Speed>"),
              Lines{"3:3: warning: \"Speed\" inside \"Speed\" is ignored"});
    EXPECT_EQ(entries(R"(<I Name="CAE" Port="4001"><Port/></I>)" + std::string(kIo) + kMon),
              Lines{"3:28: warning: \"Port\" inside \"I\" is ignored"});
}

TEST_F(Names, TextInsideAnElement) {
    EXPECT_EQ(inRoot("  Speed Percent=\"90\"/>\n<!-- x -->more"),
              Lines{"2:3: warning: text inside \"ZOLTConfig\" is ignored"});
    EXPECT_EQ(entries("<!-- old -->\n<![CDATA[x]]>" + std::string(kCae) + kIo + kMon),
              Lines{"4:10: warning: text inside \"Interfaces\" is ignored"});
    EXPECT_EQ(entries(R"(<I Name="CAE" Port="4001">4001</I>)" + std::string(kIo) + kMon),
              Lines{"3:27: warning: text inside \"I\" is ignored"});
    EXPECT_EQ(inRoot("<!-- text --><?text text?><![CDATA[]]>"), Lines{});
}

TEST_F(Names, AnElementGivenTwice) {
    EXPECT_EQ(inRoot("<AutoDiscover Action=\"TRUE\"/>\n\n<AutoDiscover Action=\"FALSE\"/>"),
              Lines{"4:2: warning: \"AutoDiscover\" is repeated (first in line 2): for what both "
                    "set, the last one counts"});
}

TEST_F(Names, AnElementThatSetsNothing) {
    EXPECT_EQ(inRoot("<Speed>50</Speed>"),
              (Lines{"2:2: warning: \"Speed\" sets nothing: it has no Percent",
                     "2:8: warning: text inside \"Speed\" is ignored"}));
    EXPECT_EQ(inRoot("<Debuglog/>"),
              Lines{"2:2: warning: \"Debuglog\" sets nothing: it has no File and no Loglevel"});
}

TEST_F(Names, ControlCharactersAreShown) {
    EXPECT_EQ(inRoot("<AutoDiscover Action=\"a&#27;b&#127;\"/>"),
              Lines{"2:15: warning: Action \"a\\x1Bb\\x7F\" is not TRUE, True or true: it counts "
                    "as FALSE"});
}

}  // namespace
