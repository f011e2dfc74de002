#include "common/answer_class.h"

#include <algorithm>
#include <array>

namespace {

struct Row {
    unsigned char firstByte;
    AnswerClass answerClass;
};

constexpr std::array kRows{
    Row{'T', AnswerClass::kTimeout},    Row{0x12, AnswerClass::kControl},
    Row{'#', AnswerClass::kMark},       Row{'$', AnswerClass::kMark},
    Row{'N', AnswerClass::kRefusal},    Row{'B', AnswerClass::kLetterBOrC},
    Row{'C', AnswerClass::kLetterBOrC},
};

}  // namespace

AnswerClass GetQListError(const ByteList& answer) {
    if (answer.empty()) {
        return AnswerClass::kEmpty;
    }
    const auto first = static_cast<unsigned char>(answer.front());
    const auto* row = std::find_if(kRows.begin(), kRows.end(),
                                   [first](const Row& r) { return r.firstByte == first; });
    return row == kRows.end() ? AnswerClass::kUsable : row->answerClass;
}
