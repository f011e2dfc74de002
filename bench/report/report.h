#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bench/report/results.h"

namespace bench {

enum class Role { kDaemon, kBareLoop, kTunedGateway, kShippedGateway };

/// Whatever is measured. The label heads its column; the program is a path, in a
/// JSON text only the name of the file.
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

/// What else went on, as processors (1 is one of them, all the time).
struct Noise {
    /// Taken by the machine's host, over the whole run and in its worst stretch.
    double steal = 0;
    double worstSteal = 0;
    /// Used by what does not belong to the run, and by the kernel for it.
    double otherLoad = 0;
    double worstOtherLoad = 0;
};

/// How late the slave answered after the time that the wire takes, in microseconds.
struct Lateness {
    double answers = 0;
    double p50 = 0;
    double p99 = 0;
};

/// Links that a daemon lost in one attempt at a stretch. An attempt that failed by
/// that is discarded: of its figures only what was lost counts.
struct LinkLoss {
    unsigned round = 0;
    std::string stretch;
    std::string contestant;
    std::size_t losses = 0;
    bool discarded = false;
};

/// All that a run has to tell.
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
    /// The first of the role; nothing when none took part.
    std::optional<std::string> labelOf(Role role) const;
};

/// Adds the figures that follow from others: the shares of the wire's limit and
/// of the bare loop, the cost of a further card, what a change takes beyond an exchange, the busy
/// wait and what is above it.
void addDerived(Report& report);

/// The limit of the wire: full scans a second of so many polled digital input cards.
double wireScans(unsigned cards);

/// One poll of a digital input card on the wire, in microseconds.
inline constexpr double kWirePoll = 9 * 10 * 1e6 / 460800;

}  // namespace bench
