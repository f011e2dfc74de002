#include "apps/zolt-sim/cards/request.h"

#include <algorithm>
#include <array>

#include "apps/zolt-sim/cards/wire.h"

namespace zolt_sim {
namespace {

struct RequestRow {
    std::uint8_t firstByte;
    RequestKind kind;
    std::string_view name;
    bool namesCard;
};

constexpr std::array kRows{
    RequestRow{wire::kPoll, RequestKind::kPoll, "poll", true},
    RequestRow{wire::kOutput, RequestKind::kOutput, "output", true},
    RequestRow{wire::kDiscovery, RequestKind::kDiscovery, "discovery", false},
    RequestRow{wire::kHardwareCheck, RequestKind::kCheck, "check", false},
    RequestRow{wire::kConfig, RequestKind::kConfig, "config", true},
};

template <typename Predicate>
const RequestRow* rowWhere(Predicate predicate) {
    const auto* row = std::find_if(kRows.begin(), kRows.end(), predicate);
    return row == kRows.end() ? nullptr : row;
}

const RequestRow* findRow(const Bytes& request) {
    return rowWhere([&](const RequestRow& row) {
        return !request.empty() && row.firstByte == request.front();
    });
}

}  // namespace

RequestKind requestKind(const Bytes& request) {
    const RequestRow* row = findRow(request);
    return row != nullptr ? row->kind : RequestKind::kUnknown;
}

std::optional<RequestKind> requestKindNamed(std::string_view word) {
    const RequestRow* row = rowWhere([&](const RequestRow& entry) { return entry.name == word; });
    return row != nullptr ? std::optional(row->kind) : std::nullopt;
}

std::string_view requestKindName(RequestKind kind) {
    const RequestRow* row = rowWhere([&](const RequestRow& entry) { return entry.kind == kind; });
    return row != nullptr ? row->name : "unknown";
}

std::optional<std::uint8_t> namedCard(const Bytes& request) {
    const RequestRow* row = findRow(request);
    if (row == nullptr || !row->namesCard || request.size() < 2) {
        return std::nullopt;
    }
    return request[1];
}

}  // namespace zolt_sim
