#include "apps/zolt-check/name_checks.h"
#include "apps/zolt-check/spelling.h"
#include "tests/unit/zolt-check/check_fixture.h"

namespace {

using Names = CheckFixture;

TEST_F(Names, AreTheOnesOfTheReader) {
    EXPECT_EQ(check::knownElements(),
              (Lines{"Interfaces", "Debuglog", "Speed", "InitPollState", "AutoDiscover"}));
    EXPECT_EQ(check::knownAttributes("Debuglog"), (Lines{"File", "Loglevel"}));
    EXPECT_EQ(check::knownAttributes("Interfaces"), Lines{});
    EXPECT_EQ(check::knownEntryAttributes(),
              (Lines{"Name", "InpSeparator", "OutSeparator", "Port"}));
    EXPECT_EQ(check::knownInterfaces(), (Lines{"CAE", "IO", "MON"}));
}

TEST_F(Names, AnUnknownElement) {
    EXPECT_EQ(inRoot("<speed Percent=\"0\"/>"),
              Lines{"2:2: warning: unknown element \"speed\" is not read (did you mean "
                    "\"Speed\"?)"});
    EXPECT_EQ(inRoot("<Interface Name=\"IO\"/>"),
              Lines{"2:2: warning: unknown element \"Interface\" is not read (did you mean "
                    "\"Interfaces\"?)"});
    EXPECT_EQ(inRoot("<Settings><Speed/></Settings>"),
              Lines{"2:2: warning: unknown element \"Settings\" is not read"});
}

TEST_F(Names, AnUnknownAttribute) {
    EXPECT_EQ(inRoot("<Speed percent=\"50\"/>"),
              Lines{"2:8: warning: unknown attribute \"percent\" of \"Speed\" is not read (did "
                    "you mean \"Percent\"?)"});
    EXPECT_EQ(inRoot("<AutoDiscover\n  Action=\"TRUE\"  Port=\"80\"/>"),
              Lines{"3:18: warning: unknown attribute \"Port\" of \"AutoDiscover\" is not read"});
    EXPECT_EQ(entries(R"(<I Name="CAE" Port="4001" port="80"/>)" + std::string(kIo) + kMon),
              Lines{"3:27: warning: unknown attribute \"port\" of \"I\" is not read (did you "
                    "mean \"Port\"?)"});
    EXPECT_EQ(findings("<ZOLTConfig xmlns=\"urn:x\"><Interfaces Port=\"1\">" + std::string(kCae) +
                       kIo + kMon + "</Interfaces></ZOLTConfig>"),
              (Lines{"1:13: warning: unknown attribute \"xmlns\" of \"ZOLTConfig\" is not read",
                     "1:39: warning: unknown attribute \"Port\" of \"Interfaces\" is not read"}));
}

TEST_F(Names, AnAttributeGivenTwice) {
    EXPECT_EQ(inRoot("<Speed Percent=\"50\" Percent=\"60\"/>"),
              Lines{"2:21: warning: Percent is given again in this element: the last one counts"});
    EXPECT_EQ(entries(R"(<I Name="IO" Name="CAE" Port="4001"/>)" + std::string(kIo) + kMon),
              Lines{"3:14: warning: Name is given again in this element: the last one counts"});
}

TEST_F(Names, AnElementInsideAnother) {
    EXPECT_EQ(inRoot("<Speed Percent=\"50\">\n <Speed Percent=\"60\"/></Speed>"),
              Lines{"3:3: warning: \"Speed\" inside \"Speed\" is not read"});
    EXPECT_EQ(entries(R"(<I Name="CAE" Port="4001"><Port/></I>)" + std::string(kIo) + kMon),
              Lines{"3:28: warning: \"Port\" inside \"I\" is not read"});
}

TEST_F(Names, TextInsideAnElement) {
    EXPECT_EQ(inRoot("  Speed Percent=\"90\"/>\n<!-- x -->more"),
              Lines{"2:3: warning: text inside \"ZOLTConfig\" is not read"});
    EXPECT_EQ(entries("<!-- old -->\n<![CDATA[x]]>" + std::string(kCae) + kIo + kMon),
              Lines{"4:10: warning: text inside \"Interfaces\" is not read"});
    EXPECT_EQ(entries(R"(<I Name="CAE" Port="4001">4001</I>)" + std::string(kIo) + kMon),
              Lines{"3:27: warning: text inside \"I\" is not read"});
    EXPECT_EQ(inRoot("<!-- text --><?text text?><![CDATA[]]>"), Lines{});
}

TEST_F(Names, AnElementGivenTwice) {
    EXPECT_EQ(inRoot("<AutoDiscover Action=\"TRUE\"/>\n\n<AutoDiscover Action=\"FALSE\"/>"),
              Lines{"4:2: warning: \"AutoDiscover\" is given again (first in line 2): what both "
                    "set is set by the last"});
}

TEST_F(Names, AnElementThatSetsNothing) {
    EXPECT_EQ(inRoot("<Speed>50</Speed>"),
              (Lines{"2:2: warning: \"Speed\" sets nothing: it has no Percent",
                     "2:8: warning: text inside \"Speed\" is not read"}));
    EXPECT_EQ(inRoot("<Debuglog/>"),
              Lines{"2:2: warning: \"Debuglog\" sets nothing: it has no File and no Loglevel"});
}

TEST_F(Names, ControlCharactersAreShown) {
    EXPECT_EQ(inRoot("<AutoDiscover Action=\"a&#27;b&#127;\"/>"),
              Lines{"2:15: warning: Action \"a\\x1Bb\\x7F\" is none of TRUE, True and true: it "
                    "counts as FALSE"});
}

TEST(Spelling, SuggestsTheNearestName) {
    const std::vector<std::string> known{"Debuglog", "Speed", "IO", "CAE"};
    const auto suggestion = [&](const char* name) { return check::didYouMean(name, known); };
    EXPECT_EQ(suggestion("SPEED"), " (did you mean \"Speed\"?)");
    EXPECT_EQ(suggestion("Sped"), " (did you mean \"Speed\"?)");
    EXPECT_EQ(suggestion("Spedds"), " (did you mean \"Speed\"?)");
    EXPECT_EQ(suggestion("debug-log"), " (did you mean \"Debuglog\"?)");
    EXPECT_EQ(suggestion("I0"), " (did you mean \"IO\"?)");
    EXPECT_EQ(suggestion("CAEX"), " (did you mean \"CAE\"?)");
    EXPECT_EQ(suggestion("DMI"), "");
    EXPECT_EQ(suggestion("Spoon"), "");
    EXPECT_EQ(suggestion(""), "");
}

}  // namespace
