// The real daemon on ports and with a line end that zoltctl learns in one way
// alone: by options, by variables, or from a configuration that either names.
#include <filesystem>

#include "tests/zoltctl/daemon_test.h"
#include "tests/zoltctl/fake_test.h"

namespace {

using ctl_test::joined;
using ctl_test::Outcome;
using ctl_test::ZoltctlProcess;

std::string otherFile() {
    return support::workFolder() / "other.xml";
}

struct Way {
    const char* name;
    std::vector<std::string> options;
    std::vector<std::string> variables;
};

void PrintTo(const Way& way, std::ostream* stream) {
    *stream << way.name;
}

std::string nameOfWay(const ::testing::TestParamInfo<Way>& way) {
    return way.param.name;
}

class DaemonFound : public DaemonTest, public ::testing::WithParamInterface<Way> {
  protected:
    void SetUp() override {
        DaemonTest::SetUp();
        // zoltctl would not try this separator by itself.
        settings_.cae.inSeparator = settings_.io.inSeparator = ";";
        start();
        std::filesystem::copy_file(support::kConfigurationFile, otherFile());
        std::filesystem::remove(support::kConfigurationFile);
    }
    static ctl_test::Surroundings surroundings() { return {.environment = GetParam().variables}; }
    static Outcome runThere(const std::vector<std::string>& arguments) {
        return ctl_test::run(joined(arguments, GetParam().options), surroundings());
    }
};

TEST_P(DaemonFound, OnAllThreePorts) {
    ZoltctlProcess monitor(joined({"--json", "monitor", "--count", "1"}, GetParam().options),
                           surroundings());
    ASSERT_TRUE(logged("client is connected on MON interface"));
    expectOutcome(runThere({"--json", "--no-check", "set", "5", "1", "FB"}), 0,
                  R"({"address":"5","block":1,"value":251,"hex":"FB","checked":false})"
                  "\n");
    EXPECT_TRUE(reached("card 5 digital-output: FF FB")) << sim_->traceTail(10);
    expectOutcome(runThere({"version"}), 0, "driver version 1.20\n");
    auto shown = monitor.waitForEnd();
    constexpr std::size_t kTime =
        std::string_view(R"({"time":"2026-11-21T14:03:07.123+00:00")").size();
    shown.output.erase(0, kTime);
    expectOutcome(shown, 0, ",\"line\":\"a5b1dFB\"}\n");
}

INSTANTIATE_TEST_SUITE_P(
    By, DaemonFound,
    ::testing::Values(Way{"options",
                          {"--host", "localhost", "--cae-port=5001", "--io-port", "5002",
                           "--mon-port", "5003", "--line-end", ";", "--timeout", "30"},
                          {}},
                      Way{"variables",
                          {},
                          {"ZOLT_HOST=localhost", "ZOLT_CAE_PORT=5001", "ZOLT_IO_PORT=5002",
                           "ZOLT_MON_PORT=5003", "ZOLT_LINE_END=;", "ZOLT_TIMEOUT=30"}},
                      Way{"configuration_of_an_option", {"--config", otherFile()}, {}},
                      Way{"configuration_of_a_variable", {}, {"ZOLT_CONFIG=" + otherFile()}}),
    nameOfWay);

}  // namespace
