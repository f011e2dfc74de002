#include "tests/support/process/processor_waits.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace support {
namespace {

namespace fs = std::filesystem;

// The number in the name of a folder of /proc; 0 for other names.
pid_t numberOf(const fs::path& folder) {
    const std::string name = folder.filename();
    pid_t number = 0;
    const auto end = std::from_chars(name.data(), name.data() + name.size(), number).ptr;
    return end == name.data() + name.size() ? number : 0;
}

// The numbered folders below `folder`; processes and threads may end at any time.
template <typename Action>
void eachNumber(const fs::path& folder, const Action& action) {
    std::error_code gone;
    for (fs::directory_iterator entry(folder, gone), end; !gone && entry != end;
         entry.increment(gone)) {
        if (const pid_t number = numberOf(entry->path())) action(number, entry->path());
    }
}

}  // namespace

ProcessorWaits processorWaits() {
    ProcessorWaits waits;
    eachNumber("/proc", [&](pid_t /*process*/, const fs::path& process) {
        eachNumber(process / "task", [&](pid_t thread, const fs::path& folder) {
            // Nanoseconds running, nanoseconds waiting to run, number of turns.
            std::ifstream file(folder / "schedstat");
            long long running = 0;
            long long waiting = 0;
            if (file >> running >> waiting) waits[thread] = std::chrono::nanoseconds(waiting);
        });
    });
    return waits;
}

std::chrono::milliseconds longestWait(const ProcessorWaits& before, const ProcessorWaits& after) {
    std::chrono::nanoseconds longest{0};
    for (const auto& [thread, waited] : after) {
        const auto earlier = before.find(thread);
        longest = std::max(longest, earlier == before.end() ? waited : waited - earlier->second);
    }
    return std::chrono::duration_cast<std::chrono::milliseconds>(longest);
}

}  // namespace support
