#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "core/zlqueue.h"
#include "fuzz/support/target.h"

namespace fuzz {

/// The last reported value of each (address, block).
using LastReports = std::map<std::pair<unsigned, unsigned>, unsigned>;

inline unsigned hexDigit(char digit) {
    require((digit >= '0' && digit <= '9') || (digit >= 'A' && digit <= 'F'),
            "a report has upper-case hexadecimal digits");
    return static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
}

/// Empties the queue of change reports. Each report has to be complete ("a3b0d40").
inline LastReports takeReports(ZLQUEUE& queue) {
    LastReports last;
    while (!queue.IsEmpty()) {
        const ByteList item = queue.DeQueue();
        const std::string text(item.begin(), item.end());
        require(text.size() == 7 && text[0] == 'a' && text[2] == 'b' && text[4] == 'd',
                "a report is aAbBdDD");
        last[{hexDigit(text[1]), hexDigit(text[3])}] = hexDigit(text[5]) * 16 + hexDigit(text[6]);
    }
    return last;
}

}  // namespace fuzz
