// From the bytes that a port sends to what they say. Nothing here knows sockets.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ctl {

/// Takes items out of a stream: each ends with the interface's OutSeparator and
/// one carriage return.
class ItemReader {
  public:
    explicit ItemReader(const std::string& outSeparator) : end_(outSeparator + '\r') {}

    std::string outSeparator() const { return end_.substr(0, end_.size() - 1); }

    void feed(std::string_view bytes) { buffer_ += bytes; }
    /// The next whole item without its end. Throws Failure when an item grows
    /// longer than any of the daemon's.
    std::optional<std::string> next();
    /// Bytes of an item that is not yet whole.
    const std::string& rest() const { return buffer_; }

  private:
    std::string end_;
    std::string buffer_;
};

/// Takes lines out of what the IO and monitor ports send: they end with one of
/// several separators, a carriage return or a line feed. Empty lines are left out.
class LineReader {
  public:
    /// Empty separators are left out.
    explicit LineReader(const std::vector<std::string>& separators);

    void feed(std::string_view bytes) { buffer_ += bytes; }
    /// Throws Failure as ItemReader does.
    std::optional<std::string> next();

  private:
    std::vector<std::string> ends_;
    std::string buffer_;
};

/// Finds a banner in what comes first on a connection: items that waited for an
/// earlier client stand before it.
class BannerFinder {
  public:
    explicit BannerFinder(std::string banner) : banner_(std::move(banner)) {}

    /// True once the banner is whole.
    bool feed(std::string_view bytes);
    /// What came before the banner, without its oldest part when it is very long.
    const std::string& before() const { return before_; }
    /// What came behind the banner.
    const std::string& behind() const { return behind_; }
    /// Whether the bytes so far end within the banner.
    bool begun() const;

  private:
    std::string banner_;
    std::string before_;
    std::string behind_;
};

/// A change or state of an input, "a3b0d40".
struct Report {
    char address;
    unsigned block;
    std::uint8_t value;
};

/// Behind the report may stand a separator that is not known here.
std::optional<Report> parseReport(std::string_view line);

}  // namespace ctl
