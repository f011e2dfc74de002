// zolt-sim: the simulated card bus as a program.
#include <fcntl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/control/control_server.h"
#include "apps/zolt-sim/control/control_socket.h"
#include "apps/zolt-sim/control/scenario.h"
#include "apps/zolt-sim/line/simulated_bus.h"
#include "apps/zolt-sim/line_writer.h"
#include "apps/zolt-sim/options.h"

namespace {

constexpr int kStartFailed = 1;
constexpr int kWrongUse = 2;

// A descriptor opened later must not become one of the standard streams.
void openMissingStreams() {
    int descriptor = 0;
    do {
        descriptor = ::open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

// A descriptor that becomes readable with a signal to end. One that was ignored
// at the start stays ignored, as for a job in the background of a script.
sim::Descriptor catchEndSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGTTIN, SIG_IGN);
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction action {};
        ::sigaction(number, nullptr, &action);
        if (number == SIGTERM || action.sa_handler != SIG_IGN) {
            ::sigaddset(&signals, number);
        }
    }
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return sim::checked(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd");
}

sim::Descriptor openTraceFile(const std::string& path) {
    if (path.empty()) {
        return {};
    }
    constexpr mode_t kMode = 0644;
    return sim::checked(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode),
                        path.c_str());
}

// A line of the scenario and what came of it go into the trace.
void playStep(sim::SimulatedBus& bus, const std::string& control) {
    bus.note("scenario: " + control);
    const sim::ControlAnswer answer = bus.control(control);
    for (const std::string& line : answer.lines) {
        bus.note(line);
    }
    if (!answer.ok()) {
        bus.note("error: " + answer.error);
    }
}

void runBus(const sim::Options& options) {
    const sim::Descriptor endSignals = catchEndSignals();
    const sim::BusLayout layout = sim::readBusFile(options.busFile);
    std::vector<sim::ScenarioStep> steps;
    if (!options.scenarioFile.empty()) {
        steps = sim::parseScenario(sim::readTextFile(options.scenarioFile), options.scenarioFile);
    }
    std::optional<sim::ControlSocket> socket;
    if (!options.controlPath.empty()) {
        socket.emplace(options.controlPath);
    }
    const sim::Descriptor traceFile = openTraceFile(options.traceFile);
    std::optional<sim::LineWriter> fileWriter;
    sim::LineWriter output(STDOUT_FILENO);
    sim::StopEvent quit;

    sim::BusOptions busOptions;
    busOptions.link = options.link;
    busOptions.baud = options.baud;
    busOptions.keepTrace = false;
    busOptions.filter = options.filter;
    busOptions.quit = [&quit] { quit.wake(); };
    busOptions.sinks.push_back(
        {[&output](const std::string& line) { output.write(line + "\n"); }, true});
    if (traceFile.valid()) {
        fileWriter.emplace(traceFile.get());
        busOptions.sinks.push_back(
            {[&fileWriter](const std::string& line) { fileWriter->write(line + "\n"); }, false});
    }
    sim::SimulatedBus bus(layout, std::move(busOptions));
    const sim::ScenarioPlayer player(
        std::move(steps), bus.start(),
        [&bus](const std::string& control) { playStep(bus, control); });
    sim::ControlServer server(
        [&bus](const std::string& line) { return bus.control(line); }, STDIN_FILENO,
        [&output](const std::string& text) { output.write(text); }, socket ? &*socket : nullptr);
    server.serve({endSignals.get(), quit.get()});
}

}  // namespace

int main(int argc, char** argv) {
    openMissingStreams();
    sim::Options options;
    try {
        options = sim::parseOptions({argv + 1, argv + argc});
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "zolt-sim: %s\nzolt-sim: --help tells the options\n", error.what());
        return kWrongUse;
    }
    if (options.help) {
        std::fputs(sim::optionsHelp().c_str(), stdout);
        return 0;
    }
    if (options.version) {
        std::puts("zolt-sim " ZOLT_SIM_VERSION);
        return 0;
    }
    try {
        runBus(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zolt-sim: %s\n", error.what());
        return kStartFailed;
    }
    return 0;
}
