#include "bench/report/json_report.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/unit/bench/sample_report.h"

namespace bench {
namespace {

TEST(JsonReport, HasMedianAndRoundsOfEachFigure) {
    const auto json = nlohmann::json::parse(toJson(sampleReport()));
    EXPECT_EQ(json["figures"]["scans.1"]["zolt"]["median"], 4100);
    EXPECT_EQ(json["figures"]["scans.1"]["zolt"]["rounds"], nlohmann::json({4000, 4200}));
    EXPECT_EQ(json["machine"]["processor"], "Some Processor");
    EXPECT_EQ(json["noise"]["worstSteal"], 0.02);
    EXPECT_EQ(json["lateness"]["p99"], 30);
    EXPECT_EQ(json["linkLosses"][0]["round"], 1);
    EXPECT_EQ(json["linkLosses"][0]["stretch"], "commands");
    EXPECT_EQ(json["linkLosses"][0]["contestant"], "zolt");
    EXPECT_EQ(json["linkLosses"][0]["losses"], 2);
    EXPECT_EQ(json["linkLosses"][0]["discarded"], true);
    EXPECT_EQ(json["brokenOff"], "");
    EXPECT_EQ(json["contestants"][3]["role"], "gateway as shipped");
    EXPECT_EQ(json["targets"][0]["met"], false);
}

TEST(JsonReport, AddsUpWhatIsCountedOverTheWholeRun) {
    const auto json = nlohmann::json::parse(toJson(sampleReport()));
    const auto lost = json["figures"]["commands.lost"]["zolt"];
    EXPECT_EQ(lost["sum"], 2);
    EXPECT_FALSE(lost.contains("median"));
    EXPECT_FALSE(json["figures"]["scans.1"]["zolt"].contains("sum"));
}

TEST(JsonReport, NamesProgramsWithoutTheirFolders) {
    const auto json = nlohmann::json::parse(toJson(sampleReport()));
    EXPECT_EQ(json["contestants"][1]["program"], "bare");
}

TEST(JsonReport, NamesTheCrowdOfABusyMachine) {
    Report report = sampleReport();
    EXPECT_FALSE(nlohmann::json::parse(toJson(report)).contains("crowd"));
    report.crowd = "one processor for everything";
    EXPECT_EQ(nlohmann::json::parse(toJson(report))["crowd"], "one processor for everything");
}

}  // namespace
}  // namespace bench
