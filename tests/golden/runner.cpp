#include "tests/golden/runner.h"

#include <algorithm>
#include <thread>

#include "tests/golden/comparer.h"
#include "tests/golden/log_lines.h"
#include "tests/golden/recording.h"
#include "tests/golden/stage.h"
#include "tests/support/process/processor_waits.h"
#include "tests/support/wait.h"

namespace golden {
namespace {

using support::Clock;

constexpr std::chrono::seconds kStepPatience{20};
constexpr std::chrono::milliseconds kLookEvery{3};
// The time after the last step in which no item may come.
constexpr std::chrono::milliseconds kEndQuiet{300};
// A thread that waits so long for a processor in one step misses the daemon's time limits: some
// tens of milliseconds for an answer of the bus, a second for the answer of a card.
constexpr std::chrono::milliseconds kLongWait{100};

class Check {
  public:
    Check(const Dialogue& dialogue, const Listener& listener)
        : dialogue_(dialogue), listener_(listener), stage_(dialogue.setup()) {}

    Outcome run() {
        const auto& steps = dialogue_.steps();
        if (std::all_of(steps.begin(), steps.end(),
                        [this](const Step& step) { return play(step); })) {
            stage_.waitForReads();
            watch(Clock::now() + kEndQuiet, [] { return false; });
        }
        const bool tooSlow = machineTooSlow();
        const std::string frames = stage_.frameLog();
        const std::string faults = stage_.finish();
        failure_ += faults;
        if (failure_.empty()) return {};
        return {report(frames), tooSlow && faults.empty() && !endedOtherwise_};
    }

  private:
    bool play(const Step& step) {
        step_ = &step;
        came_.clear();
        waitsBefore_ = support::processorWaits();
        stage_.waitForReads();
        comparer_.expect(step.implied);
        comparer_.expect(step.expected);
        timeoutsExpected_ += std::count_if(step.expected.begin(), step.expected.end(), isTimeout);
        listener_.action(step);
        try {
            stage_.perform(step);
        } catch (const std::exception& error) {
            failure_ = error.what();
            return false;
        }
        watch(Clock::now() + kStepPatience, [this] { return comparer_.complete(); });
        if (failure_.empty() && !comparer_.complete()) {
            failure_ = "  missing:\n";
            for (const auto& line : comparer_.missing()) failure_ += "    " + line + "\n";
        }
        return failure_.empty();
    }

    // Takes items until `done`, a failure or the deadline.
    void watch(Clock::time_point deadline, const std::function<bool()>& done) {
        do {
            for (const auto& item : stage_.collect()) {
                listener_.item(item);
                came_.push_back(item);
                if (isTimeout(item)) ++timeouts_;
                if (item.channel == "exit") endedOtherwise_ = !expectedNow(item);
                const auto problem = comparer_.take(item);
                if (problem && failure_.empty()) failure_ = *problem + "\n";
            }
            if (!failure_.empty() || done()) return;
            std::this_thread::sleep_for(kLookEvery);
        } while (Clock::now() < deadline);
    }

    bool expectedNow(const Item& item) const {
        const auto& expected = step_->expected;
        return std::find(expected.begin(), expected.end(), item) != expected.end();
    }

    bool machineTooSlow() const {
        return timeouts_ > timeoutsExpected_ ||
               support::longestWait(waitsBefore_, support::processorWaits()) > kLongWait;
    }

    std::string report(const std::string& frames) const {
        std::string text = dialogue_.name() + ":" + std::to_string(step_->line) + ": after \"" +
                           step_->text() + "\"\n" + failure_ + "  what came in this step:\n";
        for (const auto& item : came_) text += "    " + writeItem(item) + "\n";
        return text + "  last frames on the bus:\n" + frames;
    }

    const Dialogue& dialogue_;
    const Listener& listener_;
    Stage stage_;
    Comparer comparer_;
    const Step* step_ = nullptr;
    std::vector<Item> came_;
    std::string failure_;
    support::ProcessorWaits waitsBefore_;
    std::ptrdiff_t timeouts_ = 0;
    std::ptrdiff_t timeoutsExpected_ = 0;
    bool endedOtherwise_ = false;
};

}  // namespace

Outcome check(const Dialogue& dialogue, const Listener& listener) {
    return Check(dialogue, listener).run();
}

std::vector<std::vector<Item>> record(const Dialogue& dialogue) {
    Stage stage(dialogue.setup());
    Recording recording;
    std::vector<std::vector<Item>> steps;
    for (const auto& step : dialogue.steps()) {
        stage.waitForReads();
        stage.perform(step);
        for (auto quietSince = Clock::now(); Clock::now() < quietSince + step.settle;) {
            for (const auto& item : stage.collect()) {
                if (recording.add(item)) quietSince = Clock::now();
            }
            std::this_thread::sleep_for(kLookEvery);
        }
        steps.push_back(recording.endStep());
    }
    return steps;
}

}  // namespace golden
