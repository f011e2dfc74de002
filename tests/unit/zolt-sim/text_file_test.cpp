#include "apps/zolt-sim/text_file.h"

#include <gtest/gtest.h>

#include <vector>

#include "apps/zolt-sim/error.h"
#include "tests/unit/zolt-sim/complaint_of.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

std::vector<std::string> entriesOf(const std::string& text) {
    std::vector<std::string> entries;
    forEachEntry(text, "x.bus", [&](const std::string& entry) { entries.push_back(entry); });
    return entries;
}

TEST(TextFile, IsReadAsAWhole) {
    const test::Folder folder;
    EXPECT_EQ(readTextFile(folder.write("file", "one\r\n\ntwo")), "one\r\n\ntwo");
}

TEST(TextFile, ThatCannotBeReadIsNamed) {
    const test::Folder folder;
    const std::string path = folder.file("none");
    EXPECT_EQ(complaintOf([&] { readTextFile(path); }), path + ": No such file or directory");
    EXPECT_EQ(complaintOf([&] { readTextFile(folder.file("")); }),
              folder.file("") + ": is a directory");
}

TEST(TextFile, ThatHasNoEndIsRefused) {
    EXPECT_EQ(complaintOf([] { readTextFile("/dev/zero"); }), "/dev/zero: is larger than 16 MiB");
}

TEST(Entries, HaveNeitherCommentsNorBlanksAtTheirEnds) {
    EXPECT_EQ(entriesOf("# one\n\n  3 servo  # the arm\r\n\t\nmissing silent"),
              (std::vector<std::string>{"3 servo", "missing silent"}));
    EXPECT_TRUE(entriesOf("").empty());
}

TEST(Entries, GiveAMistakeItsPlace) {
    EXPECT_EQ(complaintOf([] {
                  forEachEntry("good\n# comment\nbad\n", "x.bus", [](const std::string& entry) {
                      if (entry == "bad") {
                          throw Error("the reason");
                      }
                  });
              }),
              "x.bus:3: the reason");
}

}  // namespace
}  // namespace zolt_sim
