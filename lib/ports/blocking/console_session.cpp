#include "lib/ports/blocking/console_session.h"

#include <utility>

#include "lib/ports/packet.h"
#include "lib/ports/port_error.h"
#include "lib/text/printable.h"

namespace zolt_ports {

using zolt_os::Deadline;
using zolt_os::Seconds;

ConsoleSession::ConsoleSession(const Endpoint& endpoint, Seconds patience, int interrupt)
    : ConsoleSession(endpoint, openPort(endpoint, patience, interrupt), patience, interrupt) {}

ConsoleSession::ConsoleSession(const Endpoint& endpoint, OpenPort port, Seconds patience,
                               int interrupt)
    : patience_(patience),
      interrupt_(interrupt),
      lineEnd_(endpoint.lineEnd.value_or("")),
      connection_(std::move(port.connection)),
      items_(endpoint.outSeparator),
      dialogue_(endpoint.outSeparator) {
    if (!endpoint.lineEnd) {
        findLineEnd(port.received);
    }
    items_.feed(port.received);
    takeLeftover(port.leftover);
}

void ConsoleSession::takeLeftover(const std::string& leftover) {
    ItemReader items(items_.outSeparator());
    Dialogue dialogue(items_.outSeparator());
    items.feed(leftover);
    while (const auto item = items.next()) {
        if (auto line = dialogue.feed(*item).unasked) {
            unasked_.push_back(std::move(*line));
        }
    }
}

ConsoleSession::~ConsoleSession() {
    if (!inOrder_) {
        return;
    }
    try {
        connection_.leave();
    } catch (const std::exception&) {
        // The connection ends in any case, and the command has been carried out.
        inOrder_ = false;
    }
}

void ConsoleSession::findLineEnd(std::string& received) {
    for (const char* end : kUsualLineEnds) {
        const std::size_t start = received.size();
        const SeparatorFound found = probe(end, received);
        items_ = ItemReader(found.outSeparator);
        dialogue_ = Dialogue(found.outSeparator);
        if (found.known) {
            lineEnd_ = end;
            // The reply to the probe is dropped; lines that came unasked around it are kept.
            items_.feed(std::exchange(received, ""));
            take();
            return;
        }
        received.erase(start);
    }
    throw PortError(
        Reason::kNoLineEnd,
        connection_.label() + ": the daemon takes none of CR LF, LF and CR as the end of a line");
}

SeparatorFound ConsoleSession::probe(const std::string& end, std::string& received) {
    connection_.send("DRVVER" + end, deadline());
    const Deadline until = deadline();
    for (;;) {
        switch (connection_.receive(received, until)) {
            case Connection::Wait::kBytes:
                if (const auto found = findSeparator(received)) {
                    return *found;
                }
                break;
            case Connection::Wait::kEnd:
                throw connection_.cut("in the answer to DRVVER");
            case Connection::Wait::kTimeout:
                throw connection_.timedOut("does not answer DRVVER");
        }
    }
}

std::optional<Reply> ConsoleSession::take() {
    while (const auto item = items_.next()) {
        Dialogue::Event event = dialogue_.feed(*item);
        if (event.unasked) {
            unasked_.push_back(std::move(*event.unasked));
        }
        if (event.reply) {
            return std::move(event.reply);
        }
    }
    return std::nullopt;
}

Reply ConsoleSession::endedReply() const {
    const std::vector<std::string>& lines = dialogue_.lines();
    if (lines.empty() || lines.back() != kFarewell) {
        throw connection_.cut(lines.empty() && items_.rest().empty() ? "before the answer"
                                                                     : "in mid-answer");
    }
    return {lines, false, true};
}

void ConsoleSession::keepStrays() {
    while (auto stray = take()) {
        for (std::string& line : stray->lines) {
            unasked_.push_back(std::move(line));
        }
    }
}

Reply ConsoleSession::ask(const std::string& line) {
    const std::string packet = packetOf(line, lineEnd_);
    // A reply that is there already belongs to a command of an earlier client.
    keepStrays();
    const Deadline until = deadline();
    std::string bytes;
    try {
        connection_.send(packet, until);
        for (;;) {
            if (auto reply = take()) {
                // Items after the reply may have come in the same packet.
                keepStrays();
                return std::move(*reply);
            }
            bytes.clear();
            switch (connection_.receive(bytes, until)) {
                case Connection::Wait::kBytes:
                    items_.feed(bytes);
                    break;
                case Connection::Wait::kEnd:
                    inOrder_ = false;
                    return endedReply();
                case Connection::Wait::kTimeout:
                    throw connection_.timedOut("does not answer " + zolt_text::printable(line));
            }
        }
    } catch (const PortError&) {
        inOrder_ = false;
        throw;
    }
}

void ConsoleSession::readUnasked() {
    std::string bytes;
    switch (connection_.receiveNow(bytes)) {
        case Connection::Wait::kBytes:
            items_.feed(bytes);
            keepStrays();
            break;
        case Connection::Wait::kEnd:
            inOrder_ = false;
            throw connection_.cut("while nothing was asked");
        case Connection::Wait::kTimeout:
            break;
    }
}

}  // namespace zolt_ports
