// zolt-check: reports what the daemon would do with a configuration.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <string>

#include "apps/zolt-check/checks/file_check.h"
#include "apps/zolt-check/report.h"

namespace {

constexpr int kFailed = 2;

/// Prints the text and returns the exit status: `status`, or kFailed if writing failed.
int print(const std::string& text, int status) {
    // Without the signal, a reader that has gone shows as EPIPE, like any other failure.
    std::signal(SIGPIPE, SIG_IGN);
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() ||
        std::fflush(stdout) != 0) {
        std::fprintf(stderr, "zolt-check: cannot write the output: %s\n", std::strerror(errno));
        return kFailed;
    }
    return status;
}

int run(int argc, char** argv) {
    std::string file = "/etc/zolt/zoltconf.xml";
    zolt_check::ReportOptions options;
    CLI::App program(
        "Reports what zolt would do with a configuration: the resulting settings, and\n"
        "every mistake or surprise with its place.\n",
        "zolt-check");
    program.add_option("FILE", file, "the configuration")->capture_default_str();
    program.add_flag("--json", options.json, "one JSON object, for programs");
    program.add_flag("--quiet", options.quiet, "only mistakes and surprises, no settings");
    program.add_flag("--errors-only", options.errorsOnly,
                     "warnings are shown, but leave the exit status at 0");
    program.set_version_flag("--version", "zolt-check " ZOLT_VERSION, "prints the version");
    program.set_help_flag("--help", "prints this text");
    program.footer("Exit status: 0 clean, 1 warnings, 2 zolt would not start, or wrong usage.");
    try {
        program.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return print(program.help(), 0);
    } catch (const CLI::CallForVersion& version) {
        return print(std::string(version.what()) + "\n", 0);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "zolt-check: %s\nzolt-check: see --help for the options\n",
                     error.what());
        return kFailed;
    }
    const zolt_check::CheckedFile result = zolt_check::checkFile(file);
    return print(zolt_check::report(file, result, options),
                 zolt_check::exitStatus(result, options.errorsOnly));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("zolt-check: not enough memory for this file\n", stderr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zolt-check: %s\n", error.what());
    }
    return kFailed;
}
