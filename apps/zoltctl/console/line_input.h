// Where the lines of the interactive console come from.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ctl {

class LineInput {
  public:
    LineInput() = default;
    virtual ~LineInput() = default;
    LineInput(const LineInput&) = delete;
    LineInput& operator=(const LineInput&) = delete;

    /// The next line without its end; nothing at the end of the input. While it
    /// waits it calls `onReadable` whenever `descriptor` is readable, and lets its
    /// exceptions through.
    virtual std::optional<std::string> next(int descriptor,
                                            const std::function<void()>& onReadable) = 0;
    /// Called before and after something is written while next() waits.
    virtual void stepAside() = 0;
    virtual void comeBack() = 0;
};

/// Lines with editing, history and completion of the console's words.
std::unique_ptr<LineInput> makeTerminalInput();

/// Lines of standard input as they come.
std::unique_ptr<LineInput> makePlainInput();

/// Waits for standard input, and calls `onReadable` as LineInput::next does.
void awaitInput(int descriptor, const std::function<void()>& onReadable);

}  // namespace ctl
