#pragma once

#include <cstdint>

/// Pauses the calling thread for `seconds`, the whole time also when a signal
/// arrives. 0 and less return at once.
void sleepsec(int seconds);

/// Pauses for n steps of 100 nanoseconds with one request whose seconds part is
/// 0: from ten million steps (one second) on the request is invalid and the
/// call returns at once. A signal ends the pause early.
void Sleep(unsigned int n);

/// By how many nanoseconds the system may be late with a pause (the timer slack)
/// that is shorter than its ordinary slack of 50 microseconds, which would else
/// decide how long a full-speed cycle takes.
enum class Slack : int {
    /// The least with which the thread really sleeps.
    kResting = 10'000,
    /// The pause is over before the thread has left its processor: for one that
    /// occupies it anyway.
    kBusy = 1,
};

/// The pause at the begin of a worker's cycle, in microseconds; a negative one is
/// taken for a number without sign and lasts half an hour and more. `slack` holds
/// for all pauses of the calling thread until the next one of these, and for
/// pauses that are shorter than the ordinary slack only: at ordinary speeds it
/// would wake the processor more often for nothing.
void pauseCycle(std::int32_t microseconds, Slack slack = Slack::kResting);
