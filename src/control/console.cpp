#include "control/console.h"

void interpretConsoleLine(const std::string& /*line*/, const std::string& outSeparator,
                          ZLQUEUE& replies) {
    replies.ToQueue(
        Convert_String2QList("CIE: UNKNOWN COMMAND " + outSeparator + ">" + outSeparator));
}
