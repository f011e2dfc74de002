#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/card_config.h"
#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/ports/console_session.h"

namespace ctl {

void configureCard(const Settings& settings, const Request& request) {
    const CardConfigRow& row = cardConfigRows()[request.form];
    const std::string command = filledIn(row.command, request.fields);
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Fields fields = parseConfigReply(row, request.fields, console.ask(command));
    writeResult(settings, filledIn(row.text, fields), configJson(row, fields));
}

}  // namespace ctl
