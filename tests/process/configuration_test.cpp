#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/process/process_test.h"
#include "tests/support/files.h"
#include "tests/support/process/system_log.h"

namespace {

class Configuration : public ProcessTest {
  protected:
    void expectRefused() {
        ASSERT_EQ(daemon_.start(), "status 0");
        EXPECT_EQ(daemon_.waitForEnd(), "status 0");
        // 13 is facility user, priority notice.
        EXPECT_EQ(systemLog_.readNew(),
                  (std::vector<std::string>{
                      "<13>zolt: Unable to start by user " + std::to_string(::getuid()) +
                      ", because unable to load config, or unable to parse XML file!"}));
        EXPECT_FALSE(std::filesystem::exists(settings_.logFile));
        EXPECT_EQ(daemon_.standardOutput(), "");
    }

    // The table has all listening sockets of this network namespace.
    static int listeningSockets() {
        constexpr const char* kListening = "0A";
        int count = 0;
        std::ifstream table("/proc/net/tcp");
        for (std::string line; std::getline(table, line);) {
            std::istringstream columns(line);
            std::string number, local, remote, state;
            columns >> number >> local >> remote >> state;
            if (state == kListening) ++count;
        }
        return count;
    }

    support::SystemLog systemLog_;
};

TEST_F(Configuration, MissingFileIsReportedToTheSystemLog) {
    std::filesystem::remove(support::kConfigurationFile);
    expectRefused();
}

TEST_F(Configuration, BrokenXmlIsReportedToTheSystemLog) {
    support::writeConfiguration("<ZOLTConfig><Debuglog File=\"" + settings_.logFile +
                                "\" Loglevel=\"1\"/>");
    expectRefused();
}

TEST_F(Configuration, EmptyFileIsReportedToTheSystemLog) {
    support::writeConfiguration("");
    expectRefused();
}

TEST_F(Configuration, PortBelow1025IsLoggedBeforeAnySocketIsOpened) {
    settings_.cae.port = 1024;
    start();
    EXPECT_EQ(daemon_.waitForEnd(), "status 0");
    EXPECT_EQ(logLines(),
              (std::vector<std::string>{"[INF] zolt is started",
                                        "[ERR] CAE interface port number is less than 1025",
                                        "[INF] zolt is stopped with error"}));
    EXPECT_EQ(systemLog_.readNew(), std::vector<std::string>());
}

TEST_F(Configuration, PortErrorNamesNoInterfaceWhenThePortComesFirst) {
    support::writeConfiguration("<ZOLTConfig><Debuglog File=\"" + settings_.logFile +
                                "\" Loglevel=\"1\"/><Interfaces><Interface Port=\"80\" "
                                "Name=\"CAE\"/></Interfaces></ZOLTConfig>");
    ASSERT_EQ(daemon_.start(), "status 0");
    EXPECT_EQ(daemon_.waitForEnd(), "status 0");
    EXPECT_EQ(logLines(),
              (std::vector<std::string>{"[INF] zolt is started",
                                        "[ERR]  interface port number is less than 1025",
                                        "[INF] zolt is stopped with error"}));
}

TEST_F(Configuration, PortErrorAheadOfTheLogFileIsNotLogged) {
    support::writeConfiguration(
        "<ZOLTConfig><Interfaces><Interface Name=\"IO\" Port=\"1024\"/></Interfaces>"
        "<Debuglog File=\"" +
        settings_.logFile + "\" Loglevel=\"1\"/></ZOLTConfig>");
    ASSERT_EQ(daemon_.start(), "status 0");
    EXPECT_EQ(daemon_.waitForEnd(), "status 0");
    EXPECT_FALSE(std::filesystem::exists(settings_.logFile));
    EXPECT_EQ(systemLog_.readNew(), std::vector<std::string>());
}

TEST_F(Configuration, OtherRootLeavesAllDefaults) {
    support::writeConfiguration("<Other><Debuglog File=\"" + settings_.logFile +
                                "\" Loglevel=\"1\"/></Other>");
    ASSERT_EQ(daemon_.start(), "status 0");
    // The three interfaces listen, on ports that the system chose.
    EXPECT_TRUE(support::waitUntil([] { return listeningSockets() == 3; }));
    EXPECT_TRUE(daemon_.running());
    EXPECT_FALSE(std::filesystem::exists(settings_.logFile));
    EXPECT_EQ(systemLog_.readNew(), std::vector<std::string>());
}

}  // namespace
