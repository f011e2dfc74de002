// Plays golden dialogues against the daemon: zolt-dialogue check|rebuild|view.

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/golden/dialogue.h"
#include "tests/golden/log_lines.h"
#include "tests/golden/runner.h"
#include "tests/support/files.h"
#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

namespace {

using golden::Dialogue;

constexpr int kAttempts = 3;
constexpr const char* kUsage =
    "usage: zolt-dialogue check|rebuild|view FILE...\n"
    "  check    play each dialogue and compare what comes with the file\n"
    "  rebuild  play each dialogue and write what comes into the file\n"
    "  view     play each dialogue as check does and print it with times\n";

Dialogue load(const std::string& path) {
    if (!std::filesystem::exists(path)) throw std::invalid_argument("no file " + path);
    return Dialogue::parse(path, support::readFile(path));
}

// A run on a machine that was too slow proves nothing and is repeated. A fault of the daemon
// that looks like a slow machine fails in every run, so also in the last one.
bool checkFile(const std::string& path) {
    const auto dialogue = load(path);
    for (int attempt = 1;; ++attempt) {
        const auto outcome = golden::check(dialogue);
        if (outcome.failure.empty()) {
            std::cout << "ok " << path << std::endl;
            return true;
        }
        std::cout << outcome.failure << std::flush;
        if (!outcome.machineTooSlow || attempt == kAttempts) return false;
        std::cout << "The machine was too slow for the daemon's time limits.\n"
                     "The dialogue is played again.\n"
                  << std::flush;
    }
}

bool hasTimeout(const std::vector<golden::Item>& items) {
    return std::any_of(items.begin(), items.end(), golden::isTimeout);
}

bool rebuildFile(const std::string& path) {
    const auto dialogue = load(path);
    const auto recording = golden::record(dialogue);
    for (std::size_t i = 0; i < recording.size(); ++i) {
        if (!hasTimeout(recording[i]) || hasTimeout(dialogue.steps()[i].expected)) continue;
        std::cout << path << ":" << dialogue.steps()[i].line
                  << ": the daemon gave up an answer in this step. If the dialogue does not ask "
                     "for that, the machine was too slow: rebuild again.\n";
    }
    const auto text = dialogue.withExpectations(recording);
    if (text == support::readFile(path)) {
        std::cout << "same " << path << std::endl;
    } else {
        support::writeFile(path, text);
        std::cout << "rebuilt " << path << std::endl;
    }
    return true;
}

bool viewFile(const std::string& path) {
    const auto dialogue = load(path);
    const auto start = support::Clock::now();
    const auto print = [start](const std::string& text) {
        const std::chrono::duration<double> seconds = support::Clock::now() - start;
        std::printf("%8.3f  %s\n", seconds.count(), text.c_str());
        std::fflush(stdout);
    };
    golden::Listener listener;
    listener.action = [&print](const golden::Step& step) { print(step.text()); };
    listener.item = [&print](const golden::Item& item) { print("    " + writeItem(item)); };
    const auto outcome = golden::check(dialogue, listener);
    std::cout << outcome.failure << std::flush;
    return outcome.failure.empty();
}

int restartInPrivateView(int argc, char** argv) {
    std::string launcher = ZOLT_PRIVATE_VIEW;
    std::string isolate = "--isolate";
    std::string self = std::filesystem::read_symlink("/proc/self/exe");
    std::vector<char*> arguments = {launcher.data(), isolate.data(), self.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc + 1);
    ::execv(launcher.c_str(), arguments.data());
    std::perror(launcher.c_str());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    bool (*run)(const std::string&) = command == "check"     ? checkFile
                                      : command == "rebuild" ? rebuildFile
                                      : command == "view"    ? viewFile
                                                             : nullptr;
    if (run == nullptr || argc < 3) {
        std::cerr << kUsage;
        return 2;
    }
    if (!support::inPrivateView()) return restartInPrivateView(argc, argv);
    bool good = true;
    for (int i = 2; i < argc; ++i) {
        try {
            good = run(argv[i]) && good;
        } catch (const std::exception& error) {
            std::cerr << error.what() << "\n";
            good = false;
        }
    }
    return good ? 0 : 1;
}
