#pragma once

#include <poll.h>

#include <functional>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/control/control_socket.h"
#include "lib/os/descriptor.h"

namespace zolt_sim {

/// Cuts arriving text into lines.
class ControlLines {
  public:
    /// The lines completed by `text`, without their line feeds. A line of more than 4000
    /// characters is returned once, as nothing.
    std::vector<std::optional<std::string>> feed(std::string_view text);

  private:
    std::string pending_;
    bool tooLong_ = false;
};

/// Takes lines with controls from an input and from the clients of a socket, and gives
/// each answer back to where its line came from. All work is done by the thread that
/// calls serve().
class ControlServer {
  public:
    using Run = std::function<ControlAnswer(const std::string& line)>;
    using Answer = std::function<void(const std::string& text)>;

    /// `run` carries out a line. `input` is a descriptor, or -1 for none. `answerInput`
    /// gets the answers to lines of the input, line feeds included. `socket` may be
    /// nullptr. The caller keeps input and socket open as long as the server lives.
    ControlServer(Run run, int input, Answer answerInput, ControlSocket* socket);

    /// Returns when one of these descriptors becomes readable.
    void serve(const std::vector<int>& stopDescriptors);

  private:
    struct Client {
        zolt_os::Descriptor socket;
        ControlLines lines;
        std::string unsent;
        /// The client sends nothing more; it may still wait for answers.
        bool inputEnded = false;
        bool ended = false;
    };

    /// What to wait for: the stops, the input, the socket, and then each client.
    std::vector<pollfd> eventsToAwait(const std::vector<int>& stopDescriptors) const;
    std::string answersTo(ControlLines& lines, std::string_view text);
    void readInput();
    void acceptClient();
    /// `events` has one entry per client, in their order.
    void serveClients(std::span<const pollfd> events);
    void serveClient(Client& client, short happened);
    void readClient(Client& client);
    static void writeClient(Client& client);

    Run run_;
    int input_;
    Answer answerInput_;
    ControlSocket* socket_;
    ControlLines inputLines_;
    std::list<Client> clients_;
};

}  // namespace zolt_sim
