#include "tests/reliability/accounts/diary.h"

#include <array>
#include <cstdio>

namespace reliability {
namespace {

constexpr std::size_t kChapters = 4;

}  // namespace

void Diary::begin(const std::string& chapter) {
    chapters_.push_back({chapter, {}});
    if (chapters_.size() > kChapters) chapters_.pop_front();
}

void Diary::note(const std::string& text) {
    if (paused_ || chapters_.empty()) return;
    auto& entries = chapters_.back().entries;
    if (!entries.empty() && entries.back().text == text) {
        ++entries.back().times;
    } else {
        entries.push_back({now(), text, 1});
    }
}

void Diary::write(std::ostream& out) const {
    for (const Chapter& chapter : chapters_) {
        out << chapter.title << "\n";
        for (const Entry& entry : chapter.entries) {
            std::array<char, 32> time{};
            std::snprintf(time.data(), time.size(), "%10.3f  ", entry.seconds);
            out << time.data() << entry.text;
            if (entry.times > 1) out << " (" << entry.times << " times)";
            out << "\n";
        }
    }
}

double Diary::now() const {
    return std::chrono::duration<double>(support::Clock::now() - begin_).count();
}

}  // namespace reliability
