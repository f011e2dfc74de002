#include "apps/zolt-sim/control/control_server.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "lib/os/descriptor.h"

namespace zolt_sim {
namespace {

/// Characters.
constexpr std::size_t kLongestLine = 4000;
constexpr std::size_t kMostClients = 64;
/// Bytes of answers. A client that asks without ever reading loses its connection when
/// more are waiting for it.
constexpr std::size_t kMostUnsent = 1U << 20U;

using Chunk = std::array<char, 4096>;

}  // namespace

std::vector<std::optional<std::string>> ControlLines::feed(std::string_view text) {
    std::vector<std::optional<std::string>> lines;
    for (const char c : text) {
        if (c != '\n') {
            tooLong_ = tooLong_ || pending_.size() >= kLongestLine;
            if (!tooLong_) {
                pending_ += c;
            }
            continue;
        }
        if (tooLong_) {
            lines.emplace_back(std::nullopt);
        } else {
            lines.emplace_back(pending_);
        }
        pending_.clear();
        tooLong_ = false;
    }
    return lines;
}

ControlServer::ControlServer(Run run, int input, Answer answerInput, ControlSocket* socket)
    : run_(std::move(run)), input_(input), answerInput_(std::move(answerInput)), socket_(socket) {}

std::vector<pollfd> ControlServer::eventsToAwait(const std::vector<int>& stopDescriptors) const {
    std::vector<pollfd> events;
    events.reserve(stopDescriptors.size() + 2 + clients_.size());
    for (const int stop : stopDescriptors) {
        events.push_back({stop, POLLIN, 0});
    }
    const bool accepts = socket_ != nullptr && clients_.size() < kMostClients;
    events.push_back({input_, POLLIN, 0});
    events.push_back({accepts ? socket_->descriptor() : -1, POLLIN, 0});
    for (const Client& client : clients_) {
        const int wanted = (client.inputEnded ? 0 : POLLIN) | (client.unsent.empty() ? 0 : POLLOUT);
        events.push_back({client.socket.get(), static_cast<short>(wanted), 0});
    }
    return events;
}

void ControlServer::serve(const std::vector<int>& stopDescriptors) {
    const auto happened = [](const pollfd& event) { return event.revents != 0; };
    for (;;) {
        std::vector<pollfd> events = eventsToAwait(stopDescriptors);
        if (::poll(events.data(), events.size(), -1) < 0) {
            continue;
        }
        const auto stops = std::span<const pollfd>(events).first(stopDescriptors.size());
        const auto others = std::span<const pollfd>(events).subspan(stops.size());
        if (std::any_of(stops.begin(), stops.end(), happened)) {
            return;
        }
        serveClients(others.subspan(2));
        if (happened(others[0])) {
            readInput();
        }
        if (happened(others[1])) {
            acceptClient();
        }
    }
}

void ControlServer::serveClients(std::span<const pollfd> events) {
    std::size_t index = 0;
    for (Client& client : clients_) {
        serveClient(client, events[index++].revents);
    }
    clients_.remove_if([](const Client& client) { return client.ended; });
}

void ControlServer::serveClient(Client& client, short happened) {
    if ((happened & POLLOUT) != 0) {
        writeClient(client);
    }
    if ((happened & POLLIN) != 0) {
        readClient(client);
    }
    const bool gone = (happened & (POLLHUP | POLLERR)) != 0 && (happened & POLLIN) == 0;
    const bool answered = client.inputEnded && client.unsent.empty();
    client.ended = client.ended || gone || answered;
}

void ControlServer::acceptClient() {
    zolt_os::Descriptor accepted = socket_->accept();
    if (accepted.valid()) {
        clients_.emplace_back().socket = std::move(accepted);
    }
}

std::string ControlServer::answersTo(ControlLines& lines, std::string_view text) {
    std::string answers;
    for (const std::optional<std::string>& line : lines.feed(text)) {
        answers += line ? run_(*line).text() : ControlAnswer{{}, "the line is too long"}.text();
    }
    return answers;
}

void ControlServer::readInput() {
    Chunk chunk{};
    const ssize_t count = ::read(input_, chunk.data(), chunk.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count <= 0) {
        // The end of the input does not end the bus: a background job has no input at all.
        input_ = -1;
        return;
    }
    const std::string answers =
        answersTo(inputLines_, {chunk.data(), static_cast<std::size_t>(count)});
    if (!answers.empty()) {
        answerInput_(answers);
    }
}

void ControlServer::readClient(Client& client) {
    Chunk chunk{};
    const ssize_t count = ::recv(client.socket.get(), chunk.data(), chunk.size(), 0);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count <= 0) {
        client.inputEnded = true;
        return;
    }
    client.unsent += answersTo(client.lines, {chunk.data(), static_cast<std::size_t>(count)});
    writeClient(client);
}

void ControlServer::writeClient(Client& client) {
    while (!client.unsent.empty()) {
        const ssize_t count =
            ::send(client.socket.get(), client.unsent.data(), client.unsent.size(), MSG_NOSIGNAL);
        if (count < 0) {
            client.ended = client.ended || (errno != EAGAIN && errno != EINTR) ||
                           client.unsent.size() > kMostUnsent;
            return;
        }
        client.unsent.erase(0, static_cast<std::size_t>(count));
    }
}

}  // namespace zolt_sim
