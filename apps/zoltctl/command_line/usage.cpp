#include "apps/zoltctl/command_line/usage.h"

#include <algorithm>
#include <vector>

#include "apps/zoltctl/arguments/phrase.h"

namespace zoltctl {

std::string usageOf(const CommandRow& row) {
    std::string text;
    std::vector<std::string> names;
    for (const std::string& form : row.forms) {
        text += (text.empty() ? "Use: " : "     ") + ("zoltctl " + form) + "\n";
        for (const std::string& name : parameterNames(form)) {
            if (std::find(names.begin(), names.end(), name) == names.end()) {
                names.push_back(name);
            }
        }
    }
    text += '\n';
    for (const std::string& name : names) {
        constexpr std::size_t kColumn = 12;
        std::string line = "  " + name;
        line.resize(std::max(line.size() + 1, kColumn), ' ');
        text += line + parameterOf(name)->form + '\n';
    }
    return text + (names.empty() ? "" : "\n");
}

}  // namespace zoltctl
