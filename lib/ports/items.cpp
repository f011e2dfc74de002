#include "lib/ports/items.h"

#include <algorithm>

#include "lib/ports/port_error.h"
#include "lib/text/printable.h"

namespace zolt_ports {
namespace {

/// The daemon's longest item holds one packet of an IO client, 255 bytes, and a few
/// words.
constexpr std::size_t kItemLimit = 4096;

/// The number of bytes before a banner that are kept.
constexpr std::size_t kBeforeLimit = 65536;

/// REQUIRES: `buffer` begins with an item of at least `length` bytes.
void checkLength(const std::string& buffer, std::size_t length) {
    if (length > kItemLimit) {
        throw notZolt("the answer", "a line without end, " + zolt_text::quote(buffer));
    }
}

/// The minimum length of the item at the start of `buffer`, whose terminator is not
/// complete yet.
std::size_t lengthWithoutEnd(const std::string& buffer, std::size_t endSize) {
    return buffer.size() - std::min(buffer.size(), endSize - 1);
}

}  // namespace

std::optional<std::string> ItemReader::next() {
    const std::size_t at = buffer_.find(end_);
    if (at == std::string::npos) {
        checkLength(buffer_, lengthWithoutEnd(buffer_, end_.size()));
        return std::nullopt;
    }
    checkLength(buffer_, at);
    std::string item = buffer_.substr(0, at);
    buffer_.erase(0, at + end_.size());
    return item;
}

LineReader::LineReader(const std::vector<std::string>& separators) : ends_{"\r", "\n"} {
    for (const std::string& separator : separators) {
        if (!separator.empty()) {
            ends_.push_back(separator);
        }
    }
}

std::size_t LineReader::startOfPart() const {
    std::size_t start = buffer_.size();
    for (const std::string& end : ends_) {
        for (std::size_t length = std::min(end.size() - 1, buffer_.size()); length > 0; --length) {
            if (std::string_view(buffer_).ends_with(std::string_view(end).substr(0, length))) {
                start = std::min(start, buffer_.size() - length);
                break;
            }
        }
    }
    return start;
}

std::optional<std::string> LineReader::next() {
    for (;;) {
        const std::size_t part = startOfPart();
        // The earliest end counts, and the longest of those that begin there.
        std::size_t at = std::string::npos;
        std::size_t length = 0;
        for (const std::string& end : ends_) {
            const std::size_t found = buffer_.find(end);
            if (found < at || (found == at && found != std::string::npos && end.size() > length)) {
                at = found;
                length = end.size();
            }
        }
        if (at == std::string::npos || at > part) {
            checkLength(buffer_, part);
            return std::nullopt;
        }
        checkLength(buffer_, at);
        std::string line = buffer_.substr(0, at);
        // This end may be the beginning of a longer one, so it waits for the next bytes; the
        // line does not.
        buffer_.erase(0, at == part ? at : at + length);
        if (!line.empty()) {
            return line;
        }
        if (at == part) {
            return std::nullopt;
        }
    }
}

bool BannerFinder::feed(std::string_view bytes) {
    before_ += bytes;
    const std::size_t at = before_.find(banner_);
    if (at != std::string::npos) {
        after_ = before_.substr(at + banner_.size());
        before_.erase(at);
        return true;
    }
    if (before_.size() > kBeforeLimit) {
        before_.erase(0, before_.size() - kBeforeLimit);
    }
    return false;
}

bool BannerFinder::begun() const {
    for (std::size_t length = std::min(banner_.size() - 1, before_.size()); length > 0; --length) {
        if (before_.compare(before_.size() - length, length, banner_, 0, length) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace zolt_ports
