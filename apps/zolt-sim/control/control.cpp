#include "apps/zolt-sim/control/control.h"

#include "apps/zolt-sim/error.h"

namespace zolt_sim {
namespace {

using Verb = Control::Verb;

/// Carries out a control that changes a card and returns the change as a readable line.
std::string changeCard(const Control& control, BusModel& model) {
    const std::uint8_t address = control.address.value_or(0);
    switch (control.verb) {
        case Verb::kSet:
            return model.setInput(address, control.number, control.value);
        case Verb::kPress:
            return model.press(address, control.number, true);
        case Verb::kRelease:
            return model.press(address, control.number, false);
        case Verb::kTurn:
            return model.turn(address, control.number, control.value);
        case Verb::kKey:
            return model.key(address, control.value);
        case Verb::kInsert:
            return model.insert(address, control.slot);
        default:
            return model.remove(address);
    }
}

std::vector<std::string> execute(const Control& control, const ControlTarget& target) {
    switch (control.verb) {
        case Verb::kUnplug:
            target.unplug();
            return {};
        case Verb::kPlug:
            target.plug(control.path);
            return {};
        case Verb::kQuit:
            target.quit();
            return {};
        case Verb::kTrace:
            target.trace.setFilter(control.filter);
            return {};
        case Verb::kHelp:
            return controlHelp();
        default:
            break;
    }
    const std::lock_guard guard(target.lock);
    switch (control.verb) {
        case Verb::kShow:
            return control.address ? target.model.show(*control.address) : target.model.showAll();
        case Verb::kFault:
            target.faults.add(control.fault);
            return {};
        case Verb::kFaults:
            return target.faults.describe();
        case Verb::kFaultsClear:
            target.faults.clear();
            return {};
        default:
            target.trace.record(Trace::Topic::kOther, changeCard(control, target.model));
            return {};
    }
}

}  // namespace

std::string ControlAnswer::text() const {
    std::string result;
    for (const std::string& line : lines) {
        result += line + "\n";
    }
    return result + (ok() ? "ok\n" : "error: " + error + "\n");
}

ControlAnswer runControl(std::string_view line, const ControlTarget& target) {
    try {
        return {execute(parseControl(line), target), ""};
    } catch (const Error& error) {
        return {{}, error.what()};
    }
}

}  // namespace zolt_sim
