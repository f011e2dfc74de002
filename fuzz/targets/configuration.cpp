// Fuzzes configuration files: what the daemon reads from a file, and what zolt-check reports
// about the same file. The file exists only in memory.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "apps/zolt-check/checks/file_check.h"
#include "apps/zolt-check/report.h"
#include "core/config_reader.h"
#include "fuzz/support/target.h"

namespace {

constexpr std::size_t kMostBytes = 4096;

/// A file without a name; each run gives it new content.
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
    fuzz::require(entry.connectionState == ConnectionState::kNotListening, "not connected yet");
    // The reader turns each of these pairs of characters into one character.
    for (const std::string& separator : {entry.inpSeparator, entry.outSeparator}) {
        fuzz::require(separator.find("\\r") == std::string::npos &&
                          separator.find("\\n") == std::string::npos,
                      "no \\r or \\n in letters");
    }
}

void requireConfig(const CONFIG_DESCRIPTOR& config) {
    fuzz::require(!config.errorText.empty() && config.errorText.size() < 100,
                  "an error text of at most 99 characters, or NONE");
    requireInterface(config.io, "IO");
    requireInterface(config.cae, "CAE");
    requireInterface(config.mon, "MON");
    fuzz::require(config.spare.name.empty(), "nothing sets the fourth interface");
}

void requireCheck(const zolt_check::CheckedFile& result) {
    const bool error = std::any_of(result.findings.begin(), result.findings.end(),
                                   [](const zolt_check::Finding& finding) {
                                       return finding.severity == zolt_check::Severity::kError;
                                   });
    fuzz::require(error != result.starts(), "an error is what keeps the daemon from starting");
    fuzz::require((zolt_check::exitStatus(result, true) == 2) == error, "status 2 means an error");
    for (const bool quiet : {false, true}) {
        const std::string text = zolt_check::report("zoltconf.xml", result, {.quiet = quiet});
        fuzz::require(text.empty() || text.back() == '\n', "a report is whole lines");
    }
    fuzz::require(
        nlohmann::json::accept(zolt_check::report("zoltconf.xml", result, {.json = true})),
        "a report in JSON is JSON");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.hold(fuzz::textOf(data, size, kMostBytes));
    const CONFIG_DESCRIPTOR config = readConfigFile(file.path());
    requireConfig(config);
    const zolt_check::CheckedFile result = zolt_check::checkFile(file.path());
    fuzz::require(result.config.errorText == config.errorText, "both read the same");
    requireCheck(result);
    return 0;
}
