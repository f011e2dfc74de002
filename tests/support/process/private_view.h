#pragma once

#include <filesystem>

namespace support {

/// True if tools/private-view has started this process, so that it may write below /etc, /run
/// and /dev.
bool inPrivateView();

/// Prepares this process to run daemons: brings the loopback interface of a new network
/// namespace up, becomes the parent of daemons, ties itself and all that it starts to one
/// processor and makes an empty work folder. Throws std::runtime_error, also if this process
/// is not in a private view.
void enterTestBed();

/// The folder for everything that a test writes besides the daemon's fixed files. It ends with
/// the private view.
std::filesystem::path workFolder();

}  // namespace support
