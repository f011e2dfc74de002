#include "tests/reliability/soak/calm.h"

#include <array>
#include <functional>
#include <thread>
#include <utility>

#include "tests/reliability/accounts/traffic.h"

namespace reliability {
namespace {

using support::Clock;

constexpr std::chrono::milliseconds kQuiet{300};
constexpr int kRepeats = 3;
// The number of commands, and of input changes, in one calm phase.
constexpr std::size_t kItems = 300;

// A failure that a link loss in the same phase does not explain.
class Unexplained : public Failure {
  public:
    using Failure::Failure;
};

class Calm {
  public:
    Calm(SoakStage& stage, Random& random, CalmCounts& counts)
        : stage_(stage),
          random_(random),
          counts_(counts),
          lossesBefore_(stage.bus().counts().losses) {}

    void run() {
        stage_.endStorm();
        passQueuedLines();
        stage_.findLink();
        clearCards();
        settleOutputs();
        drainReports();
        countTraffic();
    }

  private:
    bool allServed() {
        return stage_.cae().served() && stage_.io().served() && stage_.mon().served();
    }

    // Once the daemon answers lines that are sent now, it has processed everything that
    // the clients sent before. An EXIT among the earlier lines ends a connection and makes
    // another attempt necessary.
    void passQueuedLines() {
        const auto deadline = Clock::now() + kHang;
        do {
            if (Clock::now() > deadline) throw Failure("the clients are not served again");
            stage_.serveClients();
        } while (!exchangeTokens("mark" + std::to_string(random_.below(1'000'000))));
    }

    bool exchangeTokens(const std::string& token) {
        stage_.await("the daemon's reading of what clients sent", [this] {
            return !allServed() || (stage_.cae().hasBeenRead() && stage_.io().hasBeenRead());
        });
        if (!allServed()) return false;
        // The console repeats the number as typed, and reports the illegal line of IO.
        stage_.cae().send("SPEED=100 " + token + "\r\n");
        stage_.io().send(token + "\r\n");
        stage_.await("the answers to " + token, [&] {
            const std::string& console = stage_.cae().received();
            return !allServed() ||
                   (console.find("SET to 100 " + token + "%") != std::string::npos &&
                    console.find("COE:Illegal command -> " + token) != std::string::npos &&
                    stage_.mon().received().find(token) != std::string::npos);
        });
        return allServed();
    }

    void clearCards() {
        stage_.ask("DISABLEPOLL", consoleReply({"CIA: GLOBAL POLLING IS DISABLED"}));
        std::size_t polls = 0;
        auto since = Clock::now();
        stage_.await("the end of the polls", [&] {
            const std::size_t now = stage_.bus().counts().polls;
            if (std::exchange(polls, now) != now) since = Clock::now();
            return Clock::now() - since > kQuiet;
        });
        for (const char* card : {"1", "2", "3", "4", "6", "7", "B", "C"}) {
            for (const char* block : {" 0 0", " 1 0"}) {
                stage_.bus().control("set " + std::string(card) + block);
            }
        }
        for (const char* channel : {"0", "5"}) {
            stage_.bus().control("turn F " + std::string(channel) + " 0");
        }
        stage_.bus().control("key 8 0");
        stage_.findCards();
        stage_.setCardsKnown(true);
    }

    // Once new commands have reached the cards, all commands of the storm have done so or
    // are lost. Each storm is judged by itself: the link losses of one storm do not excuse
    // a command that is lost in another.
    void settleOutputs() {
        if (stage_.outputs().sent == 0) stage_.bus().takeOutputs();
        stage_.accountForOutputs(true);
        const auto deadline = Clock::now() + kHang;
        while (stage_.outputsUnderWay() > 0) {
            if (Clock::now() > deadline) throw Failure("output commands do not pass");
            stage_.sendOutputs(2);
            const auto patience = Clock::now() + kHang / 10;
            stage_.await("the passing of commands",
                         [&] { return stage_.outputsUnderWay() == 0 || Clock::now() > patience; });
        }
        const Tally storm = stage_.outputs();
        const bool explained = storm.lost <= stage_.explainedLosses() && storm.doubled == 0 &&
                               storm.outOfOrder == 0 && storm.unknown == 0;
        if (!explained) {
            throw Unexplained("commands of the storm: " + storm.text() + ", of which " +
                              std::to_string(stage_.explainedLosses()) + " may be lost");
        }
        counts_.mayBeLost += stage_.explainedLosses();
        counts_.stormCommands += storm;
        stage_.beginAccount();
    }

