#pragma once

#include "apps/zolt-sim/options.h"

namespace zolt_sim {

/// The descriptors of one run. The caller keeps them open.
struct RunDescriptors {
    /// Gives controls, one per line.
    int input;
    /// Gets the filtered trace and the answers to the controls of the input.
    int output;
    /// Becomes readable when the run shall end.
    int stop;
};

/// Runs a simulated bus with all that the options ask for: trace, scenario and controls.
/// Returns after the control "quit" or a stop; the link and the control socket are then
/// removed. Throws Error if the bus cannot start, and std::system_error if the system
/// gives no thread or descriptor.
void runProgram(const Options& options, const RunDescriptors& descriptors);

}  // namespace zolt_sim
