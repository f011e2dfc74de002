// The daemon ends at exactly the sizes of an OutSeparator of which zolt-check warns.
#include "tests/process/process_test.h"
#include "tests/support/tcp/tcp_client.h"

namespace {

using support::TcpClient;

class DeadlySeparator : public ProcessTest {
  protected:
    /// "answered", or how the daemon ends after this packet on a port whose OutSeparator has
    /// this many characters.
    std::string after(support::InterfaceSettings& interface, std::size_t size,
                      const std::string& packet) {
        interface.outSeparator.assign(size, 'x');
        start();
        auto client = TcpClient::connect(static_cast<std::uint16_t>(interface.port));
        client.receiveUntil("\r\n\r");
        client.send(packet);
        return client.receiveUntil("x\r").empty() ? daemon_.waitForEnd() : "answered";
    }
};

TEST_F(DeadlySeparator, OfTheConsole) {
    EXPECT_EQ(after(settings_.cae, 489, "nonsense\r\n"), "signal 6");
}

TEST_F(DeadlySeparator, OfTheConsoleOneShorter) {
    EXPECT_EQ(after(settings_.cae, 488, "nonsense\r\n"), "answered");
}

TEST_F(DeadlySeparator, OfIo) {
    EXPECT_EQ(after(settings_.io, 984, "EXIT\r\n"), "signal 6");
}

TEST_F(DeadlySeparator, OfIoOneShorter) {
    EXPECT_EQ(after(settings_.io, 983, "EXIT\r\n"), "answered");
}

}  // namespace
