#pragma once

#include <cstdint>

/// Pauses the calling thread for `seconds`, the whole time also when a signal
/// arrives. 0 and less return at once.
void sleepsec(int seconds);

/// Pauses for n steps of 100 nanoseconds with one request whose seconds part is
/// 0: from ten million steps (one second) on the request is invalid and the
/// call returns at once. A signal ends the pause early.
void Sleep(unsigned int n);

/// The pause at the begin of a worker's cycle, in microseconds; a negative one is
/// taken for a number without sign and lasts half an hour and more. One that is
/// shorter than the time by which the system may be late with it (the timer slack,
/// 50 microseconds unless set otherwise) makes the calling thread punctual for all
/// its pauses, until the next one that is not: a full-speed cycle would else take a
/// hundred times its pause, and a punctual thread at ordinary speeds would wake the
/// processor more often.
void pauseCycle(std::int32_t microseconds);
