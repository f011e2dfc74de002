#include "apps/zolt-sim/program.h"

#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/zolt-sim/background_writer.h"
#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/control/control_server.h"
#include "apps/zolt-sim/control/control_socket.h"
#include "apps/zolt-sim/control/scenario.h"
#include "apps/zolt-sim/error.h"
#include "apps/zolt-sim/simulated_bus.h"
#include "apps/zolt-sim/text_file.h"
#include "lib/os/descriptor.h"
#include "lib/os/event.h"

namespace zolt_sim {
namespace {

std::vector<ScenarioStep> readScenario(const std::string& path) {
    return path.empty() ? std::vector<ScenarioStep>() : parseScenario(readTextFile(path), path);
}

/// The trace as a file: a descriptor and the thread that writes to it.
class TraceFile {
  public:
    explicit TraceFile(const std::string& path)
        : descriptor_(open(path)), writer_(descriptor_.get()) {}

    void write(const std::string& text) { writer_.write(text); }

  private:
    static zolt_os::Descriptor open(const std::string& path) {
        constexpr mode_t kMode = 0644;
        zolt_os::Descriptor file(
            ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode));
        if (!file.valid()) {
            throw Error(path + ": " + std::strerror(errno));
        }
        return file;
    }

    zolt_os::Descriptor descriptor_;
    BackgroundWriter writer_;
};

/// A sink that writes each trace line to `writer`.
template <typename Writer>
BusOptions::Sink sinkTo(Writer& writer, bool filtered) {
    return {[&writer](const std::string& line) { writer.write(line + "\n"); }, filtered};
}

/// Carries out a step of the scenario. Its control and the answer go into the trace.
void playStep(SimulatedBus& bus, const std::string& control) {
    bus.note("scenario: " + control);
    const ControlAnswer answer = bus.control(control);
    for (const std::string& line : answer.lines) {
        bus.note(line);
    }
    if (!answer.ok()) {
        bus.note("error: " + answer.error);
    }
}

}  // namespace

void runProgram(const Options& options, const RunDescriptors& descriptors) {
    const BusLayout layout = readBusFile(options.busFile);
    std::vector<ScenarioStep> steps = readScenario(options.scenarioFile);
    std::optional<ControlSocket> socket;
    if (!options.controlPath.empty()) {
        socket.emplace(options.controlPath);
    }
    std::optional<TraceFile> traceFile;
    if (!options.traceFile.empty()) {
        traceFile.emplace(options.traceFile);
    }
    BackgroundWriter output(descriptors.output);
    zolt_os::Event quit;

    BusOptions busOptions;
    busOptions.link = options.link;
    busOptions.baud = options.baud;
    busOptions.keepTrace = false;
    busOptions.filter = options.filter;
    busOptions.quit = [&quit] { quit.raise(); };
    busOptions.sinks.push_back(sinkTo(output, true));
    if (traceFile) {
        busOptions.sinks.push_back(sinkTo(*traceFile, false));
    }
    SimulatedBus bus(layout, std::move(busOptions));
    const ScenarioPlayer player(std::move(steps), bus.start(),
                                [&bus](const std::string& control) { playStep(bus, control); });
    ControlServer server(
        [&bus](const std::string& line) { return bus.control(line); }, descriptors.input,
        [&output](const std::string& text) { output.write(text); }, socket ? &*socket : nullptr);
    server.serve({descriptors.stop, quit.get()});
}

}  // namespace zolt_sim
