#include "apps/zoltctl/commands/commands.h"

#include "apps/zoltctl/commands/config_command.h"
#include "apps/zoltctl/commands/lcd_command.h"
#include "apps/zoltctl/commands/raw_command.h"

namespace zoltctl {
namespace {

const CommandOption kFor{"--for", "SECONDS", "end after this time"};
const CommandOption kCount{"--count", "N", "end after N lines"};

}  // namespace

std::span<const CommandRow> commandRows() {
    static const std::vector<CommandRow> rows{
        {"cards",
         "show the cards on the bus",
         {"cards"},
         {{"--all", nullptr, "also the addresses without a card"}},
         showCards},
        {"discover",
         "show what is at all sixteen addresses",
         {"discover"},
         {{"--force", nullptr, "identify the cards again; takes 2 seconds"}},
         discover},
        {"poll",
         "show or switch the polling of all input cards or of some",
         {"poll", "poll STATE [ADDRESS...]"},
         {},
         poll},
        {"input",
         "show the last known state of an input card",
         {"input ADDRESS [BLOCK]"},
         {},
         showInput},
        {"set", "set a block of an output card", {"set ADDRESS BLOCK DATA"}, {}, setBlock},
        {"lcd", "write on an LCD and switch it", patternsOf(lcdForms()), {}, lcd},
        {"ir", "send a stream by infrared", {"ir ADDRESS HEX"}, {}, infrared},
        {"watch",
         "show input changes as they come",
         {"watch"},
         {kFor, kCount, {"--no-names", nullptr, "do not ask the console for the cards' names"}},
         watch},
        {"monitor",
         "show what the monitor port shows, with the time",
         {"monitor"},
         {kFor, kCount},
         monitor},
        {"config", "configure a card", patternsOf(configForms()), {}, configureCard},
        {"speed", "set how fast the daemon's loops run, 1 to 100", {"speed PERCENT"}, {}, setSpeed},
        {"version", "show the daemon's version", {"version"}, {}, showVersion},
        {"console",
         "talk to the console, with history and editing",
         {"console"},
         {},
         interactiveConsole},
        {"raw",
         "send a line as it is: to the console, showing the reply, or to IO",
         patternsOf(rawForms()),
         {},
         raw},
    };
    return rows;
}

}  // namespace zoltctl
