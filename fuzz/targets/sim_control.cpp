// Fuzzes the controls of the simulated bus as they arrive from a client, in pieces. A line
// that begins with ">" is a request of the host to the bus, in hexadecimal.

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/adapter/faults.h"
#include "apps/zolt-sim/bytes.h"
#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/control/control_server.h"
#include "apps/zolt-sim/error.h"
#include "apps/zolt-sim/trace.h"
#include "apps/zolt-sim/words.h"
#include "fuzz/support/target.h"
#include "lib/text/hexadecimal.h"

namespace {

constexpr std::size_t kMostBytes = 9000;
/// The size of one piece that arrives.
constexpr std::size_t kPiece = 97;

constexpr const char* kBus =
    "0 servo\n3 digital-input\n5 digital-output\n7 code 2A\n8 keymatrix\n9 ir\nA motor\n"
    "B silent\nE lcd\nF analogue-input\n";

class ControlledBus {
  public:
    void take(const std::string& line) {
        if (line.starts_with(">")) {
            if (const auto request = zolt_text::parseHexBytes(line.substr(1))) {
                ask(*request);
            }
            return;
        }
        const zolt_sim::ControlAnswer answer = zolt_sim::runControl(line, target_);
        const std::string text = answer.text();
        fuzz::require(text.ends_with("\n"), "an answer is whole lines");
        fuzz::require(answer.ok() ? text.ends_with("ok\n") : answer.lines.empty(),
                      "a verdict, and no lines with an error");
        requireFaultsReadable();
    }

  private:
    void ask(const zolt_sim::Bytes& request) {
        const std::optional<zolt_sim::Bytes> answer = model_.answer(request).answer;
        fuzz::require(!answer || answer->size() <= zolt_sim::wire::kLongestPayload,
                      "an answer fits its length byte");
        const zolt_sim::WireOutput output = faults_.apply(request, answer);
        fuzz::require(output.faulty || !answer || output.bytes.size() == answer->size() + 1,
                      "without a fault the frame of the answer");
        // 255 bytes of noise before the longest frame.
        fuzz::require(output.bytes.size() <= 255 + 256, "no more than a fault and a frame");
    }

    /// Every fault that "faults" lists can be typed again and is then listed as the same.
    void requireFaultsReadable() const {
        for (const std::string& fault : faults_.describe()) {
            fuzz::require(
                zolt_sim::faultText(zolt_sim::parseFault(zolt_sim::splitWords(fault))) == fault,
                "a fault reads as it is listed");
        }
    }

    std::mutex lock_;
    zolt_sim::BusModel model_{zolt_sim::parseBusText(kBus, "fuzz.bus")};
    zolt_sim::FaultList faults_;
    zolt_sim::Trace trace_;
    zolt_sim::ControlTarget target_{lock_,
                                    model_,
                                    faults_,
                                    trace_,
                                    [](const std::string& path) {
                                        if (path == "refused")
                                            throw zolt_sim::Error("no such path");
                                    },
                                    [] {},
                                    [] {}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest = fuzz::textOf(data, size, kMostBytes);
    ControlledBus bus;
    zolt_sim::ControlLines lines;
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, kPiece);
        for (const std::optional<std::string>& line : lines.feed(piece)) {
            if (line) {
                bus.take(*line);
            }
        }
        rest.remove_prefix(piece.size());
    }
    return 0;
}
