#include "apps/zolt-check/wording.h"
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
    EXPECT_EQ(cae(""), Lines{"4:4: warning: InpSeparator of \"CAE\" is empty: a command is the "
                             "bare word, and one with a line end is unknown"});
    EXPECT_EQ(io(""), Lines{"5:4: warning: InpSeparator of \"IO\" is empty: each packet is one "
                            "command, line ends included"});
    EXPECT_EQ(caeOut(""),
              Lines{"4:4: warning: OutSeparator of \"CAE\" is empty: only the carriage return "
                    "that follows each reply stands between them"});
}

TEST_F(Separators, AnUnusualOne) {
    EXPECT_EQ(io(";"), Lines{"5:4: warning: InpSeparator of \"IO\" is unusual: a client has to "
                             "end each line with it, \";\""});
    EXPECT_EQ(ioOut("&#9;##"), Lines{"5:4: warning: OutSeparator of \"IO\" is unusual: each line "
                                     "that a client gets ends in it, \"\\t##\""});
    EXPECT_EQ(cae("\\r\\n "), Lines{"4:4: warning: InpSeparator of \"CAE\" is unusual: a client "
                                    "has to end each line with it, \"\\r\\n \""});
}

TEST_F(Separators, AMisspeltOne) {
    for (const char* value : {"/r/n", "CRLF", "rn"}) {
        EXPECT_EQ(io(value), Lines{"5:4: warning: InpSeparator of \"IO\" is unusual: a client has "
                                   "to end each line with it, \"" +
                                   std::string(value) + "\" (did you mean \"\\r\\n\"?)"});
    }
    EXPECT_EQ(io("\\n\\r"), Lines{"5:4: warning: InpSeparator of \"IO\" is unusual: a client has "
                                  "to end each line with it, \"\\n\\r\" (did you mean "
                                  "\"\\r\\n\"?)"});
}

TEST_F(Separators, AnUnknownPair) {
    EXPECT_EQ(io("\\t"), Lines{"5:4: warning: InpSeparator of \"IO\" has \"\\t\", which is taken "
                               "as it stands: only \\r and \\n stand for a character"});
    EXPECT_EQ(io("\\R\\N"), Lines{"5:4: warning: InpSeparator of \"IO\" has \"\\R\", which is "
                                  "taken as it stands: only \\r and \\n stand for a character "
                                  "(did you mean \"\\r\\n\"?)"});
    EXPECT_EQ(io("\\\\n"), Lines{"5:4: warning: InpSeparator of \"IO\" has \"\\\\\", which is "
                                 "taken as it stands: only \\r and \\n stand for a character"});
}

TEST_F(Separators, TypedControlCharacters) {
    for (const char* value : {"\n", "\r\n", "\t"}) {
        EXPECT_EQ(cae(value).front(),
                  "4:4: warning: InpSeparator of \"CAE\": line ends and tabs typed in it are read "
                  "as blanks: write \\r and \\n");
    }
}

TEST_F(Separators, ALongOneThatEndsTheDaemon) {
    EXPECT_EQ(caeOut(std::string(488, 'x')),
              Lines{"4:4: warning: OutSeparator of \"CAE\" is unusual: each line that a client "
                    "gets ends in it, 488 bytes"});
    EXPECT_EQ(caeOut(std::string(489, 'x')),
              Lines{"4:4: warning: OutSeparator of \"CAE\" has 489 bytes: from 489 on the first "
                    "unknown command ends zolt"});
    EXPECT_EQ(ioOut(std::string(983, 'x')),
              Lines{"5:4: warning: OutSeparator of \"IO\" is unusual: each line that a client "
                    "gets ends in it, 983 bytes"});
    EXPECT_EQ(ioOut(std::string(984, 'x')),
              Lines{"5:4: warning: OutSeparator of \"IO\" has 984 bytes: from 984 on the first "
                    "EXIT ends zolt"});
}

TEST_F(Separators, TheMonitorUsesNone) {
    EXPECT_EQ(of("MON", "InpSeparator", "\\n"), Lines{});
    EXPECT_EQ(of("MON", "InpSeparator", ";"),
              Lines{"6:4: warning: InpSeparator of \"MON\" is never used: what a monitor client "
                    "sends is ignored"});
    EXPECT_EQ(of("MON", "OutSeparator", "\\r\\n"), Lines{});
    for (const char* value : {"\\n", ";"}) {
        EXPECT_EQ(of("MON", "OutSeparator", value),
                  Lines{"6:4: warning: OutSeparator of \"MON\" is never used: its lines keep the "
                        "ends that they have on IO, \"\\r\\n\""});
    }
}

TEST_F(Separators, ThoseOfADroppedEntryDoNotMatter) {
    EXPECT_EQ(entries("<I Name=\"DMI\" InpSeparator=\"\"/>" + std::string(kCae) + kIo + kMon),
              Lines{"3:4: warning: \"DMI\" is no interface and its entry is dropped"});
}

TEST_F(Separators, EveryCharacterIsToldApart) {
    EXPECT_EQ(check::shownSeparator("\r\n\t\\x;\x01"), R"("\r\n\t\\x;\x01")");
}

}  // namespace
