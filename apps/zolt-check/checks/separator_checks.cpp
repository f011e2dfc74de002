#include "apps/zolt-check/checks/separator_checks.h"

#include <array>
#include <cctype>
#include <cstddef>

#include "apps/zolt-check/findings/wording.h"
#include "core/config_schema.h"
#include "lib/text/printable.h"

namespace zolt_check {
namespace {

namespace schema = config_schema;

/// The smallest sizes of an OutSeparator with which an answer reaches the 1000 characters
/// that end the daemon: "CIE: UNKNOWN COMMAND " contains the separator twice, the farewell
/// of IO once.
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

/// The first pair with a backslash that the daemon does not replace: "\t".
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
        return "only a carriage return separates the replies";
    }
    return interface == kIo ? "each packet is one command, line ends included"
                            : "a command with a line end is unknown";
}

std::string effectOf(const std::string& attribute) {
    return attribute == schema::kOutSeparator ? "each line to a client ends in "
                                              : "a client has to end each line with ";
}

/// The event at which a separator of this size ends the daemon; empty if it does not.
std::string deadlyAt(const std::string& interface, std::size_t size) {
    if (interface == kConsole && size >= kDeadlyOnConsole) {
        return "with " + std::to_string(kDeadlyOnConsole) + " or more, the first unknown command";
    }
    if (interface == kIo && size >= kDeadlyOnIo) {
        return "with " + std::to_string(kDeadlyOnIo) + " or more, the first EXIT";
    }
    return "";
}

/// The separator, or only its size if it is long.
std::string shownShortly(const std::string& separator) {
    constexpr std::size_t kShownLimit = 40;
    return separator.size() <= kShownLimit ? shownSeparator(separator)
                                           : "these " + std::to_string(separator.size()) + " bytes";
}

}  // namespace

void checkSeparator(const ConfigAttribute& attribute, const std::string& separator,
                    const std::string& interface, Findings& findings) {
    const std::string subject = attribute.name + " of " + zolt_text::quote(interface);
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
                             ": line ends and tabs in the file are read as blanks: write "
                             "\\r and \\n");
    } else if (const std::string pair = unknownPair(attribute.value); !pair.empty()) {
        findings.warning(attribute.place, subject + " has " + zolt_text::quote(pair) +
                                              ", which is taken literally: only \\r and \\n "
                                              "stand for a character" +
                                              meantSeparator(attribute.value));
    } else if (!isUsual(separator)) {
        findings.warning(attribute.place, subject + " is unusual: " + effectOf(attribute.name) +
                                              shownShortly(separator) +
                                              meantSeparator(attribute.value));
    }
}

}  // namespace zolt_check
