#include "tests/zolt-check/check_program_test.h"

#include <sys/stat.h>

#include <array>
#include <nlohmann/json.hpp>

#include "tests/support/process/daemon_process.h"
#include "tests/support/process/system_log.h"

namespace {

using Json = nlohmann::json;

class Program : public CheckProgramTest {
  protected:
    const std::string warned_ = "<ZOLTConfig>\n<Sped/>\n" + clean_.substr(clean_.find("  <Debug"));
    static constexpr const char* kWarning =
        "/run/zolt-test/x.xml:2:2: warning: unknown element \"Sped\" is ignored (did you mean "
        "\"Speed\"?)\n";
    static constexpr const char* kError1 =
        "/run/zolt-test/x.xml:1:38: error: Port 80 is below 1025: zolt does not start and reads "
        "nothing after it; no log reports this, because no log file is set above this line\n";

    void expectWrongUse(const std::vector<std::string>& arguments, const std::string& reason) {
        EXPECT_EQ(run(arguments), "status 2");
        EXPECT_EQ(output(), "");
        EXPECT_EQ(error(), "zolt-check: " + reason + "\nzolt-check: see --help for the options\n");
    }
};

TEST_F(Program, ACleanFile) {
    EXPECT_EQ(run({write(clean_)}), "status 0");
    const std::string interface =
        ", lines from clients end in \"\\r\\n\", lines to clients in \"\\r\\n\", 2525 microseconds "
        "per cycle (50 %)\n";
    EXPECT_EQ(output(),
              "log file   /run/zolt-test/zolt.log\n"
              "log level  1\n"
              "speed      2525 microseconds per cycle (50 %)\n"
              "polling    off\n"
              "discovery  off\n"
              "CAE        port 5001" +
                  interface + "IO         port 5002" + interface + "MON        port 5003" +
                  interface + "/run/zolt-test/x.xml: clean\n");
    EXPECT_EQ(error(), "");
}

TEST_F(Program, TheShippedSampleIsClean) {
    std::string sample = support::readFile(ZOLT_SAMPLE_CONFIGURATION);
    const std::string log = "/var/log/zolt";
    const auto at = sample.find(log);
    ASSERT_NE(at, std::string::npos);
    sample.replace(at, sample.find('"', at) - at, "/run/zolt-test/zolt.log");
    EXPECT_EQ(run({write(sample), "--quiet"}), "status 0");
    EXPECT_EQ(output(), "");
}

TEST_F(Program, AFileWithWarnings) {
    EXPECT_EQ(run({write(warned_)}), "status 1");
    EXPECT_NE(output().find("\n" + std::string(kWarning) +
                            "/run/zolt-test/x.xml: zolt would start, with 1 warning\n"),
              std::string::npos)
        << output();
    EXPECT_EQ(error(), "");
}

TEST_F(Program, AFileThatIsRefused) {
    EXPECT_EQ(run({write(refused_)}), "status 2");
    EXPECT_NE(output().find(kError1), std::string::npos) << output();
    EXPECT_NE(output().find("/run/zolt-test/x.xml: zolt would not start\n"), std::string::npos);
    EXPECT_EQ(error(), "");
}

TEST_F(Program, QuietPrintsOnlyFindings) {
    EXPECT_EQ(run({"--quiet", write(warned_)}), "status 1");
    EXPECT_EQ(output(), kWarning);
}

TEST_F(Program, ErrorsOnlyLeavesWarningsOutOfTheStatus) {
    EXPECT_EQ(run({"--errors-only", "--quiet", write(warned_)}), "status 0");
    EXPECT_EQ(output(), kWarning);
    EXPECT_EQ(run({"--errors-only", "--quiet", write(refused_)}), "status 2");
    EXPECT_NE(output().find(kError1), std::string::npos);
}

TEST_F(Program, Json) {
    EXPECT_EQ(run({"--json", write(warned_)}), "status 1");
    const Json json = Json::parse(output());
    EXPECT_EQ(json.at("file"), "/run/zolt-test/x.xml");
    EXPECT_EQ(json.at("status"), 1);
    EXPECT_EQ(json.at("settings").at("interfaces").at("IO").at("listensOn"), 5002);
    EXPECT_EQ(json.at("findings"),
              Json::parse(R"json([{"severity": "warning", "line": 2, "column": 2,
        "text": "unknown element \"Sped\" is ignored (did you mean \"Speed\"?)"}])json"));
    EXPECT_EQ(run({"--json", "--errors-only", write(warned_)}), "status 0");
    EXPECT_EQ(Json::parse(output()).at("status"), 0);
    EXPECT_EQ(run({"--json", "--quiet", write(refused_)}), "status 2");
    EXPECT_FALSE(Json::parse(output()).contains("settings"));
}

