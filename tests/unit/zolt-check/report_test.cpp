#include "apps/zolt-check/report.h"

#include <nlohmann/json.hpp>

#include "tests/unit/zolt-check/check_fixture.h"

namespace {

using zolt_check::ReportOptions;
using Json = nlohmann::json;

class Report : public CheckFixture {
  protected:
    std::string text(const std::string& file, const ReportOptions& options = {}) {
        return zolt_check::report("x.xml", checkText(file), options);
    }
    Json json(const std::string& file, ReportOptions options = {}) {
        options.json = true;
        return Json::parse(text(file, options));
    }
    int status(const std::string& file, bool errorsOnly = false) {
        return zolt_check::exitStatus(checkText(file), errorsOnly);
    }

    const std::string clean_ =
        "<ZOLTConfig><Interfaces>" + std::string(kCae) + kIo + kMon + "</Interfaces></ZOLTConfig>";
    const std::string warned_ = R"(<ZOLTConfig><Debuglog File="/dev/null" Loglevel="3"/>
<Speed Percent="50"/><InitPollState Action="TRUE"/><AutoDiscover Action="true"/><Interfaces>
<I Name="CAE" Port="70000" InpSeparator="\n" OutSeparator="\r"/>
<I Name="IO" Port="4002"/></Interfaces></ZOLTConfig>)";
    const std::string refused_ = "<ZOLTConfig>\n";
};

TEST_F(Report, OfACleanFile) {
    const std::string pace = "5000 microseconds per cycle (1 %)\n";
    const std::string lines =
        R"(, lines from clients end in "\r\n", lines to clients in "\r\n", )" + pace;
    EXPECT_EQ(text(clean_),
              "log file   none\n"
              "log level  0\n"
              "speed      " +
                  pace +
                  "polling    off\n"
                  "discovery  off\n"
                  "CAE        port 4001" +
                  lines + "IO         port 4002" + lines + "MON        port 4003" + lines +
                  "x.xml: clean\n");
    EXPECT_EQ(text(clean_, {.json = false, .quiet = true, .errorsOnly = false}), "");
}

TEST_F(Report, OfAFileWithWarnings) {
    const std::string findings =
        "x.xml:1:40: warning: Loglevel 3 writes nothing and uses up one open file per message: use "
        "0 or 1\nx.xml:2:82: warning: interface \"MON\" is missing: it listens on a port that the "
        "system picks and sends no banner\nx.xml:3:15: warning: Port 70000 is above 65535: zolt "
        "uses its low 16 bits, port 4464\n";
    const std::string pace = "2525 microseconds per cycle (50 %)\n";
    const std::string lines = R"(, lines from clients end in "\r\n", lines to clients in "\r\n", )";
    EXPECT_EQ(text(warned_),
              "log file   /dev/null\n"
              "log level  3\n"
              "speed      " +
                  pace +
                  "polling    on\ndiscovery  on\nCAE        port 4464, lines from clients end in "
                  "\"\\n\", lines to clients in \"\\r\", " +
                  pace + "IO         port 4002" + lines + pace +
                  "MON        a port that the system picks" + lines +
                  "5000 microseconds per cycle (1 %)\n" + findings +
                  "x.xml: zolt would start, with 3 warnings\n");
    EXPECT_EQ(text(warned_, {.json = false, .quiet = true, .errorsOnly = false}), findings);
}

