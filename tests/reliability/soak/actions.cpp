#include "tests/reliability/soak/actions.h"

namespace reliability {

std::vector<Action> allActions() {
    std::vector<Action> all;
    for (const auto& actions : {clientActions(), consoleActions(), busActions(), systemActions()}) {
        all.insert(all.end(), actions.begin(), actions.end());
    }
    return all;
}

const Action& drawAction(const std::vector<Action>& actions, Random& random) {
    std::size_t sum = 0;
    for (const Action& action : actions) sum += action.weight;
    std::size_t drawn = random.below(sum);
    for (const Action& action : actions) {
        if (drawn < action.weight) return action;
        drawn -= action.weight;
    }
    return actions.back();
}

}  // namespace reliability
