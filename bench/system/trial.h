#pragma once

#include <string>
#include <vector>

#include "bench/report/report.h"
#include "bench/report/statistics.h"
#include "bench/system/command_sender.h"
#include "bench/system/daemon_session.h"
#include "bench/system/effort.h"
#include "bench/system/placement.h"
#include "bench/system/random_times.h"
#include "bench/system/slave.h"

namespace bench {

/// What one contestant does in one stretch of a round, and what came of it.
class Trial {
  public:
    Trial(const Contestant& contestant, const Effort& effort, const Placement& placement,
          RandomTimes& random)
        : contestant_(contestant), effort_(effort), placement_(placement), random_(random) {}

    // Each throws Failure when something does not work.

    /// Full scans and input changes; a daemon's at each speed, too.
    void inputs();
    /// Commands to an output card; a bare loop has none.
    void commands();
    /// What a daemon costs when nothing is asked of it.
    void rest();

    const Results& results() const { return results_; }
    const Histogram& lateness() const { return lateness_; }

  private:
    void daemonInputs();
    void bareLoopInputs();
    void gatewayInputs();
    void daemonCommands();
    void gatewayCommands();
    void speeds(DaemonSession& daemon, Slave& slave, std::vector<std::uint8_t>& values);
    void restOn(const std::string& bus, Slave* slave);
    void restAt(const std::string& key, const DaemonSession& daemon, const Slave* slave,
                Time started);
    void sendCommands(CommandSender& sender, pid_t process, Slave& slave);

    void add(const std::string& figure, double value) {
        results_.add(figure, contestant_.label, value);
    }
    void addLatencies(const std::string& figure, const std::vector<double>& microseconds);
    void addProcessor(const std::string& figure, double seconds, std::size_t commands);
    void addHoldings(const std::string& figure, pid_t process);
    /// When a contestant has ended.
    void close(const Slave& slave);

    const Contestant& contestant_;
    const Effort& effort_;
    const Placement& placement_;
    RandomTimes& random_;
    Results results_;
    Histogram lateness_;
};

}  // namespace bench
