#include "bench/report/json_report.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

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

// The figures whose rounds are added up.
std::set<std::string> totals() {
    std::set<std::string> keys;
    for (const Section& section : sections()) {
        for (const Figure& figure : section.figures) {
            if (figure.total) keys.insert(figure.key);
        }
    }
    return keys;
}

// A result is kept and passed on: where the programs lay is the machine's affair.
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
    json["machine"] = nlohmann::json(report.machine);
    json["noise"] = nlohmann::json(report.noise);
    json["lateness"] = nlohmann::json(report.lateness);
    json["linkLosses"] = nlohmann::json(report.linkLosses);
    json["contestants"] = nlohmann::json(withoutFolders(report.contestants));
    json["targets"] = verdictsOf(report);
    json["figures"] = figuresOf(report.results);
    return json.dump(1, ' ') + "\n";
}

Report fromJson(const std::string& text) {
    try {
        const auto json = nlohmann::json::parse(text);
        Report report;
        json.at("date").get_to(report.date);
        json.at("rounds").get_to(report.rounds);
        json.at("seconds").get_to(report.seconds);
        json.at("brokenOff").get_to(report.brokenOff);
        json.at("machine").get_to(report.machine);
        json.at("noise").get_to(report.noise);
        json.at("lateness").get_to(report.lateness);
        json.at("linkLosses").get_to(report.linkLosses);
        json.at("contestants").get_to(report.contestants);
        for (const auto& [figure, byContestant] : json.at("figures").items()) {
            for (const auto& [contestant, values] : byContestant.items()) {
                for (const double value : values.at("rounds")) {
                    report.results.add(figure, contestant, value);
                }
            }
        }
        return report;
    } catch (const nlohmann::json::exception& error) {
        throw std::runtime_error(std::string("this is no result of a measurement: ") +
                                 error.what());
    }
}

}  // namespace bench
