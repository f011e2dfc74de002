// Takes control lines from the standard input and from socket clients and gives
// each line's answer back to where it came from.
#pragma once

#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/control/control_socket.h"
#include "apps/zolt-sim/line/descriptor.h"

namespace sim {

// Cuts arriving text into lines.
class ControlLines {
  public:
    // The lines completed by `text`, without their ends. One of more than 4000
    // characters comes out as nothing, once, whatever its length.
    std::vector<std::optional<std::string>> feed(std::string_view text);

  private:
    std::string pending_;
    bool tooLong_ = false;
};

// Runs on one thread, the one that calls serve().
class ControlServer {
  public:
    using Run = std::function<ControlAnswer(const std::string& line)>;
    using Answer = std::function<void(const std::string& text)>;

    // `input` and `socket` may be -1 and nullptr. `answerInput` gets the answers
    // to lines of `input`, line feeds included.
    ControlServer(Run run, int input, Answer answerInput, ControlSocket* socket);

    // Returns when one of these descriptors becomes readable.
    void serve(const std::vector<int>& stopDescriptors);

  private:
    struct Client {
        Descriptor socket;
        ControlLines lines;
        std::string unsent;
        bool inputEnded = false;  // asks nothing more, may still wait for answers
        bool ended = false;
    };

    std::string answersTo(ControlLines& lines, std::string_view text);
    void readInput();
    void readClient(Client& client);
    static void writeClient(Client& client);

    Run run_;
    int input_;
    Answer answerInput_;
    ControlSocket* socket_;
    ControlLines inputLines_;
    std::list<Client> clients_;
};

}  // namespace sim
