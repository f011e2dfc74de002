#include <histedit.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <exception>
#include <filesystem>
#include <utility>

#include "apps/zoltctl/console/await_input.h"
#include "apps/zoltctl/console/console_words.h"
#include "apps/zoltctl/console/line_input.h"

namespace zoltctl {
namespace {

constexpr int kHistorySize = 1000;

/// The byte that the terminal makes of a Ctrl-D that is typed before the prompt.
constexpr char kTypedAheadEnd = '\0';
constexpr char kCtrlD = '\x04';

/// The file of the history; empty if there is no place for one.
std::filesystem::path historyFile() {
    const char* state = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    std::filesystem::path folder;
    if (state != nullptr && *state == '/') {
        folder = state;
    } else if (home != nullptr && *home == '/') {
        folder = std::filesystem::path(home) / ".local" / "state";
    } else {
        return {};
    }
    folder /= "zolt";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? std::filesystem::path() : folder / "console_history";
}

class TerminalInput : public LineInput {
  public:
    TerminalInput()
        : history_(::history_init()),
          line_(::el_init("zoltctl", stdin, stdout, stderr)),
          file_(historyFile()) {
        HistEvent event{};
        ::history(history_, &event, H_SETSIZE, kHistorySize);
        ::history(history_, &event, H_SETUNIQUE, 1);
        if (!file_.empty()) {
            ::history(history_, &event, H_LOAD, file_.c_str());
        }
        ::el_set(line_, EL_CLIENTDATA, this);
        ::el_set(line_, EL_PROMPT, &TerminalInput::prompt);
        ::el_set(line_, EL_EDITOR, "emacs");
        ::el_set(line_, EL_SIGNAL, 1);
        ::el_set(line_, EL_HIST, ::history, history_);
        ::el_set(line_, EL_ADDFN, "zolt-complete", "complete a command word",
                 &TerminalInput::complete);
        ::el_set(line_, EL_BIND, "^I", "zolt-complete", nullptr);
        ::el_set(line_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
        ::el_source(line_, nullptr);
        ::el_set(line_, EL_GETCFN, &TerminalInput::readCharacter);
    }
    ~TerminalInput() override {
        ::el_end(line_);
        ::history_end(history_);
    }

    std::optional<std::string> next(int descriptor,
                                    const std::function<void()>& onReadable) override {
        descriptor_ = descriptor;
        onReadable_ = &onReadable;
        int count = 0;
        const char* text = ::el_gets(line_, &count);
        onReadable_ = nullptr;
        if (thrown_) {
            endLine();
            std::rethrow_exception(std::exchange(thrown_, nullptr));
        }
        if (text == nullptr || count <= 0) {
            endLine();
            return std::nullopt;
        }
        std::string line(text, static_cast<std::size_t>(count));
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
            line.pop_back();
        }
        remember(line);
        return line;
    }

    void stepAside() override {
        std::fputs("\r\033[K", stdout);
        std::fflush(stdout);
    }
    void comeBack() override { ::el_set(line_, EL_REFRESH); }

  private:
    /// Ends the line that the cursor is in. Failures do not matter: a terminal that is gone
    /// needs no end.
    static void endLine() {
        [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, "\n", 1);
    }

    static TerminalInput& self(EditLine* line) {
        void* data = nullptr;
        ::el_get(line, EL_CLIENTDATA, &data);
        return *static_cast<TerminalInput*>(data);
    }

    static char* prompt(EditLine* /*line*/) {
        static std::array<char, 3> text{'>', ' ', '\0'};
        return text.data();
    }

    /// The library's source of characters. Returns 1 with a character, 0 at the end of the
    /// input, -1 to give up.
    static int readCharacter(EditLine* line, wchar_t* character) {
        TerminalInput& input = self(line);
        try {
            return input.read(character);
        } catch (...) {
            // An exception must not pass through the library's functions, which are C.
            input.thrown_ = std::current_exception();
            return -1;
        }
    }

    int read(wchar_t* character) {
        std::mbstate_t state{};
        for (;;) {
            awaitInput(descriptor_, *onReadable_);
            char byte = 0;
            const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
            if (count <= 0) {
                return count == 0 ? 0 : -1;
            }
            if (byte == kTypedAheadEnd) {
                byte = kCtrlD;
            }
            const std::size_t length = std::mbrtowc(character, &byte, 1, &state);
            if (length == static_cast<std::size_t>(-1)) {
                // The byte is not a character of the locale and is taken as it is.
                *character = static_cast<unsigned char>(byte);
                return 1;
            }
            if (length != static_cast<std::size_t>(-2)) {
                return 1;
            }
        }
    }

    static unsigned char complete(EditLine* line, int /*key*/) {
        const LineInfo* info = ::el_line(line);
        const std::string typed(info->buffer, info->cursor);
        const std::vector<std::string> words = completionsOf(typed);
        const std::string rest = commonStart(words).substr(words.empty() ? 0 : typed.size());
        if (!rest.empty()) {
            ::el_insertstr(line, rest.c_str());
            return CC_REFRESH;
        }
        if (words.size() < 2) {
            return CC_REFRESH_BEEP;
        }
        std::fputs("\n", stdout);
        for (const std::string& word : words) {
            std::printf("%s  ", word.c_str());
        }
        std::fputs("\n", stdout);
        std::fflush(stdout);
        return CC_REDISPLAY;
    }

    /// Adds the line to the history. Failures are ignored: the line is carried out anyway.
    void remember(const std::string& line) {
        if (line.empty()) {
            return;
        }
        HistEvent event{};
        ::history(history_, &event, H_ENTER, line.c_str());
        if (!file_.empty()) {
            ::history(history_, &event, H_SAVE, file_.c_str());
        }
    }

    History* history_;
    EditLine* line_;
    std::filesystem::path file_;
    int descriptor_ = -1;
    const std::function<void()>* onReadable_ = nullptr;
    std::exception_ptr thrown_;
};

}  // namespace

std::unique_ptr<LineInput> makeTerminalInput() {
    return std::make_unique<TerminalInput>();
}

}  // namespace zoltctl
