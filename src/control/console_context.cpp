#include "control/console_context.h"

#include <utility>

ConsoleContext::ConsoleContext(ConsoleHost& host, std::string outSeparator)
    : host_(host), outSeparator_(std::move(outSeparator)) {}

void ConsoleContext::reply(const std::string& line) {
    host_.reply(Convert_String2QList(line + outSeparator_));
}
