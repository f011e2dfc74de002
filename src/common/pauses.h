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
/// taken for a number without sign and lasts half an hour and more. The system may
/// be late with it, and with every other pause of the calling thread until the next
/// one of these, by its timer slack: 50 microseconds unless set otherwise. With
/// `punctual` and a pause that is shorter than that it is not late, and the pause is
/// over before the thread has left its processor: for one that occupies it anyway.
void pauseCycle(std::int32_t microseconds, bool punctual = false);
