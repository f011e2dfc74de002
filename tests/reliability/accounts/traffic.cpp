#include "tests/reliability/accounts/traffic.h"

#include <array>
#include <cctype>
#include <string_view>

namespace reliability {
namespace {

// Every item ends in its separator and one more carriage return.
constexpr std::string_view kItemEnd = "\r\n\r";
// The limit keeps items of the monitor below their 254 bytes.
constexpr std::size_t kLongestLine = 250;
// The number of commands that are under way to the cards at a time.
constexpr std::size_t kCommandsUnderWay = 400;
constexpr unsigned kAnalogueCard = 0xF;
// A discovery sets servos to 80 and digital outputs to FF. Other cards keep the values that
// the daemon has for them.
constexpr std::array kPresetCards{0x0U, 0x5U};

// Takes the complete items from the start of `text`.
std::vector<std::string> takeItems(std::string& text) {
    std::vector<std::string> items;
    std::size_t start = 0;
    for (auto end = text.find(kItemEnd); end != std::string::npos;
         end = text.find(kItemEnd, start)) {
        items.push_back(text.substr(start, end - start));
        start = end + kItemEnd.size();
    }
    text.erase(0, start);
    return items;
}

unsigned hexDigit(char digit) {
    return static_cast<unsigned>(std::stoul(std::string(1, digit), nullptr, 16));
}

// The card of a report such as "a3b0d40"; a number that no card has otherwise.
unsigned reportingCard(const std::string& report) {
    constexpr unsigned kNone = 16;
    const bool formed = report.size() == 7 && report[0] == 'a' &&
                        std::isxdigit(static_cast<unsigned char>(report[1])) != 0;
    return formed ? hexDigit(report[1]) : kNone;
}

Tally sum(const std::map<unsigned, Ledger>& ledgers) {
    Tally tally;
    for (const auto& [card, ledger] : ledgers) tally += ledger.tally();
    return tally;
}

std::size_t underWay(const std::map<unsigned, Ledger>& ledgers) {
    std::size_t count = 0;
    for (const auto& [card, ledger] : ledgers) count += ledger.underWay();
    return count;
}

}  // namespace

const char* const kTrafficBus =
    "0 servo\n1 digital-input\n2 digital-input\n3 digital-input\n4 digital-input\n"
    "5 digital-output\n6 digital-input\n7 digital-input\n8 keymatrix\n9 ir\nA motor\n"
    "B digital-input\nC digital-input\nD silent\nE lcd\nF analogue-input\n";

bool Traffic::Result::exact() const {
    return commands.exact() && reportsAtIo.exact() && reportsAtMon.exact() && linesAtMon.exact();
}

bool Traffic::Result::linkLossExplains(std::size_t losses, bool rediscovers) const {
    if (losses == 0 || commands.lost > losses || reportsAtIo.lost != reportsAtMon.lost ||
        linesAtMon.lost > 0) {
        return false;
    }
    for (const Tally* tally : {&commands, &reportsAtIo, &reportsAtMon, &linesAtMon}) {
        if (tally->doubled > 0 || tally->outOfOrder > 0) return false;
    }
    const std::size_t madeUp = rediscovers ? presetFrames : 0;
    return commands.unknown <= madeUp && reportsAtIo.unknown == 0 && reportsAtMon.unknown == 0 &&
           linesAtMon.unknown == 0;
}

Traffic::Traffic(BusWatch& bus, NonBlockingClient& io, NonBlockingClient& mon, const Plan& plan)
    : bus_(bus),
      io_(io),
      mon_(mon),
      plan_(plan),
      next_(outputs_.next()),
      analogue_(bus, kAnalogueCard, plan.readings) {
    for (const unsigned address : {1U, 2U, 3U, 4U, 6U, 7U, 0xBU, 0xCU}) {
        cards_.emplace_back(address, InputCard::Kind::kDigital);
    }
    cards_.emplace_back(8U, InputCard::Kind::kKeyMatrix);
    expectReports(kAnalogueCard, analogue_.refill());
}

bool Traffic::step() {
    // Every part has to run, so the results are combined afterwards.
    const bool frames = takeFrames();
    const bool io = takeIo();
    const bool mon = takeMon();
    const bool commands = feedCommands();
    const bool inputs = feedInputs();
    return frames || io || mon || commands || inputs;
}

bool Traffic::done() const {
    return commandsSent_ == plan_.commands && changesMade_ >= plan_.changes &&
           underWay(frames_) == 0 && underWay(atIo_) == 0 && underWay(atMon_) == 0 &&
           lines_.underWay() == 0;
}

void Traffic::close() {
    for (auto* ledgers : {&frames_, &atIo_, &atMon_}) {
        for (auto& [card, ledger] : *ledgers) ledger.close();
    }
    lines_.close();
}

Traffic::Result Traffic::result() const {
    Result result{sum(frames_), sum(atIo_), sum(atMon_), lines_.tally()};
    for (const unsigned card : kPresetCards) {
        const auto frames = frames_.find(card);
        if (frames != frames_.end()) result.presetFrames += frames->second.tally().unknown;
    }
    return result;
}

bool Traffic::takeFrames() {
    const auto frames = bus_.takeOutputs();
    for (const auto& frame : frames) {
        // "10 05 ...": the second byte names the card.
        frames_[hexDigit(frame.at(4))].see(frame);
    }
    return !frames.empty();
}

bool Traffic::takeIo() {
    fromIo_ += io_.take();
    const auto items = takeItems(fromIo_);
    for (const auto& item : items) atIo_[reportingCard(item)].see(item);
    return !items.empty();
}

bool Traffic::takeMon() {
    fromMon_ += mon_.take();
    const auto items = takeItems(fromMon_);
    for (const auto& item : items) {
        // Reports come from input cards only, single commands go to the others.
        const auto from = atMon_.find(reportingCard(item));
        (from == atMon_.end() ? lines_ : from->second).see(item);
    }
    return !items.empty();
}

// A packet is sent only after the monitor has shown the previous one. The daemon has then
// read that one, so each packet stays a line of its own.
bool Traffic::feedCommands() {
    if (commandsSent_ == plan_.commands || lines_.underWay() > 0 ||
        underWay(frames_) >= kCommandsUnderWay) {
        return false;
    }
    std::string packet;
    while (commandsSent_ < plan_.commands) {
        if (packet.size() + next_.line.size() + 2 > kLongestLine) break;
        packet += next_.line + "\r\n";
        frames_[next_.card].send(next_.frame);
        next_ = outputs_.next();
        ++commandsSent_;
    }
    lines_.send(packet.substr(0, packet.size() - 2));
    io_.send(packet);
    return true;
}

bool Traffic::feedInputs() {
    bool changed = false;
    for (InputCard& card : cards_) {
        if (changesMade_ >= plan_.changes) break;
        if (reportsUnderWay(card.address()) > 0) continue;
        const auto reports = card.change(bus_);
        expectReports(card.address(), reports);
        changesMade_ += reports.size();
        changed = true;
    }
    expectReports(kAnalogueCard, analogue_.refill());
    return changed;
}

void Traffic::expectReports(unsigned card, const std::vector<std::string>& reports) {
    for (const auto& report : reports) {
        atIo_[card].send(report);
        atMon_[card].send(report);
    }
}

std::size_t Traffic::reportsUnderWay(unsigned card) const {
    const auto io = atIo_.find(card);
    const auto mon = atMon_.find(card);
    return (io == atIo_.end() ? 0 : io->second.underWay()) +
           (mon == atMon_.end() ? 0 : mon->second.underWay());
}

}  // namespace reliability
