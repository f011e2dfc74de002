#include <sys/stat.h>
#include <unistd.h>

#include "tests/unit/zolt-check/check_fixture.h"

namespace {

class Loading : public CheckFixture {
  protected:
    void expectUnloadable(const std::string& path, const std::string& line) {
        const zolt_check::CheckedFile result = zolt_check::checkFile(path);
        EXPECT_FALSE(result.starts());
        EXPECT_EQ(linesOf(result), Lines{line});
    }
    void expectMalformed(const std::string& text, const std::string& line) {
        support::writeFile(path_, text);
        expectUnloadable(path_, line);
    }
};

TEST_F(Loading, AFileThatIsNotThere) {
    expectUnloadable(
        folder_.file("missing.xml"),
        "1:1: error: the file cannot be read: No such file or directory; zolt does not start");
}

TEST_F(Loading, AFolder) {
    expectUnloadable("/",
                     "1:1: error: the file cannot be read: Is a directory; zolt does not start");
}

TEST_F(Loading, APipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
    expectUnloadable(
        path_, "1:1: error: the file cannot be read: Not a regular file; zolt does not start");
}

TEST_F(Loading, AFileOfSomebodyElse) {
    support::writeFile(path_, "<ZOLTConfig/>");
    ASSERT_EQ(chmod(path_.c_str(), 0), 0);
    // Root may read any file, so the test gives up its privileges.
    const bool root = geteuid() == 0;
    constexpr uid_t kNobody = 65534;
    if (root) {
        ASSERT_EQ(chown(folder_.file("").c_str(), kNobody, static_cast<gid_t>(-1)), 0);
        ASSERT_EQ(seteuid(kNobody), 0);
    }
    expectUnloadable(path_,
                     "1:1: error: the file cannot be read: Permission denied; zolt does not start");
    if (root) {
        ASSERT_EQ(seteuid(0), 0);
    }
}

TEST_F(Loading, FilesWithoutAnElement) {
    expectMalformed(
        "",
        "1:1: error: the file is not well-formed: No document element found; zolt does not start");
    expectMalformed(
        "\n<!-- nothing -->\n",
        "3:1: error: the file is not well-formed: No document element found; zolt does not start");
}

TEST_F(Loading, FilesThatAreNotWellFormed) {
    expectMalformed("<ZOLTConfig>\n  <Speed Percent=50/>\n</ZOLTConfig>",
                    "2:18: error: the file is not well-formed: Error parsing element attribute; "
                    "zolt does not start");
    expectMalformed(
        "<ZOLTConfig>\n  <Speed>\n</ZOLTConfig>",
        "3:3: error: the file is not well-formed: Start-end tags mismatch; zolt does not start");
    expectMalformed(
        "<ZOLTConfig>\n  <!-- <Speed/>\n</ZOLTConfig>\n",
        "3:14: error: the file is not well-formed: Error parsing comment; zolt does not start");
}

TEST_F(Loading, RubbishOfEachByte) {
    std::string rubbish;
    for (int round = 0; round < 100; ++round) {
        for (int byte = 255; byte >= 0; --byte) {
            rubbish += static_cast<char>(byte);
        }
    }
    const zolt_check::CheckedFile result = checkText(rubbish);
    EXPECT_FALSE(result.starts());
    EXPECT_EQ(result.findings.size(), 1U);
}

TEST_F(Loading, AnotherRoot) {
    const std::string rest =
        ": zolt uses only defaults: no log, and interfaces that send no banner, on ports that the "
        "system picks";
    const zolt_check::CheckedFile result =
        checkText("\n<zoltconfig><Speed Percent=\"0\"/></zoltconfig>");
    EXPECT_TRUE(result.starts());
    EXPECT_EQ(linesOf(result), Lines{"2:2: warning: the root element is \"zoltconfig\" (did you "
                                     "mean \"ZOLTConfig\"?)" +
                                     rest});
    EXPECT_EQ(findings("<Settings/>"),
              Lines{"1:2: warning: the root element is \"Settings\", not \"ZOLTConfig\"" + rest});
}

TEST_F(Loading, SeveralRoots) {
    const std::string all = "<Interfaces>" + std::string(kCae) + kIo + kMon + "</Interfaces>";
    EXPECT_EQ(findings("<Other/>\n<ZOLTConfig>" + all + "</ZOLTConfig>\n<ZOLTConfig/>"),
              (Lines{"1:2: warning: \"Other\" next to the root element is ignored",
                     "3:2: warning: \"ZOLTConfig\" next to the root element is ignored"}));
}

TEST_F(Loading, DeepNesting) {
    constexpr int kDepth = 200'000;
    std::string text = "<ZOLTConfig>";
    for (int i = 0; i < kDepth; ++i) text += "<Speed>";
    for (int i = 0; i < kDepth; ++i) text += "</Speed>";
    const zolt_check::CheckedFile result = checkText(text + "</ZOLTConfig>");
    EXPECT_TRUE(result.starts());
    EXPECT_EQ(linesOf(result)[3], "1:14: warning: \"Speed\" sets nothing: it has no Percent");
    EXPECT_EQ(linesOf(result)[4], "1:21: warning: \"Speed\" inside \"Speed\" is ignored");
    EXPECT_EQ(result.findings.size(), 5U);
}

TEST_F(Loading, ManyElements) {
    constexpr int kElements = 100'000;
    std::string text;
    for (int i = 0; i < kElements; ++i) text += "<sped Percent=\"50\"/>\n";
    const Lines lines = inRoot(text);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(kElements));
    EXPECT_EQ(lines.back(),
              "100001:2: warning: unknown element \"sped\" is ignored (did you mean \"Speed\"?)");
}

TEST_F(Loading, TenMegabytes) {
    const std::string filling(10'000'000, 'x');
    EXPECT_EQ(
        inRoot("<!--" + filling + "-->\n<" + filling + "/>"),
        Lines{"3:2: warning: unknown element \"" + filling.substr(0, 60) + "...\" is ignored"});
}

}  // namespace
