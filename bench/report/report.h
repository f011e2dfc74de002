#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bench/report/results.h"

namespace bench {

enum class Role { kDaemon, kBareLoop, kTunedGateway, kShippedGateway };

/// A program that is measured. The label heads its column; the program is a path, and in a
/// JSON text the name of the file alone.
struct Contestant {
    std::string label;
    Role role = Role::kDaemon;
    std::string program;
};

struct Machine {
    std::string processor;
    unsigned processors = 0;
    std::string kernel;
    /// How instrument and contestants share the processors.
    std::string placement;
};

/// What else ran on the machine, as a number of processors: 1 is one of them, all the time.
struct Noise {
    /// The machine's host took these, over the whole run and in its worst stretch.
    double steal = 0;
    double worstSteal = 0;
    /// Other programs used these, and the kernel on their behalf.
    double otherLoad = 0;
    double worstOtherLoad = 0;
};

/// How late the slave answered after the time that the wire takes, in microseconds.
struct Lateness {
    double answers = 0;
    double p50 = 0;
    double p99 = 0;
};

/// Links that a daemon lost in one attempt at a stretch. An attempt that failed for that
/// reason is discarded: its losses count, and its other figures do not.
struct LinkLoss {
    unsigned round = 0;
    std::string stretch;
    std::string contestant;
    std::size_t losses = 0;
    bool discarded = false;
};

/// All results of a run.
struct Report {
    /// "2026-11-21 07:07:17".
    std::string date;
    unsigned rounds = 0;
    double seconds = 0;
    Machine machine;
    Noise noise;
    Lateness lateness;
    std::vector<LinkLoss> linkLosses;
    /// What the contestants shared the machine with, in words; empty in a usual run.
    std::string crowd;
    /// Why the run ended before its last round; empty when it did not.
    std::string brokenOff;
    std::vector<Contestant> contestants;
    Results results;

    std::vector<std::string> labelsOf(Role role) const;
    /// The first contestant of the role; nothing when none took part.
    std::optional<std::string> labelOf(Role role) const;
};

/// Adds the figures that follow from others: the shares of the wire's limit and of the bare
/// loop, the cost of a further card, the time of a change beyond an exchange, the busy wait
/// and the processor time above the busy wait.
void addDerived(Report& report);

/// The limit of the wire: full scans a second of `cards` polled digital input cards.
double wireScans(unsigned cards);

}  // namespace bench
