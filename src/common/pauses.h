#pragma once

/// Pauses the calling thread for `seconds`, the whole time also when a signal
/// arrives. 0 and less return at once.
void sleepsec(int seconds);

/// Pauses for n steps of 100 nanoseconds with one request whose seconds part is
/// 0: from ten million steps (one second) on the request is invalid and the
/// call returns at once. A signal ends the pause early.
void Sleep(unsigned int n);

/// Reads the clock for so long, and not at all when that is below 0: for pauses so
/// short that a timer, which takes 20 to 60 microseconds to set up and to end, would be
/// late.
void spinFor(long nanoseconds);