    // Reports of the storm that still wait come before the reports of these changes.
    void drainReports() {
        stage_.ask("ENABLEPOLL", consoleReply({"CIA: GLOBAL POLLING IS ENABLED"}));
        for (const char* value : {"F1", "00"}) {
            const std::string report = "a3b0d" + std::string(value) + "\r\n\r";
            stage_.bus().control("set 3 0 " + std::string(value));
            stage_.await("the report of an input", [&] {
                return stage_.io().received().find(report) != std::string::npos &&
                       stage_.mon().received().find(report) != std::string::npos;
            });
            stage_.io().take();
            stage_.mon().take();
        }
    }

    void countTraffic() {
        constexpr std::array kPercents{1, 50, 90, 100, 100};
        const std::string percent = std::to_string(random_.oneOf(kPercents));
        stage_.ask("SPEED=" + percent, "CIA: SPEED IS SET to " + percent + "%\r\n\r>\r\n\r");
        stage_.diary().note("300 commands and 300 input changes");
        stage_.accountForOutputs(false);
        stage_.diary().pause(true);
        Traffic traffic(stage_.bus(), stage_.io(), stage_.mon(), {kItems, kItems, 0});
        const auto deadline = Clock::now() + kHang;
        const auto play = [&](const std::function<bool()>& ended) {
            while (!ended()) {
                stage_.tick();
                if (!traffic.step()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        };
        play([&] { return traffic.done() || Clock::now() > deadline; });
        const auto quietEnd = Clock::now() + kQuiet;
        play([&] { return Clock::now() > quietEnd; });
        traffic.close();
        stage_.diary().pause(false);
        stage_.accountForOutputs(true);
        judge(traffic.result());
    }

    void judge(const Traffic::Result& result) {
        if (!result.exact()) {
            const std::string text = "calm phase: commands " + result.commands.text() +
                                     "; reports at IO " + result.reportsAtIo.text() + "; at MON " +
                                     result.reportsAtMon.text() + "; lines at MON " +
                                     result.linesAtMon.text();
            const std::size_t losses = stage_.bus().counts().losses - lossesBefore_;
            if (!result.linkLossExplains(losses, true)) throw Unexplained(text);
            throw Failure(text);
        }
        counts_.commands += result.commands;
        counts_.reports += result.reportsAtIo;
        stage_.ask("DRVVER", consoleReply({"CIA: DRIVER VERSION 1.20"}));
    }

    SoakStage& stage_;
    Random& random_;
    CalmCounts& counts_;
    std::size_t lossesBefore_;
};

}  // namespace

void calmDown(SoakStage& stage, Random& random, CalmCounts& counts) {
    for (int attempt = 1;; ++attempt) {
        const std::size_t lossesBefore = stage.bus().counts().losses;
        try {
            Calm(stage, random, counts).run();
            // The account of the next storm begins here.
            stage.beginAccount();
            return;
        } catch (const Unexplained&) {
            throw;
        } catch (const Failure& failure) {
            stage.diary().pause(false);
            stage.diary().note(failure.what());
            // When the commands of the storm are settled, all frames belong to this phase.
            stage.accountForOutputs(stage.outputs().sent > 0);
            const bool linkLost = stage.bus().counts().losses > lossesBefore;
            if (!linkLost || attempt == kRepeats || !stage.daemon().running()) throw;
            ++counts.repeated;
        }
    }
}

}  // namespace reliability
