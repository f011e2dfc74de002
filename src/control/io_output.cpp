#include <cstdio>
#include <optional>
#include <utility>

#include "control/io_forms.h"
#include "control/zolt.h"

bool ZOLT::ParseOutCommand(ByteList list) {
    for (const std::string& command :
         splitCommands(Convert_QList2String(list), config_.io.inpSeparator)) {
        try {
            if (std::optional<OutputFrame> frame = translateOutput(command, cards_.get())) {
                serial_->CommandQueue(frame->address).ToQueue(std::move(frame->bytes));
            } else {
                replyToConsole("COE:Illegal command -> " + command);
            }
        } catch (int error) {
            std::printf("Caught an exception -- value is: %d\nka>%s<\n", error, command.c_str());
            std::fflush(stdout);
            replyToConsole("COE:Parser exception -> " + command);
        }
    }
    return true;
}

void ZOLT::replyToConsole(const std::string& text) {
    const std::string& separator = config_.cae.outSeparator;
    cae_->replyQueue.ToQueue(Convert_String2QList(text + separator));
    // A fresh prompt behind what stands in the middle of the operator's line.
    cae_->replyQueue.ToQueue(Convert_String2QList(">" + separator));
}
