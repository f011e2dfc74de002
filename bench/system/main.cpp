// zolt-bench: measures daemons, a bare loop and gateways on the same simulated bus,
// prints the table and writes it as JSON. tools/bench builds and starts it.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <set>

#include "bench/report/json_report.h"
#include "bench/report/table.h"
#include "bench/system/contestants/gateway.h"
#include "bench/system/run.h"
#include "tests/support/files.h"
#include "tests/support/process/daemon_process.h"

namespace {

struct Options {
    bool quick = false;
    unsigned rounds = 0;
    std::vector<std::string> daemons;
    std::string json;
    bench::Crowd crowd;
};

// `text` is "NAME=PATH", or "PATH" alone, and then the file's name is the label. A name has
// no slash.
bench::Contestant daemonNamed(const std::string& text) {
    const auto separator = text.find('=');
    if (separator == std::string::npos || text.find('/') < separator) {
        const auto path = std::filesystem::absolute(text);
        return {path.filename(), bench::Role::kDaemon, path};
    }
    return {text.substr(0, separator), bench::Role::kDaemon,
            std::filesystem::absolute(text.substr(separator + 1))};
}

std::vector<bench::Contestant> contestantsFor(const Options& options) {
    std::vector<bench::Contestant> all;
    for (const std::string& text : options.daemons) all.push_back(daemonNamed(text));
    if (all.empty()) {
        all.push_back({"zolt", bench::Role::kDaemon, support::DaemonProcess::defaultProgram()});
    }
    all.push_back({"bare loop", bench::Role::kBareLoop, ZOLT_BARE_LOOP});
    if (options.crowd.any()) return all;
    all.push_back({"ser2net tuned", bench::Role::kTunedGateway, bench::kGatewayProgram});
    all.push_back({"ser2net as shipped", bench::Role::kShippedGateway, bench::kGatewayProgram});
    return all;
}

// Columns and values have a contestant's label. Empty when all labels are different.
std::string labelGivenTwice(const std::vector<bench::Contestant>& contestants) {
    std::set<std::string> labels;
    for (const bench::Contestant& contestant : contestants) {
        if (!labels.insert(contestant.label).second) return contestant.label;
    }
    return "";
}

int measure(const Options& options) {
    bench::Effort effort = options.quick ? bench::quickEffort() : bench::Effort();
    if (options.rounds > 0) effort.rounds = options.rounds;
    const auto contestants = contestantsFor(options);
    const std::string twice = labelGivenTwice(contestants);
    if (!twice.empty()) {
        std::cerr << "zolt-bench: two contestants are named \"" << twice
                  << "\"; give them names by --daemon NAME=PATH\n";
        return 2;
    }
    const bench::Report report = bench::run(contestants, effort, options.crowd, std::cerr);
    std::cout << bench::table(report) << std::flush;
    if (!options.json.empty()) support::writeFile(options.json, bench::toJson(report));
    if (report.brokenOff.empty()) return 0;
    std::cerr << "zolt-bench: broken off: " << report.brokenOff << "\n";
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Measures zolt on a simulated card bus.", "zolt-bench");
    app.add_flag("--quick", options.quick, "one short round: whether everything works");
    app.add_option("--rounds", options.rounds, "how many rounds")->check(CLI::Range(1U, 100U));
    app.add_option("--daemon", options.daemons, "the daemon, [NAME=]PATH; may come several times")
        ->allow_extra_args(false);
    app.add_flag("--one-core", options.crowd.oneProcessor, "everything on one processor");
    app.add_option("--beside", options.crowd.neighbours, "beside so many busy processes")
        ->check(CLI::Range(1U, 100U));
    app.add_option("--json", options.json, "where the values go")->take_last();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    try {
        return measure(options);
    } catch (const std::exception& error) {
        std::cerr << "zolt-bench: " << error.what() << "\n";
        return 1;
    }
}
