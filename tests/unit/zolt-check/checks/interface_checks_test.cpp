#include "tests/unit/zolt-check/check_fixture.h"

namespace {

class Interfaces : public CheckFixture {
  protected:
    /// CAE with this port, and nothing else that could be wrong.
    Lines port(const std::string& value) {
        return entries("<I Name=\"CAE\" Port=\"" + value + "\"/>" + kIo + kMon);
    }
};

TEST_F(Interfaces, AllThreeAreFine) {
    EXPECT_EQ(entries(std::string(kCae) + kIo + kMon), Lines{});
    EXPECT_EQ(port("1025"), Lines{});
    EXPECT_EQ(port("65535"), Lines{});
    EXPECT_EQ(entries(R"(<I Port="4001" Name="CAE"/>)" + std::string(kIo) + kMon), Lines{});
}

TEST_F(Interfaces, APortBelow1025) {
    for (const char* value : {"1024", "80", "0", "-1"}) {
        EXPECT_EQ(port(value),
                  Lines{"3:15: error: Port " + std::string(value) +
                        " is below 1025: zolt does not start and reads nothing after it"});
    }
    EXPECT_EQ(port("http"), Lines{"3:15: error: Port \"http\" (counts as 0) is below 1025: zolt "
                                  "does not start and reads nothing after it"});
    EXPECT_EQ(port("99999999999999999999"),
              Lines{"3:15: error: Port \"99999999999999999999\" (counts as -1) is below 1025: zolt "
                    "does not start and reads nothing after it"});
}

TEST_F(Interfaces, APortBelow1025BeforeTheLogFile) {
    EXPECT_EQ(
        findings("<ZOLTConfig><Interfaces>\n<I Name=\"CAE\" Port=\"80\"/>" + std::string(kIo) +
                 kMon + "</Interfaces><Debuglog File=\"/dev/null\"/></ZOLTConfig>"),
        Lines{"2:15: error: Port 80 is below 1025: zolt does not start and reads nothing after it; "
              "no log reports this, because no log file is set above this line"});
}

TEST_F(Interfaces, APortBelow1025BeforeTheName) {
    EXPECT_EQ(
        entries(R"(<I Port="80" Name="CAE"/>)" + std::string(kIo) + kMon),
        Lines{"3:4: error: Port 80 is below 1025: zolt does not start and reads nothing after it; "
              "its log does not name the interface, because Name comes after Port"});
}

TEST_F(Interfaces, WhatFollowsABadPortIsStillChecked) {
    EXPECT_EQ(
        entries("<I Name=\"CAE\" Port=\"80\"/>\n<I Name=\"IO\" Port=\"81\"/>\n"
                "<I Name=\"MON\" Port=\"4003\" port=\"1\"/>"),
        (Lines{"3:15: error: Port 80 is below 1025: zolt does not start and reads nothing after it",
               "4:14: error: Port 81 is below 1025: zolt does not start",
               "5:27: warning: unknown attribute \"port\" of \"I\" is ignored (did you mean "
               "\"Port\"?)"}));
}

TEST_F(Interfaces, ThePortOfADroppedEntryCountsToo) {
    EXPECT_EQ(
        entries("<I Name=\"DMI\" Port=\"80\"/>" + std::string(kCae) + kIo + kMon),
        (Lines{
            "3:4: warning: \"DMI\" is not an interface: the entry is dropped",
            "3:15: error: Port 80 is below 1025: zolt does not start and reads nothing after it"}));
}

TEST_F(Interfaces, APortAbove65535) {
    EXPECT_EQ(
        port("70000"),
        Lines{"3:15: warning: Port 70000 is above 65535: zolt uses its low 16 bits, port 4464"});
    EXPECT_EQ(port("65616"), Lines{"3:15: warning: Port 65616 is above 65535: zolt uses its low 16 "
                                   "bits, port 80, which needs privileges"});
    EXPECT_EQ(port("65536"),
              Lines{"3:15: warning: Port 65536 is above 65535: zolt uses its low 16 bits, which "
                    "are 0: the system picks a port each time the interface is opened"});
    EXPECT_EQ(port("70000x"), Lines{"3:15: warning: Port \"70000x\" (counts as 70000) is above "
                                    "65535: zolt uses its low 16 bits, port 4464"});
}

TEST_F(Interfaces, APortThatIsNotAPlainNumber) {
    EXPECT_EQ(port("4001 tcp"), Lines{"3:15: warning: Port \"4001 tcp\" counts as 4001: the text "
                                      "after the number is ignored"});
    EXPECT_EQ(port("4294968321"),
              Lines{"3:15: warning: Port \"4294968321\" counts as 1025: it is too large"});
}

TEST_F(Interfaces, AMissingPort) {
    EXPECT_EQ(entries(std::string(kCae) + "\n<I Name=\"IO\"/>\n" + kMon),
              Lines{"4:2: warning: interface \"IO\" has no Port: the system picks one each time "
                    "the interface is opened"});
}

TEST_F(Interfaces, APortUsedTwice) {
    EXPECT_EQ(entries("<I Name=\"MON\" Port=\"4001\"/>\n<I Name=\"CAE\" Port=\"4001\"/>\n" +
                      std::string(kIo)),
              Lines{"3:15: warning: port 4001 of \"MON\" is also the port of \"CAE\", which is "
                    "opened first: \"MON\" listens on a port that the system picks"});
    // The ports are equal in their low 16 bits.
    EXPECT_EQ(
        entries(std::string(kCae) + "\n<I Name=\"IO\" Port=\"69537\"/>\n" + kMon),
        (Lines{"4:14: warning: Port 69537 is above 65535: zolt uses its low 16 bits, port 4001",
               "4:14: warning: port 4001 of \"IO\" is also the port of \"CAE\", which is opened "
               "first: \"IO\" listens on a port that the system picks"}));
    // Interfaces without a port are not in conflict.
    EXPECT_EQ(entries(std::string(kCae) + "<I Name=\"IO\"/><I Name=\"MON\"/>").size(), 2U);
}

TEST_F(Interfaces, AMissingInterface) {
    const std::string consequence =
        " is missing: it listens on a port that the system picks and sends no banner";
    EXPECT_EQ(entries(std::string(kCae) + kMon),
              Lines{"2:2: warning: interface \"IO\"" + consequence});
    EXPECT_EQ(findings("\n <ZOLTConfig/>"),
              (Lines{"2:3: warning: interface \"CAE\"" + consequence,
                     "2:3: warning: interface \"IO\"" + consequence,
                     "2:3: warning: interface \"MON\"" + consequence}));
}

TEST_F(Interfaces, AnUnknownName) {
    const std::string rest = std::string(kCae) + kIo + kMon;
    EXPECT_EQ(entries("<I Port=\"4001\" Name=\"cae\"/>\n" + rest),
              Lines{"3:16: warning: \"cae\" is not an interface: the entry is dropped (did you "
                    "mean \"CAE\"?)"});
    EXPECT_EQ(entries("<I Name=\"IO \"/>\n" + rest),
              Lines{"3:4: warning: \"IO \" is not an interface: the entry is dropped (did you mean "
                    "\"IO\"?)"});
    EXPECT_EQ(entries("<CAE Port=\"4001\"/>\n" + rest),
              Lines{"3:2: warning: the entry has no Name: it is dropped"});
}

TEST_F(Interfaces, AnInterfaceGivenTwice) {
    EXPECT_EQ(entries(std::string(kCae) + kIo + kMon + "\n<I Name=\"IO\" Port=\"4005\"/>"),
              Lines{"4:2: warning: interface \"IO\" is repeated (first in line 3): this entry "
                    "replaces the first one completely"});
}

TEST_F(Interfaces, MoreEntriesThanAreRead) {
    const std::string four = std::string(kCae) + kIo + kMon + "<I Name=\"DMI\"/>\n";
    const std::string dropped = "3:84: warning: \"DMI\" is not an interface: the entry is dropped";
    EXPECT_EQ(
        entries(four + "<I Name=\"IO\" Port=\"80\"/>"),
        (Lines{dropped, "4:2: warning: only the first 4 entries are read: this one is ignored"}));
    EXPECT_EQ(
        entries(four + "<I/><I/><I/>"),
        (Lines{
            dropped,
            "4:2: warning: only the first 4 entries are read: this one and 2 more are ignored"}));
}

TEST_F(Interfaces, ASecondElementStartsFromTheFirst) {
    const std::string first = "<ZOLTConfig>\n<Interfaces><I Name=\"IO\" Port=\"4002\"/>" +
                              std::string(kCae) + "</Interfaces>\n";
    const std::string again =
        "3:2: warning: \"Interfaces\" is repeated (first in line 2): each entry starts with the "
        "values of the earlier entry in the same position";
    EXPECT_EQ(findings(first + "<Interfaces><I Name=\"MON\"/></Interfaces></ZOLTConfig>"),
              (Lines{again,
                     "3:14: warning: port 4002 of \"MON\" is also the port of \"IO\", which is "
                     "opened first: \"MON\" listens on a port that the system picks"}));
    // The entry has the name of the first entry of the first element.
    EXPECT_EQ(findings(first + "<Interfaces><I Port=\"4003\"/></Interfaces></ZOLTConfig>"),
              (Lines{"2:2: warning: interface \"MON\" is missing: it listens on a port that the "
                     "system picks and sends no banner",
                     again,
                     "3:14: warning: interface \"IO\" is repeated (first in line 2): this entry "
                     "replaces the first one completely"}));
}

}  // namespace
