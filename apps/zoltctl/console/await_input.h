#pragma once

#include <functional>

namespace zoltctl {

/// Waits until standard input is readable. Meanwhile calls `onReadable` whenever
/// `descriptor` is readable, and passes exceptions of that call on.
void awaitInput(int descriptor, const std::function<void()>& onReadable);

}  // namespace zoltctl
