#include "apps/zolt-sim/control/control_server.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <mutex>
#include <thread>

#include "lib/os/descriptor.h"
#include "lib/os/event.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

using Lines = std::vector<std::optional<std::string>>;

TEST(ControlLines, PutsLinesTogether) {
    ControlLines lines;
    EXPECT_EQ(lines.feed("sho"), Lines{});
    EXPECT_EQ(lines.feed("w\nhelp\nqu"), (Lines{"show", "help"}));
    EXPECT_EQ(lines.feed("it\n\n"), (Lines{"quit", ""}));
}

TEST(ControlLines, RefusesALineThatIsTooLongAsAWhole) {
    ControlLines lines;
    EXPECT_EQ(lines.feed(std::string(4000, 'x') + "\n"), (Lines{std::string(4000, 'x')}));
    EXPECT_EQ(lines.feed(std::string(9000, 'x')), Lines{});
    EXPECT_EQ(lines.feed(" quit\nshow\n"), (Lines{std::nullopt, "show"}));
}

/// A client that is connected to the server's socket.
class Client {
  public:
    explicit Client(const std::string& path)
        : socket_(zolt_os::checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket")) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), address.sun_path);
        if (::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
            0) {
            throw std::runtime_error("connect failed");
        }
    }

    void send(const std::string& text) {
        ASSERT_EQ(::send(socket_.get(), text.data(), text.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(text.size()));
    }

    void endSending() { ::shutdown(socket_.get(), SHUT_WR); }

    std::string receive(std::size_t count) {
        std::string text;
        test::waitUntil([&] {
            std::array<char, 256> buffer{};
            const ssize_t got = ::recv(socket_.get(), buffer.data(), buffer.size(), MSG_DONTWAIT);
            text.append(buffer.data(), got > 0 ? static_cast<std::size_t>(got) : 0U);
            return text.size() >= count;
        });
        return text;
    }

  private:
    zolt_os::Descriptor socket_;
};

class ControlServerTest : public ::testing::Test {
  protected:
    ControlServerTest() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe2 failed");
        }
        inputReader_ = zolt_os::Descriptor(ends[0]);
        inputWriter_ = zolt_os::Descriptor(ends[1]);
        thread_ = std::thread([this] {
            ControlServer server(
                [](const std::string& line) {
                    return line == "bad" ? ControlAnswer{{}, "no"} : ControlAnswer{{line}, ""};
                },
                inputReader_.get(),
                [this](const std::string& text) {
                    const std::lock_guard guard(lock_);
                    output_ += text;
                },
                &socket_);
            server.serve({stop_.get()});
        });
    }
    ~ControlServerTest() override {
        stop_.raise();
        thread_.join();
    }

    void type(const std::string& text) {
        ASSERT_EQ(::write(inputWriter_.get(), text.data(), text.size()),
                  static_cast<ssize_t>(text.size()));
    }
    bool printed(const std::string& text) {
        return test::waitUntil([&] {
            const std::lock_guard guard(lock_);
            return output_ == text;
        });
    }

    test::Folder folder_;
    std::string path_ = folder_.file("control");
    ControlSocket socket_{path_};
    zolt_os::Event stop_;
    zolt_os::Descriptor inputReader_;
    zolt_os::Descriptor inputWriter_;
    std::mutex lock_;
    std::string output_;
    std::thread thread_;
};

TEST_F(ControlServerTest, AnswersLinesOfTheInput) {
    type("one\nbad\ntw");
    EXPECT_TRUE(printed("one\nok\nerror: no\n"));
    type("o\n");
    EXPECT_TRUE(printed("one\nok\nerror: no\ntwo\nok\n"));
}

TEST_F(ControlServerTest, AnswersSeveralClientsAtOnce) {
    Client first(path_);
    Client second(path_);
    first.send("fir");
    second.send("second\n");
    EXPECT_EQ(second.receive(10), "second\nok\n");
    first.send("st\nbad\n");
    EXPECT_EQ(first.receive(19), "first\nok\nerror: no\n");
    { Client third(path_); }
    second.send("again\n");
    EXPECT_EQ(second.receive(9), "again\nok\n");
}

TEST_F(ControlServerTest, GoesOnAfterTheEndOfTheInput) {
    { const zolt_os::Descriptor ended = std::move(inputWriter_); }
    Client client(path_);
    client.send("still\n");
    EXPECT_EQ(client.receive(9), "still\nok\n");
}

TEST_F(ControlServerTest, RefusesALineThatIsTooLong) {
    Client client(path_);
    client.send(std::string(5000, 'x') + "\nshow\n");
    const std::string expected = "error: the line is too long\nshow\nok\n";
    EXPECT_EQ(client.receive(expected.size()), expected);
}

TEST_F(ControlServerTest, GivesALargeAnswerInFullToAClientThatReadsLate) {
    constexpr int kLines = 300;
    Client client(path_);
    std::string expected;
    for (int i = 0; i < kLines; ++i) {
        const std::string line(1000, static_cast<char>('a' + i % 26));
        client.send(line + "\n");
        expected += line + "\nok\n";
    }
    client.endSending();
    EXPECT_EQ(client.receive(expected.size()), expected);
}

}  // namespace
}  // namespace zolt_sim
