#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt_ports {

/// Takes items out of the bytes of the console. Each item ends with the port's
/// OutSeparator and one carriage return.
class ItemReader {
  public:
    explicit ItemReader(const std::string& outSeparator) : end_(outSeparator + '\r') {}

    std::string outSeparator() const { return end_.substr(0, end_.size() - 1); }

    void feed(std::string_view bytes) { buffer_ += bytes; }
    /// The next whole item without its end. Throws PortError if an item grows longer
    /// than any of the daemon's.
    std::optional<std::string> next();
    /// The bytes of an item that is not yet whole.
    const std::string& rest() const { return buffer_; }

  private:
    std::string end_;
    std::string buffer_;
};

/// Takes lines out of the bytes of the IO and monitor ports. A line ends with one of
/// several separators, a carriage return or a line feed; empty lines are skipped.
class LineReader {
  public:
    /// Empty separators are skipped.
    explicit LineReader(const std::vector<std::string>& separators);

    void feed(std::string_view bytes) { buffer_ += bytes; }
    /// The next whole line without its end. Throws as ItemReader::next() does.
    std::optional<std::string> next();

  private:
    /// Where the part of an end begins with which the bytes end; their number if they end
    /// with none.
    std::size_t startOfPart() const;

    std::vector<std::string> ends_;
    std::string buffer_;
};

/// Finds a banner in the first bytes of a connection. Items that an earlier client has
/// not read come before it.
class BannerFinder {
  public:
    explicit BannerFinder(std::string_view banner) : banner_(banner) {}

    /// True once the banner is whole.
    bool feed(std::string_view bytes);
    /// The bytes before the banner; if there are very many, only the last of them.
    const std::string& before() const { return before_; }
    /// The bytes after the banner.
    const std::string& after() const { return after_; }
    /// True if the bytes so far end with a part of the banner.
    bool begun() const;

  private:
    std::string banner_;
    std::string before_;
    std::string after_;
};

}  // namespace zolt_ports
