#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/checked_line.h"
#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/io_lines.h"
#include "lib/text/hexadecimal.h"

namespace zoltctl {

using zolt_ports::OutputCommand;

void setBlock(const Settings& settings, const Request& request) {
    const char address = request.fields.address();
    const unsigned block = *request.fields.block;
    const std::uint8_t value = *request.fields.card.value;
    const std::string data = zolt_text::hexByte(value);
    sendChecked(settings, {OutputCommand::kBlock, address,
                           zolt_ports::blockLine(address, block, value), block});
    writeResult(settings,
                "card " + std::string(1, address) + ": block " + std::to_string(block) + " is " +
                    data + uncheckedNote(settings),
                {{"address", std::string(1, address)},
                 {"block", block},
                 {"value", value},
                 {"hex", data},
                 {"checked", settings.check}});
}

void infrared(const Settings& settings, const Request& request) {
    const char address = request.fields.address();
    const std::string& digits = request.fields.text;
    sendChecked(settings,
                {OutputCommand::kInfrared, address, zolt_ports::streamLine(address, digits)});
    const std::size_t bytes = digits.size() / 2;
    writeResult(settings,
                "card " + std::string(1, address) + ": " + std::to_string(bytes) +
                    (bytes == 1 ? " byte is sent" : " bytes are sent") + uncheckedNote(settings),
                {{"address", std::string(1, address)},
                 {"bytes", bytes},
                 {"hex", digits},
                 {"checked", settings.check}});
}

}  // namespace zoltctl
