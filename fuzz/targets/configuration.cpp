// Configuration files, from a file that exists in memory only.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <string>

#include "core/config_reader.h"
#include "fuzz/support/target.h"

// The system log hears of every file that cannot be loaded. Those of the runs
// are not for it: the linker leads the calls here.
extern "C" {
int __wrap_setlogmask(int mask);
void __wrap_syslog(int priority, const char* format, ...);
void __wrap_closelog();

int __wrap_setlogmask(int /*mask*/) {
    return 0;
}
void __wrap_syslog(int /*priority*/, const char* /*format*/, ...) {}
void __wrap_closelog() {}
}

namespace {

constexpr std::size_t kMostBytes = 16384;

/// A file without a name, with another content for each run.
class MemoryFile {
  public:
    MemoryFile() : descriptor_(memfd_create("configuration", MFD_CLOEXEC)) {
        fuzz::require(descriptor_ != -1, "a file in memory can be made");
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }
    void hold(std::string_view content) const {
        fuzz::require(ftruncate(descriptor_, 0) == 0 &&
                          pwrite(descriptor_, content.data(), content.size(), 0) ==
                              static_cast<ssize_t>(content.size()),
                      "the file can be written");
    }

  private:
    int descriptor_;
};

void requireInterface(const INTERFACE_DESCRIPTOR& entry, const char* name) {
    const bool absent = entry.name.empty();
    fuzz::require(absent || entry.name == name, "an interface has its own name or none");
    fuzz::require(entry.port == 0 || (!absent && entry.port > 1024), "no port of the system");
    fuzz::require(entry.connectionState == connection_state::kNotListening, "not connected yet");
    // What is typed as two characters is one behind the reader.
    for (const std::string& separator : {entry.inpSeparator, entry.outSeparator}) {
        fuzz::require(separator.find("\\r") == std::string::npos &&
                          separator.find("\\n") == std::string::npos,
                      "no \\r or \\n in letters");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.hold(fuzz::textOf(data, size, kMostBytes));
    const CONFIG_DESCRIPTOR config = readConfigFile(file.path());
    fuzz::require(!config.errorText.empty() && config.errorText.size() < 100,
                  "an error text of at most 99 characters, or NONE");
    requireInterface(config.io, "IO");
    requireInterface(config.cae, "CAE");
    requireInterface(config.mon, "MON");
    fuzz::require(config.spare.name.empty(), "nothing sets the fourth interface");
    return 0;
}