// For the daemon a negative pause is a long one.
TEST_F(Report, OfASpeedOutOfRange) {
    struct Row {
        const char* percent;
        const char* shown;
        const char* pause;
        const char* percentShown;
    };
    for (const Row& row : {Row{"0", "5050 microseconds per cycle (0 %)", "5050", "0"},
                           Row{"101", "71 minutes per cycle (101 %)", "4294967247", "101"},
                           Row{"200", "71 minutes per cycle (200 %)", "4294962248", "200"},
                           Row{"99999999999", "35 minutes per cycle", "2147483648", "null"},
                           Row{"-99999999999", "35 minutes per cycle", "2147483647", "null"}}) {
        SCOPED_TRACE(row.percent);
        const std::string file = "<ZOLTConfig><Speed Percent=\"" + std::string(row.percent) +
                                 "\"/><Interfaces>" + kCae + "</Interfaces></ZOLTConfig>";
        const std::string shown = text(file);
        EXPECT_NE(shown.find("\nspeed      " + std::string(row.shown) + "\n"), std::string::npos)
            << shown;
        EXPECT_NE(shown.find("lines to clients in \"\\r\\n\", " + std::string(row.shown) + "\nIO "),
                  std::string::npos)
            << shown;
        const Json settings = json(file).at("settings");
        for (const Json& part : {settings, settings.at("interfaces").at("CAE")}) {
            EXPECT_EQ(part.at("pause").dump(), row.pause);
            EXPECT_EQ(part.at("percent").dump(), row.percentShown);
        }
    }
}

TEST_F(Report, CountsOneWarning) {
    const std::string one = "<ZOLTConfig a=\"\">" + clean_.substr(12);
    EXPECT_NE(text(one).find("\nx.xml: zolt would start, with 1 warning\n"), std::string::npos);
}

TEST_F(Report, OfAFileThatIsRefused) {
    EXPECT_EQ(text(refused_),
              "x.xml:1:13: error: the file is not well-formed: Start-end tags mismatch; zolt does "
              "not start\nx.xml: zolt would not start\n");
}

TEST_F(Report, AsJson) {
    const Json report = json(warned_);
    EXPECT_EQ(report.at("file"), "x.xml");
    EXPECT_EQ(report.at("status"), 1);
    EXPECT_EQ(report.at("settings"), Json::parse(R"({
        "logFile": "/dev/null", "logLevel": 3, "pause": 2525, "percent": 50,
        "polling": true, "discovery": true, "interfaces": {
        "CAE": {"configured": true, "port": 70000, "listensOn": 4464, "inpSeparator": "\n",
                "outSeparator": "\r", "pause": 2525, "percent": 50},
        "IO": {"configured": true, "port": 4002, "listensOn": 4002, "inpSeparator": "\r\n",
               "outSeparator": "\r\n", "pause": 2525, "percent": 50},
        "MON": {"configured": false, "port": 0, "listensOn": null, "inpSeparator": "\r\n",
                "outSeparator": "\r\n", "pause": 5000, "percent": 1}}})"));
    ASSERT_EQ(report.at("findings").size(), 3U);
    EXPECT_EQ(report.at("findings")[0],
              Json::parse(R"({"severity": "warning", "line": 1, "column": 40, "text":
        "Loglevel 3 writes nothing and uses up one open file per message: use 0 or 1"})"));
    EXPECT_EQ(json(clean_).at("findings"), Json::array());
}

TEST_F(Report, AsJsonOfAFileThatIsRefused) {
    EXPECT_EQ(json(refused_), Json::parse(R"({"file": "x.xml", "status": 2, "settings": null,
        "findings": [{"severity": "error", "line": 1, "column": 13, "text":
        "the file is not well-formed: Start-end tags mismatch; zolt does not start"}]})"));
}

TEST_F(Report, AsJsonWithoutSettings) {
    EXPECT_EQ(json(clean_, {.json = true, .quiet = true, .errorsOnly = false}),
              Json::parse(R"({"file": "x.xml", "status": 0, "findings": []})"));
}

TEST_F(Report, AsJsonOfBytesThatAreNoUtf8) {
    const Json report = json("<ZOLTConfig><Debuglog File=\"/nowhere/\xFF\"/></ZOLTConfig>");
    EXPECT_EQ(report.at("settings").at("logFile"), "/nowhere/\xEF\xBF\xBD");
}

TEST_F(Report, TheStatus) {
    EXPECT_EQ(status(clean_), 0);
    EXPECT_EQ(status(warned_), 1);
    EXPECT_EQ(status(refused_), 2);
    EXPECT_EQ(status(warned_, true), 0);
    EXPECT_EQ(status(refused_, true), 2);
    EXPECT_EQ(json(warned_, {.json = true, .quiet = false, .errorsOnly = true}).at("status"), 0);
}

}  // namespace
