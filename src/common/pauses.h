#pragma once

/// Pauses the calling thread for `seconds`, also when a signal arrives meanwhile. Returns
/// at once for 0 and for negative numbers.
void sleepsec(int seconds);

/// Pauses for n steps of 100 nanoseconds with one request whose seconds part is
/// 0: from ten million steps (one second) on the request is invalid and the
/// call returns at once. A signal ends the pause early.
void Sleep(unsigned int n);

/// Busy-waits for `nanoseconds`; returns at once if the number is negative. This is for
/// waits that are shorter than the 20 to 60 microseconds that a timer costs.
void spinFor(long nanoseconds);
