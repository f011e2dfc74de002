#include "common/answer_class.h"

#include <algorithm>
#include <array>

namespace {

constexpr unsigned kEmptyAnswer = 5;

struct Row {
    unsigned char firstByte;
    unsigned answerClass;
};

constexpr std::array kRows{
    Row{'T', answer_class::kTimeout},
    Row{0x12, 2},
    Row{'#', 3},
    Row{'$', 3},
    Row{'N', 4},
    Row{'B', 6},
    Row{'C', 6},
};

}  // namespace

unsigned GetQListError(const ByteList& answer) {
    if (answer.empty()) {
        return kEmptyAnswer;
    }
    const auto first = static_cast<unsigned char>(answer.front());
    const auto* row = std::find_if(kRows.begin(), kRows.end(),
                                   [first](const Row& r) { return r.firstByte == first; });
    return row == kRows.end() ? answer_class::kUsable : row->answerClass;
}
