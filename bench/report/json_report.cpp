#include "bench/report/json_report.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "bench/report/figures.h"
#include "bench/report/statistics.h"
#include "bench/report/targets.h"

namespace bench {

using nlohmann::ordered_json;

NLOHMANN_JSON_SERIALIZE_ENUM(Role, {{Role::kDaemon, "daemon"},
                                    {Role::kBareLoop, "bare loop"},
                                    {Role::kTunedGateway, "tuned gateway"},
                                    {Role::kShippedGateway, "gateway as shipped"}})
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Machine, processor, processors, kernel, placement)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Noise, steal, worstSteal, otherLoad, worstOtherLoad)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Lateness, answers, p50, p99)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(LinkLoss, round, stretch, contestant, losses, discarded)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Contestant, label, role, program)

namespace {

// The keys of the figures whose rounds are added up.
std::set<std::string> totals() {
    std::set<std::string> keys;
    for (const Section& section : sections()) {
        for (const Figure& figure : section.figures) {
            if (figure.total) keys.insert(figure.key);
        }
    }
    return keys;
}

// A result is kept and passed on, so the folders of this machine stay out of it.
std::vector<Contestant> withoutFolders(std::vector<Contestant> contestants) {
    for (Contestant& contestant : contestants) {
        contestant.program = std::filesystem::path(contestant.program).filename().string();
    }
    return contestants;
}

ordered_json figuresOf(const Results& results) {
    const std::set<std::string> added = totals();
    ordered_json figures = ordered_json::object();
    for (const auto& [figure, byContestant] : results.all()) {
        for (const auto& [contestant, rounds] : byContestant) {
            ordered_json& values = figures[figure][contestant];
            if (added.contains(figure)) {
                values["sum"] = results.sum(figure, contestant);
            } else {
                values["median"] = median(rounds);
            }
            values["rounds"] = rounds;
        }
    }
    return figures;
}

ordered_json verdictsOf(const Report& report) {
    ordered_json all = ordered_json::array();
    for (const Verdict& verdict : verdicts(report)) {
        all.push_back({{"daemon", verdict.daemon},
                       {"figure", verdict.text},
                       {"target", verdict.limit},
                       {"value", verdict.value},
                       {"met", verdict.met}});
    }
    return all;
}

}  // namespace

std::string toJson(const Report& report) {
    ordered_json json;
    json["date"] = report.date;
    json["rounds"] = report.rounds;
    json["seconds"] = report.seconds;
    json["brokenOff"] = report.brokenOff;
    if (!report.crowd.empty()) json["crowd"] = report.crowd;
    json["machine"] = nlohmann::json(report.machine);
    json["noise"] = nlohmann::json(report.noise);
    json["lateness"] = nlohmann::json(report.lateness);
    json["linkLosses"] = nlohmann::json(report.linkLosses);
    json["contestants"] = nlohmann::json(withoutFolders(report.contestants));
    json["targets"] = verdictsOf(report);
    json["figures"] = figuresOf(report.results);
    return json.dump(1, ' ') + "\n";
}

}  // namespace bench
