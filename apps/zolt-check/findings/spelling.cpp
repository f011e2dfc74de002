#include "apps/zolt-check/findings/spelling.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace zolt_check {
namespace {

std::string inLowerCase(std::string text) {
    for (char& character : text) {
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    return text;
}

/// The number of characters to add, remove or replace to turn `from` into `to`.
std::size_t editDistance(const std::string& from, const std::string& to) {
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = i;
    }
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, replaced});
        }
    }
    return row.back();
}

/// The number of wrong characters that still counts as a typing mistake in `name`.
std::size_t mistakesIn(const std::string& name) {
    return std::max<std::size_t>(1, (name.size() + 1) / 3);
}

}  // namespace

std::string didYouMean(const std::string& name, const std::vector<std::string>& known) {
    const std::string* best = nullptr;
    std::size_t bestDistance = 0;
    for (const std::string& candidate : known) {
        const std::size_t allowed = mistakesIn(candidate);
        if (name.size() > candidate.size() + allowed || candidate.size() > name.size() + allowed) {
            continue;
        }
        const std::size_t distance = editDistance(inLowerCase(name), inLowerCase(candidate));
        if (distance <= allowed && (best == nullptr || distance < bestDistance)) {
            best = &candidate;
            bestDistance = distance;
        }
    }
    return best == nullptr ? "" : " (did you mean \"" + *best + "\"?)";
}

}  // namespace zolt_check
