#include "tests/unit/zolt-check/check_fixture.h"

namespace {

class Separators : public CheckFixture {
  protected:
    Lines of(const std::string& interface, const std::string& attribute, const std::string& value) {
        std::string text;
        for (const std::string name : {"CAE", "IO", "MON"}) {
            const std::string own =
                name == interface ? attribute + "=\"" + value + "\" " : std::string();
            text += "\n<I " + own + "Name=\"" + name + "\" Port=\"" +
                    (name == "CAE"  ? "4001"
                     : name == "IO" ? "4002"
                                    : "4003") +
                    "\"/>";
        }
        return entries(text);
    }
    Lines cae(const std::string& value) { return of("CAE", "InpSeparator", value); }
    Lines io(const std::string& value) { return of("IO", "InpSeparator", value); }
    Lines caeOut(const std::string& value) { return of("CAE", "OutSeparator", value); }
    Lines ioOut(const std::string& value) { return of("IO", "OutSeparator", value); }
};

TEST_F(Separators, TheUsualOnesAreFine) {
    for (const char* value : {"\\r\\n", "\\n", "\\r", "&#13;&#10;", "&#10;"}) {
        EXPECT_EQ(cae(value), Lines{}) << value;
        EXPECT_EQ(ioOut(value), Lines{}) << value;
    }
}

TEST_F(Separators, AnEmptyOne) {
    EXPECT_EQ(cae(""), Lines{"4:4: warning: InpSeparator of \"CAE\" is empty: a command with a "
                             "line end is unknown"});
    EXPECT_EQ(io(""), Lines{"5:4: warning: InpSeparator of \"IO\" is empty: each packet is one "
                            "command, line ends included"});
    EXPECT_EQ(caeOut(""), Lines{"4:4: warning: OutSeparator of \"CAE\" is empty: only a carriage "
                                "return separates the replies"});
}

TEST_F(Separators, AnUnusualOne) {
    EXPECT_EQ(io(";"), Lines{"5:4: warning: InpSeparator of \"IO\" is unusual: a client has to end "
                             "each line with \";\""});
    EXPECT_EQ(ioOut("&#9;##"), Lines{"5:4: warning: OutSeparator of \"IO\" is unusual: each line "
                                     "to a client ends in \"\\t##\""});
    EXPECT_EQ(cae("\\r\\n "), Lines{"4:4: warning: InpSeparator of \"CAE\" is unusual: a client "
                                    "has to end each line with \"\\r\\n \""});
}

TEST_F(Separators, AMisspeltOne) {
    for (const char* value : {"/r/n", "CRLF", "rn"}) {
        EXPECT_EQ(io(value), Lines{"5:4: warning: InpSeparator of \"IO\" is unusual: a client has "
                                   "to end each line with \"" +
                                   std::string(value) + "\" (did you mean \"\\r\\n\"?)"});
    }
    EXPECT_EQ(io("\\n\\r"), Lines{"5:4: warning: InpSeparator of \"IO\" is unusual: a client has "
                                  "to end each line with \"\\n\\r\" (did you mean \"\\r\\n\"?)"});
}

TEST_F(Separators, AnUnknownPair) {
    EXPECT_EQ(io("\\t"), Lines{"5:4: warning: InpSeparator of \"IO\" has \"\\t\", which is taken "
                               "literally: only \\r and \\n stand for a character"});
    EXPECT_EQ(io("\\R\\N"),
              Lines{"5:4: warning: InpSeparator of \"IO\" has \"\\R\", which is taken literally: "
                    "only \\r and \\n stand for a character (did you mean \"\\r\\n\"?)"});
    EXPECT_EQ(io("\\\\n"), Lines{"5:4: warning: InpSeparator of \"IO\" has \"\\\\\", which is "
                                 "taken literally: only \\r and \\n stand for a character"});
}

TEST_F(Separators, TypedControlCharacters) {
    for (const char* value : {"\n", "\r\n", "\t"}) {
        EXPECT_EQ(cae(value).front(),
                  "4:4: warning: InpSeparator of \"CAE\": line ends and tabs in the file are read "
                  "as blanks: write \\r and \\n");
    }
}

TEST_F(Separators, ALongOneThatEndsTheDaemon) {
    EXPECT_EQ(caeOut(std::string(488, 'x')),
              Lines{"4:4: warning: OutSeparator of \"CAE\" is unusual: each line to a client ends "
                    "in these 488 bytes"});
    EXPECT_EQ(caeOut(std::string(489, 'x')),
              Lines{"4:4: warning: OutSeparator of \"CAE\" has 489 bytes: with 489 or more, the "
                    "first unknown command ends zolt"});
    EXPECT_EQ(ioOut(std::string(983, 'x')),
              Lines{"5:4: warning: OutSeparator of \"IO\" is unusual: each line to a client ends "
                    "in these 983 bytes"});
    EXPECT_EQ(ioOut(std::string(984, 'x')),
              Lines{"5:4: warning: OutSeparator of \"IO\" has 984 bytes: with 984 or more, the "
                    "first EXIT ends zolt"});
}

TEST_F(Separators, TheMonitorUsesNone) {
    EXPECT_EQ(of("MON", "InpSeparator", "\\n"), Lines{});
    EXPECT_EQ(of("MON", "InpSeparator", ";"),
              Lines{"6:4: warning: InpSeparator of \"MON\" is never used: what a monitor client "
                    "sends is ignored"});
    EXPECT_EQ(of("MON", "OutSeparator", "\\r\\n"), Lines{});
    for (const char* value : {"\\n", ";"}) {
        EXPECT_EQ(of("MON", "OutSeparator", value),
                  Lines{"6:4: warning: OutSeparator of \"MON\" is never used: lines keep the line "
                        "end that they have on IO, \"\\r\\n\""});
    }
}

TEST_F(Separators, ThoseOfADroppedEntryDoNotMatter) {
    EXPECT_EQ(entries("<I Name=\"DMI\" InpSeparator=\"\"/>" + std::string(kCae) + kIo + kMon),
              Lines{"3:4: warning: \"DMI\" is not an interface: the entry is dropped"});
}

}  // namespace
