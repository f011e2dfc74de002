#include "apps/zolt-sim/control/control_socket.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "lib/os/descriptor.h"
#include "tests/unit/zolt-sim/complaint_of.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

std::string reasonForSocket(const std::string& path) {
    return complaintOf([&] { const ControlSocket socket(path); });
}

TEST(ControlSocket, RemovesItsFile) {
    const test::Folder folder;
    const std::string path = folder.file("control");
    {
        ControlSocket socket(path);
        EXPECT_TRUE(std::filesystem::is_socket(path));
        EXPECT_FALSE(socket.accept().valid());
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ControlSocket, ReplacesASocketWithoutAListener) {
    const test::Folder folder;
    const std::string path = folder.file("control");
    {
        const zolt_os::Descriptor left =
            zolt_os::checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), address.sun_path);
        ASSERT_EQ(::bind(left.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
                  0);
    }
    ASSERT_TRUE(std::filesystem::is_socket(path));
    EXPECT_EQ(reasonForSocket(path), "");
}

TEST(ControlSocket, LeavesTheSocketOfARunningProgramAlone) {
    const test::Folder folder;
    const std::string path = folder.file("control");
    const ControlSocket first(path);
    EXPECT_EQ(reasonForSocket(path), path + ": in use by another program");
    EXPECT_TRUE(std::filesystem::is_socket(path));
}

TEST(ControlSocket, LeavesOtherFilesAlone) {
    const test::Folder folder;
    const std::string path = folder.write("control", "precious");
    EXPECT_EQ(reasonForSocket(path), path + ": exists and is not a socket, so it is left as it is");
    EXPECT_EQ(std::filesystem::file_size(path), 8U);
}

TEST(ControlSocket, SaysWhyItCannotListen) {
    const test::Folder folder;
    EXPECT_EQ(reasonForSocket(folder.file("none/control")),
              folder.file("none/control") + ": No such file or directory");
    const std::string longPath = folder.file(std::string(120, 'x'));
    EXPECT_EQ(reasonForSocket(longPath),
              longPath + ": too long for a socket, at most 107 characters");
}

}  // namespace
}  // namespace zolt_sim
