#include "tests/unit/bench/sample_report.h"

#include "bench/report/figures.h"

bench::Report sampleReport() {
    using bench::Role;
    bench::Report report;
    report.date = "2026-11-21 07:07:17";
    report.rounds = 2;
    report.seconds = 34;
    report.machine = {"Some Processor", 2, "Linux 6.1", "as they come"};
    report.noise = {0.01, 0.02, 0.3, 0.4};
    report.lateness = {1000, 2, 30};
    report.linkLosses = {{1, "commands", "zolt", 2, true}, {2, "rest", "zolt", 1, false}};
    report.contestants = {{"zolt", Role::kDaemon, "/bin/zolt"},
                          {"bare", Role::kBareLoop, "/bin/bare"},
                          {"tuned", Role::kTunedGateway, "/bin/gateway"},
                          {"shipped", Role::kShippedGateway, "/bin/gateway"}};
    const auto add = [&](const char* figure, const char* label, double first, double second) {
        report.results.add(figure, label, first);
        report.results.add(figure, label, second);
    };
    add("scans.1", "zolt", 4000, 4200);
    add("scans.1", "bare", 4000, 5000);
    add("scans.16", "zolt", 250, 250);
    add("scans.16", "bare", 250, 400);
    add("command.quiet.p50", "zolt", 200, 300);
    add("command.quiet.p50", "tuned", 200, 200);
    add("commands.lost", "zolt", 1, 1);
    add("rest.sixteen.default.exchanges", "zolt", 3000, 2000);
    add("exchange.cpu", "bare", 100, 200);
    add("rest.sixteen.default.cpu", "zolt", 32, 46);
    add("change.1.p50", "zolt", 300, 320);
    for (const int percent : bench::kSpeeds) {
        report.results.add(bench::speedKey(percent, "scans"), "zolt", percent);
        report.results.add(bench::speedKey(percent, "p50"), "zolt", 500);
        report.results.add(bench::speedKey(percent, "cpu"), "zolt", 12.34);
    }
    bench::addDerived(report);
    return report;
}
