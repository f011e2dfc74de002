#include "bench/system/contestants/gateway.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "bench/system/basics/expect.h"
#include "bench/system/basics/failure.h"
#include "bench/system/cards/slave.h"
#include "tests/support/files.h"
#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

namespace bench {
namespace {

constexpr std::uint16_t kPort = 5004;
constexpr const char* kBanner = "ready\r\n\r\n";

std::string connectionFor(Role role) {
    const std::string port = std::to_string(kPort);
    const std::string adapter =
        "  connector: serialdev,\n    " + std::string(kAdapter) + ",\n    460800n81,local\n";
    // Only the banner is not Debian's: it shows that the port is open.
    const std::string banner = "    banner: \"ready\\r\\n\\r\\n\"\n";
    if (role == Role::kTunedGateway) {
        return "  accepter: tcp(nodelay=true),127.0.0.1," + port + "\n" + adapter + "  options:\n" +
               banner + "    chardelay: false\n";
    }
    return "  accepter: tcp,127.0.0.1," + port + "\n" + adapter + "  options:\n" + banner +
           "    kickolduser: true\n    telnet-brk-on-sync: true\n";
}

std::vector<std::string> commandFor(Role role) {
    const auto file = support::workFolder() / "ser2net.yaml";
    support::writeFile(file, "%YAML 1.1\n---\nconnection: &bus\n" + connectionFor(role));
    // The gateway locks the adapter in this folder.
    std::filesystem::create_directories("/run/lock");
    return {kGatewayProgram, "-n", "-c", file};
}

support::TcpClient connectTo(const ChildProgram& program) {
    std::optional<support::TcpClient> client;
    if (!support::waitUntil(
            [&] { return (client = support::TcpClient::tryConnect(kPort)).has_value(); })) {
        throw Failure("the gateway's port stays refused: " + program.errors());
    }
    return std::move(*client);
}

}  // namespace

Gateway::Gateway(Role role, const Placement& placement)
    : program_(commandFor(role), placement), client_(connectTo(program_)) {
    expect(client_, kBanner);
}

}  // namespace bench
