#pragma once

#include <string>
#include <string_view>

namespace golden {

/// What one channel got.
enum class ItemKind {
    kBytes,  ///< a piece of a byte stream (clients, standard output and error)
    kLine,   ///< one line (bus, card, log, syslog, exit), without its line end
    kClosed  ///< the other side has closed the client's connection
};

struct Item {
    std::string channel;
    ItemKind kind = ItemKind::kLine;
    std::string text;
    /// Expected lines only: may come several times in a row.
    bool repeats = false;

    bool operator==(const Item&) const = default;
};

/// True for the channels whose items are bytes: the clients' ("io", "cae2"),
/// stdout and stderr.
bool isByteChannel(std::string_view channel);
/// The interface that a client channel belongs to ("io" for "io2"); empty for
/// other channels.
std::string clientInterface(std::string_view channel);
/// True for any channel of a dialogue.
bool isChannel(std::string_view channel);

/// An expectation as it stands in a dialogue, without the indentation.
std::string writeItem(const Item& item);
/// The reverse; throws std::invalid_argument.
Item readItem(std::string_view text);

}  // namespace golden
