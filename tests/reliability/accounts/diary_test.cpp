#include "tests/reliability/accounts/diary.h"

#include <gtest/gtest.h>

#include <sstream>

namespace reliability {
namespace {

// The text without the times.
std::string written(const Diary& diary) {
    std::ostringstream out;
    diary.write(out);
    std::istringstream lines(out.str());
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        text += line.starts_with(" ") ? "- " + line.substr(12) + "\n" : line + "\n";
    }
    return text;
}

TEST(Diary, ListsEachNoteUnderItsChapterAndCountsTheSameInARow) {
    Diary diary;
    diary.begin("storm 1");
    for (const char* text : {"flood", "flood", "unplug", "flood"}) diary.note(text);
    diary.begin("calm 1");
    diary.note("unplug");
    EXPECT_EQ(written(diary), "storm 1\n- flood (2 times)\n- unplug\n- flood\ncalm 1\n- unplug\n");
}

TEST(Diary, KeepsTheLastFourChapters) {
    Diary diary;
    for (const char* title : {"one", "two", "three", "four", "five"}) {
        diary.begin(title);
        diary.note("in " + std::string(title));
    }
    EXPECT_EQ(written(diary),
              "two\n- in two\nthree\n- in three\nfour\n- in four\nfive\n- in five\n");
}

TEST(Diary, ForgetsWhatIsNotedWhileItPauses) {
    Diary diary;
    diary.begin("calm");
    diary.pause(true);
    diary.note("traffic");
    diary.pause(false);
    diary.note("afterwards");
    EXPECT_EQ(written(diary), "calm\n- afterwards\n");
}

}  // namespace
}  // namespace reliability
