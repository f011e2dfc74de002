#pragma once

#include <filesystem>

namespace support {

/// True when this process was started by tools/private-view, so that it may
/// write below /etc, /run and /dev.
bool inPrivateView();

/// Prepares this process to run daemons: insists on a private view, brings the
/// loopback interface of a new network namespace up, becomes the parent of
/// daemons, keeps itself and all it starts to one processor and makes an empty
/// work folder. Throws std::runtime_error.
void enterTestBed();

/// Folder for whatever a test writes besides the daemon's fixed files. It goes
/// with the private view.
std::filesystem::path workFolder();

}  // namespace support
