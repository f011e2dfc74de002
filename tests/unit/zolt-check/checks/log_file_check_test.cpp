#include "apps/zolt-check/checks/log_file_check.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>

#include "tests/unit/zolt-check/check_fixture.h"

namespace {

/// Makes this process run as a user without privileges, who owns the folder, until the
/// object goes.
class Unprivileged {
  public:
    explicit Unprivileged(const std::string& folder) {
        if (root_) {
            EXPECT_EQ(chown(folder.c_str(), kNobody, static_cast<gid_t>(-1)), 0);
            EXPECT_EQ(seteuid(kNobody), 0);
        }
    }
    ~Unprivileged() {
        if (root_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

  private:
    static constexpr uid_t kNobody = 65534;
    const bool root_ = geteuid() == 0;
};

class LogFileCheck : public CheckFixture {
  protected:
    std::string log_ = folder_.file("zolt.log");
};

TEST_F(LogFileCheck, IsReportedWhereItIsNamed) {
    EXPECT_EQ(inRoot("<Debuglog Loglevel=\"1\" File=\"/nowhere/zolt.log\"/>"),
              Lines{"2:24: warning: the log file \"/nowhere/zolt.log\" cannot be opened by user " +
                    std::to_string(geteuid()) +
                    ": folder \"/nowhere\": No such file or directory; zolt would run without a "
                    "log"});
}

TEST_F(LogFileCheck, OnlyTheLastOneCounts) {
    EXPECT_EQ(inRoot("<Debuglog File=\"/nowhere/zolt.log\" File=\"" + log_ + "\"/>"),
              Lines{"2:36: warning: File is repeated in this element: the last value counts"});
}

TEST_F(LogFileCheck, AFileThatCanBeMadeIsNotMade) {
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "");
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened("zolt.log"), "");
    EXPECT_FALSE(std::filesystem::exists(log_));
}

TEST_F(LogFileCheck, AFileThatExistsStaysAsItIs) {
    support::writeFile(log_, "line\n");
    const auto before = std::filesystem::last_write_time(log_);
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "");
    EXPECT_EQ(support::readFile(log_), "line\n");
    EXPECT_EQ(std::filesystem::last_write_time(log_), before);
}

TEST_F(LogFileCheck, AFolder) {
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(folder_.file("")), "it is a directory");
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(folder_.file("new/")), "it is a directory");
}

TEST_F(LogFileCheck, AFileAsFolder) {
    support::writeFile(log_, "");
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_ + "/x"), "Not a directory");
}

TEST_F(LogFileCheck, ASocket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    log_.copy(address.sun_path, sizeof address.sun_path - 1);
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "it is a socket");
    close(listening);
}

TEST_F(LogFileCheck, APipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(log_.c_str(), 0600), 0);
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "");
}

TEST_F(LogFileCheck, ALinkToNothingCreatesWhatItLeadsTo) {
    std::filesystem::create_symlink("there.log", log_);
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "");
    std::filesystem::remove(log_);
    std::filesystem::create_symlink("/nowhere/there.log", log_);
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_),
              "folder \"/nowhere\": No such file or directory");
}

TEST_F(LogFileCheck, ALinkToItself) {
    std::filesystem::create_symlink(log_, log_);
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "Too many levels of symbolic links");
}

TEST_F(LogFileCheck, AFileOfSomebodyElse) {
    support::writeFile(log_, "");
    ASSERT_EQ(chmod(log_.c_str(), 0444), 0);
    const Unprivileged user(folder_.file(""));
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(log_), "Permission denied");
}

TEST_F(LogFileCheck, AFolderOfSomebodyElse) {
    const std::string inside = folder_.file("closed");
    std::filesystem::create_directory(inside);
    ASSERT_EQ(chmod(inside.c_str(), 0555), 0);
    const Unprivileged user(folder_.file(""));
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened(inside + "/zolt.log"),
              "folder \"" + inside + "\": Permission denied");
}

TEST_F(LogFileCheck, ANameThatIsTooLong) {
    EXPECT_EQ(zolt_check::whyLogFileCannotBeOpened("/" + std::string(300, 'x')),
              "File name too long");
}

}  // namespace
