#include <gtest/gtest.h>

#include <regex>

#include "apps/zolt-sim/cards/card_kinds.h"
#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/options.h"
#include "tests/completeness/source_words.h"

namespace completeness {
namespace {

constexpr const char* kDocument = "docs/simulated-bus.md";
constexpr const char* kManualPage = "apps/zolt-sim/zolt-sim.1.scd";

void expectIn(const std::string& path, const std::string& text) {
    EXPECT_NE(sourceFile(path).find(text), std::string::npos) << path << " lacks " << text;
}

TEST(SimulatedKinds, AreInTheDocumentsTheBusFileAndTheFuzzers) {
    for (const zolt_sim::CardKind& kind : zolt_sim::cardKinds()) {
        const std::string name(kind.name);
        const std::string entry = " " + name + "\n";
        expectIn(kDocument, entry);
        expectIn(kManualPage, entry);
        expectIn("apps/zolt-sim/buses/all-kinds.bus", entry);
        expectIn("fuzz/dictionaries/sim_bus_file.dict", "\"" + name + "\"");
        expectIn("fuzz/targets/sim_control.cpp", " " + name + "\\n");
    }
}

TEST(SimulatorControls, AreInTheDocumentsAndTheFuzzersDictionary) {
    for (const std::string& line : zolt_sim::controlHelp()) {
        const std::string word = line.substr(0, line.find(' '));
        expectIn(kDocument, "`" + word);
        expectIn(kManualPage, "*" + word + "*");
        expectIn("fuzz/dictionaries/sim_control.dict", "\"" + word);
    }
}

TEST(SimulatorOptions, AreInTheDocuments) {
    const std::string help = zolt_sim::parseOptions({"--help"}).text;
    const std::regex option("\n  (--[a-z-]+)");
    int options = 0;
    for (std::sregex_iterator match(help.begin(), help.end(), option), end; match != end; ++match) {
        expectIn(kDocument, "`" + match->str(1));
        expectIn(kManualPage, "*" + match->str(1) + "*");
        ++options;
    }
    EXPECT_GE(options, 9) << help;
}

}  // namespace
}  // namespace completeness
