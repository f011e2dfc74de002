#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zoltctl {

/// Where the lines of the interactive console come from. Used by one thread.
class LineInput {
  public:
    LineInput() = default;
    virtual ~LineInput() = default;
    LineInput(const LineInput&) = delete;
    LineInput& operator=(const LineInput&) = delete;

    /// The next line without its end; nothing at the end of the input. While this waits,
    /// it calls `onReadable` whenever `descriptor` is readable, and passes exceptions of
    /// that call on.
    virtual std::optional<std::string> next(int descriptor,
                                            const std::function<void()>& onReadable) = 0;
    /// Removes the line that is being typed from the screen and shows it again. To be
    /// called before and after `onReadable` writes something.
    virtual void stepAside() = 0;
    virtual void comeBack() = 0;
};

/// Reads lines with editing, history and completion of the console's words. REQUIRES:
/// standard input and output are a terminal.
std::unique_ptr<LineInput> makeTerminalInput();

/// Reads the lines of standard input as they are.
std::unique_ptr<LineInput> makePlainInput();

}  // namespace zoltctl
