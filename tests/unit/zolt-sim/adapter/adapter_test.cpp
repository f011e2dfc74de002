#include "apps/zolt-sim/adapter/adapter.h"

#include <gtest/gtest.h>

#include <mutex>

#include "apps/zolt-sim/error.h"
#include "lib/text/hexadecimal.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

/// Answers every request with the same bytes and records every call.
class Echo : public AdapterUser {
  public:
    WireOutput onRequest(const Bytes& request) override {
        add("request " + zolt_text::hexBytes(request));
        WireOutput output;
        output.bytes = {static_cast<std::uint8_t>(request.size())};
        output.bytes.insert(output.bytes.end(), request.begin(), request.end());
        if (request == Bytes{0xDE}) {
            output.delay = std::chrono::minutes(1);
        }
        if (request == Bytes{0x00}) {
            output.bytes.clear();
        }
        return output;
    }
    void onSent(const Bytes& request, const WireOutput&) override {
        add("sent " + zolt_text::hexBytes(request));
    }
    void onNote(const std::string& text) override { add(text); }

    std::vector<std::string> events() {
        const std::lock_guard guard(lock_);
        return events_;
    }

  private:
    void add(const std::string& event) {
        const std::lock_guard guard(lock_);
        events_.push_back(event);
    }

    std::mutex lock_;
    std::vector<std::string> events_;
};

class AdapterTest : public ::testing::Test {
  protected:
    AdapterTest() { adapter_.plug(link_); }

    bool noted(const std::string& event) {
        return test::waitForLine([this] { return echo_.events(); }, event);
    }

    test::Folder folder_;
    std::string link_ = folder_.file("ttyUSB0");
    Echo echo_;
    Adapter adapter_{echo_, 0};
};

TEST_F(AdapterTest, AnswersARequest) {
    test::Host host(link_);
    host.send({0x03, 0x20, 0x03, 0x02});
    EXPECT_EQ(host.receive(4), (Bytes{0x03, 0x20, 0x03, 0x02}));
    EXPECT_TRUE(noted("sent 20 03 02"));
}

TEST_F(AdapterTest, PutsARequestTogetherFromPieces) {
    test::Host host(link_);
    for (const std::uint8_t byte : Bytes{0x03, 0x20, 0x03, 0x02}) {
        host.send({byte});
    }
    EXPECT_EQ(host.receive(4), (Bytes{0x03, 0x20, 0x03, 0x02}));
}

TEST_F(AdapterTest, AnswersRequestsThatArriveTogetherInOrder) {
    test::Host host(link_);
    host.send({0x01, 0xAA, 0x02, 0xBB, 0xCC});
    EXPECT_EQ(host.receive(5), (Bytes{0x01, 0xAA, 0x02, 0xBB, 0xCC}));
}

TEST_F(AdapterTest, DropsAnIncompleteRequestAfterSilence) {
    test::Host host(link_);
    host.send({0x05, 0x10});
    ASSERT_TRUE(noted("incomplete request dropped: 05 10"));
    EXPECT_EQ(host.ask({0x30}), Bytes{0x30});
}

TEST_F(AdapterTest, DropsAnIncompleteRequestWhenTheHostCloses) {
    {
        test::Host host(link_);
        host.send({0x05, 0x10});
    }
    ASSERT_TRUE(noted("host closed"));
    test::Host host(link_);
    ASSERT_TRUE(noted("incomplete request dropped: 05 10"));
    EXPECT_EQ(host.ask({0x30}), Bytes{0x30});
}

TEST_F(AdapterTest, ForgetsAnAnswerThatAFormerHostDidNotRead) {
    {
        test::Host host(link_);
        host.send({0x01, 0xAA});
        ASSERT_TRUE(noted("sent AA"));
    }
    ASSERT_TRUE(noted("host closed"));
    test::Host host(link_);
    EXPECT_EQ(host.ask({0xBB}), Bytes{0xBB});
}

TEST_F(AdapterTest, StaysSilentWithoutAnOutput) {
    test::Host host(link_);
    host.send({0x01, 0x00, 0x01, 0xAA});
    EXPECT_EQ(host.receive(2), (Bytes{0x01, 0xAA}));
}

TEST_F(AdapterTest, UnpluggingHangsUpAndRemovesTheLink) {
    const test::Host host(link_);
    adapter_.unplug();
    EXPECT_FALSE(adapter_.plugged());
    EXPECT_TRUE(host.hungUp());
    EXPECT_FALSE(std::filesystem::is_symlink(std::filesystem::symlink_status(link_)));
}

TEST_F(AdapterTest, UnpluggingDoesNotWaitForAnAnswerThatIsHeldBack) {
    test::Host host(link_);
    host.send({0x01, 0xDE});
    ASSERT_TRUE(noted("request DE"));
    adapter_.unplug();
    EXPECT_TRUE(host.hungUp());
    EXPECT_EQ(echo_.events().back(), "request DE");
}

TEST_F(AdapterTest, ComesBackUnderAnotherName) {
    adapter_.unplug();
    const std::string other = folder_.file("ttyUSB1");
    adapter_.plug(other);
    EXPECT_EQ(test::Host(other).ask({0x30}), Bytes{0x30});
    EXPECT_FALSE(std::filesystem::is_symlink(std::filesystem::symlink_status(link_)));
}

TEST_F(AdapterTest, IsNotPluggedInWhenTheLinkCannotBeMade) {
    adapter_.unplug();
    EXPECT_THROW(adapter_.plug(folder_.file("none/ttyUSB0")), Error);
    EXPECT_FALSE(adapter_.plugged());
    adapter_.plug(link_);
    EXPECT_EQ(test::Host(link_).ask({0x30}), Bytes{0x30});
}

TEST(Adapter, AnswersAtTheSpeedOfAWireToo) {
    const test::Folder folder;
    Echo echo;
    Adapter adapter(echo, 460800);
    adapter.plug(folder.file("ttyUSB0"));
    test::Host host(folder.file("ttyUSB0"));
    for (std::uint8_t i = 1; i < 50; ++i) {
        EXPECT_EQ(host.ask({0x20, i}), (Bytes{0x20, i}));
    }
}

}  // namespace
}  // namespace zolt_sim
