// For every file the check reports an error exactly if the file keeps the daemon from
// starting.
#include <algorithm>
#include <array>
#include <random>

#include "core/config_reader.h"
#include "tests/unit/zolt-check/check_fixture.h"

namespace {

class Agreement : public CheckFixture {
  protected:
    void expectAgreement(const std::string& text) {
        const zolt_check::CheckedFile result = checkText(text);
        const bool error = std::any_of(result.findings.begin(), result.findings.end(),
                                       [](const zolt_check::Finding& finding) {
                                           return finding.severity == zolt_check::Severity::kError;
                                       });
        const CONFIG_DESCRIPTOR read = readConfigFile(path_);
        EXPECT_EQ(error, read.errorText != CONFIG_DESCRIPTOR::kNoError) << text;
        EXPECT_EQ(result.config.errorText, read.errorText) << text;
        starting_ += error ? 0 : 1;
    }

    template <std::size_t kSize>
    const char* anyOf(const std::array<const char*, kSize>& choices) {
        return choices[random_() % kSize];
    }

    std::string entry() {
        std::string text = std::string("<") + anyOf<3>({"I", "Interface", "Port"});
        for (auto attributes = random_() % 4; attributes > 0; --attributes) {
            text += anyOf<4>({" Name=\"", " Port=\"", " InpSeparator=\"", " port=\""});
            text += anyOf<12>({"CAE", "IO", "MON", "DMI", "4001", "4002", "1024", "1025", "70000",
                               "2x", "4294968321", "5000 "});
            text += "\"";
        }
        return text + anyOf<3>({"/>", "></Interface>", "/>"});
    }

    std::string interfaces() {
        std::string text =
            anyOf<4>({"<Interfaces>", "<Interfaces>", "<Interfaces >", "<interfaces>"});
        for (auto entries = random_() % 7; entries > 0; --entries) {
            text += entry() + anyOf<3>({"", "\n", "<!-- Port=\"80\" -->"});
        }
        return text + anyOf<3>({"</Interfaces>", "</Interfaces>", "</Interfaces>\n"});
    }

    std::string file() {
        std::string text = anyOf<6>(
            {"", "<?xml version=\"1.0\"?>\n", "<!DOCTYPE x>", "\xEF\xBB\xBF", "<Other/>", "\n"});
        text += anyOf<5>(
            {"<ZOLTConfig>", "<ZOLTConfig>", "<ZOLTConfig>", "<ZOLTConfig a='b'>", "<zoltconfig>"});
        for (auto children = random_() % 4; children > 0; --children) {
            text += random_() % 2 == 0 ? interfaces()
                                       : anyOf<5>({"<Speed Percent=\"50\"/>", "<Debuglog/>", "text",
                                                   "<I Port=\"80\"/>", "<Speed Port='1'></Speed>"});
        }
        return text + anyOf<5>({"</ZOLTConfig>", "</ZOLTConfig>", "</ZOLTConfig>\n",
                                "</ZOLTConfig><ZOLTConfig/>", "</zoltconfig>"});
    }

    // The seed is fixed, so that a failure can be repeated.
    std::mt19937 random_{4001};
    int starting_ = 0;
};

TEST_F(Agreement, OverRandomFiles) {
    constexpr int kFiles = 1000;
    for (int i = 0; i < kFiles; ++i) {
        expectAgreement(file());
    }
    // There are enough files of both kinds.
    EXPECT_GT(starting_, kFiles / 10);
    EXPECT_LT(starting_, kFiles * 9 / 10);
}

TEST_F(Agreement, OverEveryCutOfAFile) {
    const std::string text =
        "<?xml version=\"1.0\"?>\n<ZOLTConfig>\n<Interfaces><I Name='IO' Port=\"1025\"/>"
        "<!-- x --><I Port='80'/></Interfaces></ZOLTConfig>";
    for (std::size_t size = 0; size <= text.size(); ++size) {
        expectAgreement(text.substr(0, size));
        expectAgreement(text.substr(size));
    }
}

}  // namespace
