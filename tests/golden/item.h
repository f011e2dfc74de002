#pragma once

#include <string>
#include <string_view>

namespace golden {

/// The kinds of what a channel can get.
enum class ItemKind {
    kBytes,  ///< a piece of a byte stream (clients, standard output and error)
    kLine,   ///< one line (bus, card, log, syslog, exit), without its line end
    kClosed  ///< the other side has closed the client's connection
};

struct Item {
    std::string channel;
    ItemKind kind = ItemKind::kLine;
    std::string text;
    /// True for an expected line that may come several times in a row.
    bool repeats = false;

    bool operator==(const Item&) const = default;
};

/// Returns true for the channels whose items are bytes: those of the clients ("io", "cae2"),
/// stdout and stderr.
bool isByteChannel(std::string_view channel);
/// Returns the interface that a client channel belongs to ("io" for "io2"), and an empty text
/// for other channels.
std::string clientInterface(std::string_view channel);
/// Returns true for any channel of a dialogue.
bool isChannel(std::string_view channel);

/// Writes an expectation as dialogues do, without the indentation.
std::string writeItem(const Item& item);
/// Reads what writeItem() writes. Throws std::invalid_argument.
Item readItem(std::string_view text);

}  // namespace golden
