#include "apps/zolt-check/separator_checks.h"

#include <array>
#include <cctype>
#include <cstddef>

#include "apps/zolt-check/wording.h"
#include "core/config_schema.h"

namespace check {
namespace {

namespace schema = config_schema;

/// Sizes of an OutSeparator from which on an answer reaches the 1000 characters
/// that end the daemon: "CIE: UNKNOWN COMMAND " takes it twice, the farewell of
/// IO once.
constexpr std::size_t kDeadlyOnConsole = 489;
constexpr std::size_t kDeadlyOnIo = 984;

constexpr const char* kConsole = "CAE";
constexpr const char* kIo = "IO";
constexpr const char* kMonitor = "MON";

bool isUsual(const std::string& separator) {
    return separator == "\r\n" || separator == "\n" || separator == "\r";
}

struct Misspelling {
    const char* typed;  ///< in lower case
    const char* meant;
};

constexpr std::array kMisspellings{
    Misspelling{"/r/n", "\\r\\n"},
    Misspelling{"/r", "\\r"},
    Misspelling{"/n", "\\n"},
    Misspelling{"crlf", "\\r\\n"},
    Misspelling{"cr", "\\r"},
    Misspelling{"lf", "\\n"},
    Misspelling{"\\\\r\\\\n", "\\r\\n"},
    Misspelling{"rn", "\\r\\n"},
    Misspelling{"\\n\\r", "\\r\\n"},
    Misspelling{"\\r\\n", "\\r\\n"},
    Misspelling{"\\r", "\\r"},
    Misspelling{"\\n", "\\n"},
};

std::string meantSeparator(const std::string& typed) {
    std::string lower;
    for (const char character : typed) {
        lower += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    for (const Misspelling& row : kMisspellings) {
        if (lower == row.typed) {
            return std::string(" (did you mean \"") + row.meant + "\"?)";
        }
    }
    return "";
}

/// The first backslash pair that stands for nothing: "\t".
std::string unknownPair(const std::string& typed) {
    for (std::size_t at = typed.find('\\'); at != std::string::npos;
         at = typed.find('\\', at + 1)) {
        std::string pair = typed.substr(at, 2);
        if (pair != "\\r" && pair != "\\n" && pair.size() == 2) {
            return pair;
        }
    }
    return "";
}

std::string emptyMeans(const std::string& attribute, const std::string& interface) {
    if (attribute == schema::kOutSeparator) {
        return "only the carriage return that follows each reply stands between them";
    }
    return interface == kIo ? "each packet is one command, line ends included"
                            : "a command is the bare word, and one with a line end is unknown";
}

std::string whatClientsMeet(const std::string& attribute) {
    return attribute == schema::kOutSeparator ? "each line that a client gets ends in it"
                                              : "a client has to end each line with it";
}

/// What a separator of this size ends the daemon at; empty when it does not.
std::string deadlyAt(const std::string& interface, std::size_t size) {
    if (interface == kConsole && size >= kDeadlyOnConsole) {
        return "from " + std::to_string(kDeadlyOnConsole) + " on the first unknown command";
    }
    if (interface == kIo && size >= kDeadlyOnIo) {
        return "from " + std::to_string(kDeadlyOnIo) + " on the first EXIT";
    }
    return "";
}

/// The separator, or its size when it is long.
std::string shownShortly(const std::string& separator) {
    constexpr std::size_t kShownLimit = 40;
    return separator.size() <= kShownLimit ? shownSeparator(separator)
                                           : std::to_string(separator.size()) + " bytes";
}

}  // namespace

void checkSeparator(const ConfigAttribute& attribute, const std::string& separator,
                    const std::string& interface, Findings& findings) {
    const std::string subject = attribute.name + " of " + inQuotes(interface);
    if (interface == kMonitor) {
        if (attribute.name == schema::kInpSeparator && !isUsual(separator)) {
            findings.warning(attribute.place,
                             subject + " is never used: what a monitor client sends is ignored");
        }
        return;
    }
    const std::string deadly = attribute.name == schema::kOutSeparator
                                   ? deadlyAt(interface, separator.size())
                                   : std::string();
    if (!deadly.empty()) {
        findings.warning(attribute.place, subject + " has " + std::to_string(separator.size()) +
                                              " bytes: " + deadly + " ends zolt");
    } else if (separator.empty()) {
        findings.warning(attribute.place,
                         subject + " is empty: " + emptyMeans(attribute.name, interface));
    } else if (attribute.controlsBecameBlanks) {
        findings.warning(attribute.place,
                         subject +
                             ": line ends and tabs typed in it are read as blanks: write "
                             "\\r and \\n");
    } else if (const std::string pair = unknownPair(attribute.value); !pair.empty()) {
        findings.warning(attribute.place, subject + " has " + inQuotes(pair) +
                                              ", which is taken as it stands: only \\r and \\n "
                                              "stand for a character" +
                                              meantSeparator(attribute.value));
    } else if (!isUsual(separator)) {
        findings.warning(attribute.place,
                         subject + " is unusual: " + whatClientsMeet(attribute.name) + ", " +
                             shownShortly(separator) + meantSeparator(attribute.value));
    }
}

}  // namespace check
