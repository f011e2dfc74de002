#include <cstdio>
#include <optional>
#include <utility>

#include "control/io_forms.h"
#include "control/zolt.h"

bool ZOLT::ParseOutCommand(const ByteList& list) {
    for (const std::string& command :
         splitCommands(Convert_QList2String(list), config_.io.inpSeparator)) {
        try {
            if (std::optional<OutputFrame> frame = translateOutput(command, cards_)) {
                serial_->CommandQueue(frame->address).ToQueue(std::move(frame->bytes));
            } else {
                reportIllegalCommand("COE:Illegal command -> " + command);
            }
        } catch (const CommandTooShort&) {
            std::printf("Caught an exception -- value is: %d\nka>%s<\n", CommandTooShort::kNumber,
                        command.c_str());
            std::fflush(stdout);
            reportIllegalCommand("COE:Parser exception -> " + command);
        }
    }
    return true;
}

void ZOLT::reportIllegalCommand(const std::string& text) {
    const std::string& separator = config_.cae.outSeparator;
    cae_->replyQueue.ToQueue(Convert_String2QList(text + separator));
    // The text arrives in the middle of the operator's line, so a fresh prompt follows.
    cae_->replyQueue.ToQueue(Convert_String2QList(">" + separator));
}
