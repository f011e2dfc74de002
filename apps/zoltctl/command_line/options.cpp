#include "apps/zoltctl/command_line/options.h"

#include <array>

namespace zoltctl {
namespace {

constexpr std::array kOptions{
    OptionRow{"--host", "ZOLT_HOST", "HOST", "where the daemon runs, default 127.0.0.1",
              &GivenSettings::host},
    OptionRow{"--cae-port", "ZOLT_CAE_PORT", "PORT", "the console's port, default 4001",
              &GivenSettings::caePort},
    OptionRow{"--io-port", "ZOLT_IO_PORT", "PORT", "the IO port, default 4002",
              &GivenSettings::ioPort},
    OptionRow{"--mon-port", "ZOLT_MON_PORT", "PORT", "the monitor's port, default 4003",
              &GivenSettings::monPort},
    OptionRow{"--config", "ZOLT_CONFIG", "FILE",
              "gives ports and separators, default /etc/zolt/zoltconf.xml", &GivenSettings::config},
    OptionRow{"--line-end", "ZOLT_LINE_END", "END",
              "what ends a line that is sent: auto, crlf, lf, cr or the characters themselves",
              &GivenSettings::lineEnd},
    OptionRow{"--timeout", "ZOLT_TIMEOUT", "SECONDS", "longest time of each wait, default 20",
              &GivenSettings::timeout},
};

}  // namespace

std::span<const OptionRow> optionRows() {
    return kOptions;
}

}  // namespace zoltctl
