// Actions of well-behaved and of other clients.
#include <array>

#include "tests/reliability/soak/actions.h"

namespace reliability {
namespace {

constexpr std::size_t kLongestPacket = 255;

NonBlockingClient& anyClient(SoakStage& stage, Random& random) {
    const std::array clients{&stage.cae(), &stage.io(), &stage.mon()};
    return *random.oneOf(clients);
}

void connect(SoakStage& stage, Random& random) {
    NonBlockingClient& client = anyClient(stage, random);
    const bool smallWindow = random.oneIn(3);
    if (!client.wanted()) client.connect(smallWindow);
}

void leave(SoakStage& stage, Random& random) {
    anyClient(stage, random).close();
}

void reset(SoakStage& stage, Random& random) {
    anyClient(stage, random).reset();
}

void stall(SoakStage& stage, Random& random) {
    NonBlockingClient& client = anyClient(stage, random);
    client.stall(!client.stalled());
}

void sendRubbish(SoakStage& stage, Random& random) {
    NonBlockingClient& client = anyClient(stage, random);
    stage.type(client, random.bytes(1 + random.below(kLongestPacket)));
}

// Parts of commands are for address D, which has no card: if the daemon reads them together
// with the next bytes, no card gets a frame.
void sendHalfLine(SoakStage& stage, Random& random) {
    constexpr std::array kBeginnings{"aDb1dF", "aDlPAp03",  "aDsH", "FORCEDISCOVE",
                                     "SPEED=", "GETLASTIN", "EXIT"};
    NonBlockingClient& client = anyClient(stage, random);
    const std::string line = random.oneOf(kBeginnings);
    stage.type(client, line.substr(0, 1 + random.below(line.size())));
}

// Each byte makes a line of its own, unless the daemon reads several at once.
void dawdle(SoakStage& stage, Random& random) {
    NonBlockingClient& client = anyClient(stage, random);
    stage.dawdle(client, "aDb0d00\r\n");
}

constexpr std::size_t kLongestFlood = 200;
constexpr std::size_t kLongestFloodLine = 120;

void flood(NonBlockingClient& client, const std::string& packet, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) client.send(packet);
}

void floodIo(SoakStage& stage, Random& random) {
    const std::string line(1 + random.below(kLongestFloodLine), 'x');
    flood(stage.io(), line + "\r\n", 1 + random.below(kLongestFlood));
}

// The commands are for an address without a card: each takes its turn on the bus as an empty
// frame.
void floodIoWithEmptyFrames(SoakStage& stage, Random& random) {
    std::string packet;
    while (packet.size() < 240) packet += "aDb0d00\r\n";
    flood(stage.io(), packet, 1 + random.below(20));
}

void floodConsole(SoakStage& stage, Random& random) {
    const std::string line = random.bytes(1 + random.below(kLongestFloodLine));
    flood(stage.cae(), line + "\r\n", 1 + random.below(kLongestFlood));
}

void floodMonitor(SoakStage& stage, Random& random) {
    const std::string text = random.bytes(100);
    const std::size_t packets = 1 + random.below(5);
    for (std::size_t i = 0; i < packets; ++i) stage.type(stage.mon(), text);
}

void secondClient(SoakStage& stage, Random& random) {
    constexpr std::array<std::uint16_t, 3> kPorts{support::kCaePort, support::kIoPort,
                                                  support::kMonPort};
    const std::uint16_t port = random.oneOf(kPorts);
    if (stage.otherClients() < 3) {
        stage.addClient(port);
    } else {
        stage.removeOtherClients();
    }
}

void exitFromIo(SoakStage& stage, Random& /*random*/) {
    stage.io().send("EXIT\r\n");
}

void sendOutputs(SoakStage& stage, Random& random) {
    stage.sendOutputs(1 + random.below(12));
}

constexpr Action kClientActions[] = {
    {"connect", 24, connect},
    {"leave", 2, leave},
    {"reset", 3, reset},
    {"stall", 3, stall},
    {"rubbish", 6, sendRubbish},
    {"half a line", 4, sendHalfLine},
    {"a byte a second", 2, dawdle},
    {"flood IO", 2, floodIo},
    {"flood IO with empty frames", 1, floodIoWithEmptyFrames},
    {"flood the console", 2, floodConsole},
    {"flood the monitor", 1, floodMonitor},
    {"second client", 3, secondClient},
    {"EXIT on IO", 1, exitFromIo},
    {"output commands", 24, sendOutputs},
};

}  // namespace

std::span<const Action> clientActions() {
    return kClientActions;
}

void floodAtMost(SoakStage& stage) {
    const std::string line = std::string(kLongestFloodLine, 'x') + "\r\n";
    for (int i = 0; i < 3; ++i) {
        flood(stage.io(), line + line, kLongestFlood);
        flood(stage.cae(), line + line, kLongestFlood);
    }
}

}  // namespace reliability