TEST_F(Program, TheDaemonsFileIsTheDefault) {
    EXPECT_EQ(run({"--quiet"}), "status 2");
    EXPECT_EQ(output(),
              "/etc/zolt/zoltconf.xml:1:1: error: the file cannot be read: No such file or "
              "directory; zolt does not start\n");
    support::writeConfiguration(clean_);
    EXPECT_EQ(run({"--quiet"}), "status 0");
    EXPECT_EQ(output(), "");
}

TEST_F(Program, Version) {
    EXPECT_EQ(run({"--version"}), "status 0");
    EXPECT_EQ(output(), "zolt-check " ZOLT_VERSION "\n");
}

TEST_F(Program, Help) {
    EXPECT_EQ(run({"--help"}), "status 0");
    EXPECT_NE(output().find("\nUsage: zolt-check [OPTIONS] [FILE]\n"), std::string::npos);
    for (const char* option : {"--json", "--quiet", "--errors-only", "--version", "--help"}) {
        EXPECT_NE(output().find("\n  " + std::string(option) + " "), std::string::npos) << option;
    }
    EXPECT_EQ(error(), "");
}

TEST_F(Program, WrongUse) {
    expectWrongUse({"--nonsense"}, "The following argument was not expected: --nonsense");
    expectWrongUse({"a.xml", "b.xml"}, "The following argument was not expected: b.xml");
}

TEST_F(Program, OutputThatCannotBeWritten) {
    const std::string file = write(clean_);
    const std::vector<std::vector<std::string>> uses{
        {file}, {"--json", file}, {"--help"}, {"--version"}};
    for (const auto& arguments : uses) {
        EXPECT_EQ(run(arguments, "/dev/full"), "status 2");
        EXPECT_EQ(error(), "zolt-check: cannot write the output: No space left on device\n");
    }
}

TEST_F(Program, AReaderThatHasLeft) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const zolt_os::Descriptor writeEnd(ends[1]);
    ::close(ends[0]);
    EXPECT_EQ(run({write(clean_)}, "/proc/self/fd/" + std::to_string(writeEnd.get())), "status 2");
    EXPECT_EQ(error(), "zolt-check: cannot write the output: Broken pipe\n");
}

TEST_F(Program, StandardInputAsFile) {
    const zolt_os::Descriptor input(::open(write(warned_).c_str(), O_RDONLY));
    support::StandardStreams streams;
    streams.input = input.get();
    const auto end =
        support::reap(support::spawn({ZOLT_CHECK_PROGRAM, "--quiet", "/dev/stdin"}, streams));
    ASSERT_TRUE(end.has_value());
    EXPECT_EQ(support::describeWaitStatus(*end), "status 1");
}

TEST_F(Program, AFolder) {
    EXPECT_EQ(run({"--quiet", "/run/zolt-test"}), "status 2");
    EXPECT_EQ(output(),
              "/run/zolt-test:1:1: error: the file cannot be read: Is a directory; zolt does not "
              "start\n");
}

TEST_F(Program, TheSystemLogStaysSilent) {
    support::SystemLog systemLog;
    for (const std::string& text : {clean_, refused_, std::string(), std::string("<ZOLTConfig>")}) {
        run({write(text)});
    }
    run({"/run/zolt-test/missing.xml"});
    EXPECT_EQ(systemLog.readNew(), std::vector<std::string>());
}

TEST_F(Program, TheLogFileIsNotCreated) {
    EXPECT_EQ(run({write(clean_)}), "status 0");
    EXPECT_FALSE(std::filesystem::exists("/run/zolt-test/zolt.log"));
}

}  // namespace
