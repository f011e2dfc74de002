#include "apps/zolt-sim/cards/request.h"

#include "apps/zolt-sim/cards/wire.h"

namespace sim {
namespace {

struct KindRow {
    std::uint8_t firstByte;
    RequestKind kind;
    std::string_view name;
    bool namesCard;
};

constexpr KindRow kRows[] = {
    {wire::kPoll, RequestKind::kPoll, "poll", true},
    {wire::kOutput, RequestKind::kOutput, "output", true},
    {wire::kDiscovery, RequestKind::kDiscovery, "discovery", false},
    {wire::kHardwareCheck, RequestKind::kCheck, "check", false},
    {wire::kConfig, RequestKind::kConfig, "config", true},
};

const KindRow* findRow(const Bytes& request) {
    if (request.empty()) {
        return nullptr;
    }
    for (const KindRow& row : kRows) {
        if (row.firstByte == request.front()) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

RequestKind requestKind(const Bytes& request) {
    const KindRow* row = findRow(request);
    return row != nullptr ? row->kind : RequestKind::kUnknown;
}

std::optional<RequestKind> requestKindNamed(std::string_view word) {
    for (const KindRow& row : kRows) {
        if (row.name == word) {
            return row.kind;
        }
    }
    return std::nullopt;
}

std::string_view requestKindName(RequestKind kind) {
    for (const KindRow& row : kRows) {
        if (row.kind == kind) {
            return row.name;
        }
    }
    return "unknown";
}

std::optional<std::uint8_t> namedCard(const Bytes& request) {
    const KindRow* row = findRow(request);
    if (row == nullptr || !row->namesCard || request.size() < 2) {
        return std::nullopt;
    }
    return request[1];
}

}  // namespace sim
