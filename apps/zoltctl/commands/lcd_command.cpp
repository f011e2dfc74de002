#include "apps/zoltctl/commands/lcd_command.h"

#include <array>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/checked_line.h"
#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/io_lines.h"

namespace zoltctl {

using zolt_ports::OutputCommand;

namespace {

void control(const Settings& settings, const Fields& fields, const LcdForm& form) {
    const bool on = fields.card.on.value_or(true);
    sendChecked(settings, {OutputCommand::kLcd, fields.address(),
                           zolt_ports::lcdLine(fields.address(), on ? form.letters : form.off)});
    Json json{{"address", std::string(1, fields.address())}, {"action", form.action}};
    if (fields.card.on) {
        json["on"] = on;
    }
    json["checked"] = settings.check;
    writeResult(settings, zolt_ports::filledIn(form.text, fields.card) + uncheckedNote(settings),
                json);
}

void writeText(const Settings& settings, const Fields& fields, const LcdForm& form) {
    if (!settings.check && !settings.at(zolt_ports::Port::kIo).lineEnd) {
        throw Failure(Status::kUsage,
                      "lcd text with --no-check needs --line-end: the end of the line would show "
                      "on the LCD if it were not the daemon's");
    }
    sendChecked(settings, {OutputCommand::kLcd, fields.address(),
                           zolt_ports::lcdTextLine(fields.address(), *fields.column, *fields.row,
                                                   fields.text)});
    writeResult(settings,
                zolt_ports::filledIn(form.text, fields.card) + " at column " +
                    std::to_string(*fields.column) + ", row " + std::to_string(*fields.row) +
                    uncheckedNote(settings),
                {{"address", std::string(1, fields.address())},
                 {"action", form.action},
                 {"column", *fields.column},
                 {"row", *fields.row},
                 {"text", fields.text},
                 {"checked", settings.check}});
}

constexpr std::array kLcdForms{
    LcdForm{"lcd ADDRESS clear", "clear", "card %a: cleared", "CL", nullptr, control},
    LcdForm{"lcd ADDRESS light STATE", "light", "card %a: light is %o", "LO", "LF", control},
    LcdForm{"lcd ADDRESS cursor STATE", "cursor", "card %a: cursor is %o", "CO", "CF", control},
    LcdForm{"lcd ADDRESS blink STATE", "blink", "card %a: blink is %o", "BO", "BF", control},
    LcdForm{"lcd ADDRESS text COLUMN ROW TEXT", "text", "card %a: text", nullptr, nullptr,
            writeText},
};

}  // namespace

std::span<const LcdForm> lcdForms() {
    return kLcdForms;
}

void lcd(const Settings& settings, const Request& request) {
    const LcdForm& form = lcdForms()[request.form];
    form.run(settings, request.fields, form);
}

}  // namespace zoltctl
