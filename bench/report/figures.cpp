#include "bench/report/figures.h"

namespace bench {
namespace {

std::string cardsText(unsigned cards) {
    return std::to_string(cards) + (cards == 1 ? " polled card" : " polled cards");
}

Section scans() {
    Section section{"Full scans", {}};
    for (const unsigned cards : kCards) {
        section.figures.push_back({scansKey(cards), cardsText(cards), "1/s", 0});
    }
    for (const unsigned cards : kShareCards) {
        const std::string key = scansKey(cards);
        section.figures.push_back(
            {key + ".wire", cardsText(cards) + ", of the wire's limit", "%", 1});
        section.figures.push_back(
            {key + ".bare", cardsText(cards) + ", of the bare loop's", "%", 1});
    }
    section.figures.push_back({"card.cost", "each further card", "us", 0});
    section.figures.push_back(
        {"exchange.cpu", "processor time of an exchange, 16 polled cards", "us", 0});
    section.figures.push_back(
        {scansKey(1) + ".unheld", "1 polled card, answers not held back", "1/s", 0});
    section.figures.push_back(
        {scansKey(16) + ".unheld", "16 polled cards, answers not held back", "1/s", 0});
    return section;
}

// A latency has two rows.
void addLatency(Section& section, const std::string& key, const std::string& text) {
    section.figures.push_back({key + ".p50", text + ", p50", "us", 0});
    section.figures.push_back({key + ".p99", text + ", p99", "us", 0});
}

Section changes() {
    Section section{"Input change to line at the client", {}};
    addLatency(section, "change.1", "1 polled card");
    addLatency(section, "change.16", "16 polled cards");
    addLatency(section, "change.1.unheld", "1 polled card, answers not held back");
    section.figures.push_back(
        {"change.1.beyond", "1 polled card, p50, beyond an exchange of the bare loop", "us", 0});
    section.figures.push_back({"reports.lost", "lost reports", "", 0, true});
    return section;
}

Section commands() {
    Section section{"Command in to last byte at the card", {}};
    addLatency(section, "command.quiet", "no polled card");
    addLatency(section, "command.quiet.port", "no polled card, to the adapter's port");
    addLatency(section, "command.15", "15 polled cards");
    addLatency(section, "command.quiet.unheld", "no polled card, answers not held back");
    addLatency(section, "answer", "card's answer to the client");
    return section;
}

Section throughput() {
    return {"Commands",
            {{"single.rate", "one at a time, the next when the card has answered", "1/s", 0},
             {"single.heard", "one at a time, the next when the client has the answer", "1/s", 0},
             {"flood.rate", "flood", "1/s", 0},
             {"flood.unheld", "flood, answers not held back", "1/s", 0},
             {"commands.sent", "sent in all", "", 0, true},
             {"commands.lost", "lost commands", "", 0, true},
             {"single.default.cpu", "processor time of 1000, one at a time, default speed", "s", 3},
             {"single.cpu", "  the same, 100 %, cycles included", "s", 3},
             {"flood.cpu", "processor time of 1000, as a flood, 100 %, cycles included", "s", 3}}};
}

std::string restText(const std::string& bus, const std::string& speed) {
    const std::string where = bus == "none"    ? "no adapter"
                              : bus == "empty" ? "empty bus"
                              : bus == "quiet" ? "16 cards, polling switched off"
                                               : "16 polled cards";
    return where + ", " + (speed == "full" ? "100 %" : "default speed");
}

Section rest() {
    Section section{"Processor at rest, in per cent of one core", {}};
    for (const char* speed : kRestSpeeds) {
        for (const char* bus : kRestBuses) {
            const std::string key = std::string("rest.") + bus + "." + speed;
            section.figures.push_back({key + ".cpu", restText(bus, speed), "%", 2});
        }
        section.figures.push_back(
            {std::string("rest.quiet.") + speed + ".cpu", restText("quiet", speed), "%", 2});
        const std::string key = std::string("rest.sixteen.") + speed;
        section.figures.push_back(
            {key + ".busywait", "  of which the busy wait, by the bare loop", "%", 2});
        section.figures.push_back(
            {key + ".held", "    of which while the card holds its answer", "%", 2});
        section.figures.push_back({key + ".above", "  above the busy wait", "%", 2});
    }
    return section;
}

Section holdings() {
    return {"At rest",
            {{"memory.resident", "resident memory, empty bus", "KiB", 0},
             {"memory.private", "  of which private", "KiB", 0},
             {"memory.sixteen.resident", "resident memory, 16 polled cards", "KiB", 0},
             {"memory.sixteen.private", "  of which private", "KiB", 0},
             {"threads", "threads", "", 0}}};
}

Section start() {
    return {"Start",
            {{"start.served", "to the first served client", "s", 2},
             {"start.discovered", "to the discovered bus", "s", 2},
             {"link.losses", "link losses, all in all", "", 0, true},
             {"answers.missed", "  of which although the answer was there in time", "", 0, true}}};
}

}  // namespace

std::vector<Section> sections() {
    return {scans(), changes(), commands(), throughput(), rest(), holdings(), start()};
}

std::string scansKey(unsigned cards) {
    return "scans." + std::to_string(cards);
}

std::string speedKey(int percent, const std::string& what) {
    return "speed." + std::to_string(percent) + "." + what;
}

}  // namespace bench
