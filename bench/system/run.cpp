#include "bench/system/run.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstring>
#include <exception>
#include <map>
#include <optional>
#include <ostream>
#include <string>

#include "bench/system/basics/clock.h"
#include "bench/system/basics/failure.h"
#include "bench/system/machine/machine.h"
#include "bench/system/machine/neighbours.h"
#include "bench/system/machine/noise_watch.h"
#include "bench/system/trials/trial.h"
#include "lib/os/descriptor.h"
#include "tests/support/process/private_view.h"

namespace bench {
namespace {

// A daemon that gets no processor for the time of an answer loses its link, and with the
// link what was under way. Such a stretch is played again, so that the run can go on; what
// was lost in it still counts.
constexpr int kAttempts = 5;

class Run {
  public:
    Run(const std::vector<Contestant>& contestants, const Effort& effort, const Crowd& crowd,
        std::ostream& progress)
        : effort_(effort),
          stretches_(crowd.any() ? kCrowdedStretches : kUsualStretches),
          progress_(progress),
          placement_(crowd),
          neighbours_(crowd.neighbours) {
        report_.contestants = contestants;
        report_.crowd = crowd.describe();
    }

    Report play() {
        const Time begin = Clock::now();
        report_.date = dateNow();
        report_.rounds = effort_.rounds;
        report_.machine = thisMachine();
        report_.machine.placement = placement_.describe();
        try {
            for (unsigned round = 1; round <= effort_.rounds; ++round) playRound(round);
        } catch (const std::exception& error) {
            report_.brokenOff = error.what();
            addTallies();
        }
        report_.seconds = secondsBetween(begin, Clock::now());
        report_.noise = noise_.noise();
        report_.lateness = {static_cast<double>(lateness_.count()), lateness_.percentile(50),
                            lateness_.percentile(99)};
        addDerived(report_);
        return report_;
    }

  private:
    struct Stretch {
        const char* name;
        void (Trial::*perform)();
    };
    using Stretches = std::vector<Stretch>;
    static inline const Stretches kUsualStretches{
        {"inputs", &Trial::inputs}, {"commands", &Trial::commands}, {"rest", &Trial::rest}};
    static inline const Stretches kCrowdedStretches{{"inputs", &Trial::crowdedInputs},
                                                    {"commands", &Trial::crowdedCommands}};

    void playRound(unsigned round) {
        for (const Stretch& stretch : stretches_) {
            progress_ << "round " << round << " of " << effort_.rounds << ": " << stretch.name
                      << std::endl;
            for (const Contestant& contestant : report_.contestants) {
                playStretch(contestant, stretch, round);
            }
        }
        addTallies();
    }

    void playStretch(const Contestant& contestant, const Stretch& stretch, unsigned round) {
        for (int attempt = 1;; ++attempt) {
            Tally tally;
            const auto problem = attemptOnce(contestant, stretch, tally);
            tallies_[contestant.label] += tally;
            if (tally.linkLosses > 0) {
                report_.linkLosses.push_back(
                    {round, stretch.name, contestant.label, tally.linkLosses, problem.has_value()});
            }
            if (!problem) return;
            const std::string what = contestant.label + ", " + stretch.name + ": " + *problem;
            if (tally.linkLosses == 0 || attempt == kAttempts) throw Failure(what);
            progress_ << what << "; the link was lost, so once more" << std::endl;
        }
    }

    /// Returns the reason when something did not work; then only the tally and the noise count.
    std::optional<std::string> attemptOnce(const Contestant& contestant, const Stretch& stretch,
                                           Tally& tally) {
        Trial trial(contestant, effort_, placement_, random_, tally);
        std::optional<std::string> problem;
        noise_.begin();
        try {
            (trial.*stretch.perform)();
        } catch (const std::exception& error) {
            problem = error.what();
        }
        noise_.end();
        if (problem) return problem;
        report_.results.add(trial.results());
        lateness_.add(trial.lateness());
        return problem;
    }

    // Each count over all stretches of a round is one value of that round.
    void addTallies() {
        for (const auto& [label, role, program] : report_.contestants) {
            const Tally& tally = tallies_[label];
            const auto add = [&, &name = label](const char* figure, std::size_t count) {
                report_.results.add(figure, name, static_cast<double>(count));
            };
            if (role == Role::kBareLoop) continue;
            add("commands.sent", tally.commandsSent);
            add("commands.lost", tally.commandsLost);
            if (role != Role::kDaemon) continue;
            add("link.losses", tally.linkLosses);
            if (report_.crowd.empty()) {
                add("reports.lost", tally.reportsLost);
            } else {
                add("answers.missed", tally.answersMissed);
            }
        }
        tallies_.clear();
    }

    const Effort& effort_;
    const Stretches& stretches_;
    std::ostream& progress_;
    const Placement placement_;
    const Neighbours neighbours_;
    RandomTimes random_;
    NoiseWatch noise_;
    Histogram lateness_;
    /// The counts of this round, by contestant.
    std::map<std::string, Tally> tallies_;
    Report report_;
};

// The gateway opens a port only on a machine with an address besides 127.0.0.1. The address
// here is reserved for examples.
void addNetworkAddress() {
    const zolt_os::Descriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    ifreq request{};
    std::strncpy(request.ifr_name, "lo:1", IFNAMSIZ - 1);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    ::inet_pton(AF_INET, "192.0.2.1", &address.sin_addr);
    std::memcpy(&request.ifr_addr, &address, sizeof address);
    if (::ioctl(socket.get(), SIOCSIFADDR, &request) != 0) {
        throw Failure("the loopback interface gets no second address");
    }
}

}  // namespace

Report run(const std::vector<Contestant>& contestants, const Effort& effort, const Crowd& crowd,
           std::ostream& progress) {
    if (::getpid() != 1) {
        throw Failure("start it by 'tools/private-view --isolate', in namespaces of its own");
    }
    // A test bed limits its process to one processor, but contestants may use all of them.
    cpu_set_t all;
    ::sched_getaffinity(0, sizeof all, &all);
    support::enterTestBed();
    ::sched_setaffinity(0, sizeof all, &all);
    addNetworkAddress();
    return Run(contestants, effort, crowd, progress).play();
}

}  // namespace bench
