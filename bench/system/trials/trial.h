#pragma once

#include <string>
#include <vector>

#include "bench/report/report.h"
#include "bench/report/statistics.h"
#include "bench/system/basics/random_times.h"
#include "bench/system/basics/tally.h"
#include "bench/system/cards/slave.h"
#include "bench/system/contestants/daemon_session.h"
#include "bench/system/machine/placement.h"
#include "bench/system/trials/command_sender.h"
#include "bench/system/trials/effort.h"

namespace bench {

/// One contestant in one stretch of a round, and the results.
class Trial {
  public:
    /// Losses go to `tally`, also when a stretch fails.
    Trial(const Contestant& contestant, const Effort& effort, const Placement& placement,
          RandomTimes& random, Tally& tally)
        : contestant_(contestant),
          effort_(effort),
          placement_(placement),
          random_(random),
          tally_(tally) {}

    // Each throws Failure when something does not work.

    /// Full scans and input changes; a daemon's at each speed, too.
    void inputs();
    /// Commands to an output card; a bare loop has none.
    void commands();
    /// The cost of a daemon that has nothing to do.
    void rest();

    // The same in a crowd, where a lost link counts and does not end a measure.
    void crowdedInputs();
    void crowdedCommands();

    const Results& results() const { return results_; }
    const Histogram& lateness() const { return lateness_; }

  private:
    void daemonInputs();
    void bareLoopInputs();
    void gatewayInputs();
    void daemonCommands();
    void gatewayCommands();
    void commandsAtFullSpeed();
    void commandsAtDefaultSpeed();
    void speeds(DaemonSession& daemon, Slave& slave, std::vector<std::uint8_t>& values);
    void restWithoutAdapter(const std::string& speed, std::optional<int> percent);
    void restOn(const std::string& bus, Slave& slave);
    void restAt(const std::string& key, const DaemonSession& daemon, const Slave& slave);
    static double crowdedScans(const Slave& slave, Clock::duration window);
    void restInCrowd(const std::string& speed, const DaemonSession& daemon);
    std::vector<double> changes(DaemonSession& daemon, Slave& slave, unsigned cards,
                                std::size_t count, double scans, std::vector<std::uint8_t>& values);
    void sendCommands(CommandSender& sender, pid_t process, Slave& slave);

    void add(const std::string& figure, double value) {
        results_.add(figure, contestant_.label, value);
    }
    void addLatencies(const std::string& figure, const std::vector<double>& microseconds);
    void addProcessor(const std::string& figure, double seconds, std::size_t commands);
    /// Adds the memory of the process, and returns the number of its threads.
    std::size_t addHoldings(const std::string& figure, pid_t process);
    /// Call this when the contestant has ended.
    void close(const Slave& slave);

    const Contestant& contestant_;
    const Effort& effort_;
    const Placement& placement_;
    RandomTimes& random_;
    Tally& tally_;
    Results results_;
    Histogram lateness_;
};

}  // namespace bench
