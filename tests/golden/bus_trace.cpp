#include "tests/golden/bus_trace.h"

#include <sstream>

namespace golden {
namespace {

// The words of the trace line of a frame are "host>", the length, "|" and the payload.
constexpr std::size_t kTypeWord = 3;
constexpr std::size_t kAddressWord = 4;
constexpr const char* kPollType = "20";

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

Item busItem(const std::string& frame) {
    return {"bus", ItemKind::kLine, frame};
}

}  // namespace

std::vector<Item> BusTrace::read(const std::string& line) {
    auto words = wordsOf(line);
    if (words.size() < 2) return {};
    words.erase(words.begin());  // the time
    if (words[0] == "host>") return request(joined(words));
    if (words[0] == "bus>" || words[0] == "raw>") return answer(joined(words));
    if (words[0] == "card") {
        const auto start = line.find("card ") + 5;
        return {{"card", ItemKind::kLine, line.substr(start)}};
    }
    return {};
}

std::vector<Item> BusTrace::request(const std::string& frame) {
    // Only the next request shows that a poll got no answer.
    auto items = endPoll();
    const auto words = wordsOf(frame);
    polling_ = words.size() > kAddressWord && words[kTypeWord] == kPollType;
    if (polling_) {
        pollEnded_ = false;
        poll_ = {frame, ""};
    } else {
        items.push_back(busItem(frame));
    }
    return items;
}

std::vector<Item> BusTrace::answer(const std::string& frame) {
    if (!polling_) return {busItem(frame)};
    if (pollEnded_) return {};
    poll_.answer += (poll_.answer.empty() ? "" : "\n") + frame;
    // A frame that follows noise is still part of the answer.
    return frame.starts_with("bus>") ? endPoll() : std::vector<Item>();
}

std::vector<Item> BusTrace::endPoll() {
    if (!polling_ || pollEnded_) return {};
    pollEnded_ = true;
    if (!pollsShown_) return {};
    auto& last = shown_[wordsOf(poll_.request)[kAddressWord]];
    if (last == poll_) return {};
    last = poll_;
    std::vector<Item> items = {busItem(poll_.request)};
    std::istringstream answers(poll_.answer);
    for (std::string answer; std::getline(answers, answer);) items.push_back(busItem(answer));
    return items;
}

}  // namespace golden
