#include "bench/system/contestants/child_program.h"

#include <fcntl.h>
#include <signal.h>

#include "lib/os/descriptor.h"
#include "tests/support/files.h"
#include "tests/support/process/child_process.h"
#include "tests/support/process/private_view.h"

namespace bench {
namespace {

std::filesystem::path errorFile() {
    return support::workFolder() / "contestant.errors";
}

}  // namespace

ChildProgram::ChildProgram(const std::vector<std::string>& command, const Placement& placement) {
    const zolt_os::Descriptor errors(
        ::open(errorFile().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    support::StandardStreams streams;
    streams.error = errors.get();
    placement.asContestant();
    number_ = support::spawn(command, streams);
    placement.asClient();
}

ChildProgram::~ChildProgram() {
    constexpr std::chrono::seconds kPatience{3};
    ::kill(number_, SIGTERM);
    if (support::reap(number_, kPatience)) return;
    ::kill(number_, SIGKILL);
    support::reap(number_);
}

std::string ChildProgram::errors() const {
    return support::readFile(errorFile());
}

}  // namespace bench
