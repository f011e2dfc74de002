#include "tests/reliability/soak/strange_adapters.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace reliability {
namespace {

// As a length and as the first byte of an answer it is a refusal.
constexpr char kBabble = 'N';

}  // namespace

BabblingAdapter::BabblingAdapter(const std::filesystem::path& link) : adapter_(link) {
    if (::fcntl(adapter_.farEnd(), F_SETFL, O_RDWR | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), link.string());
    }
}

void BabblingAdapter::tick() {
    std::array<char, 1024> bytes{};
    while (::read(adapter_.farEnd(), bytes.data(), bytes.size()) > 0) continue;
    bytes.fill(kBabble);
    while (::write(adapter_.farEnd(), bytes.data(), bytes.size()) > 0) continue;
}

void StrangeAdapters::removeOldest() {
    if (!silent_.empty()) silent_.pop_front();
    if (!babbling_.empty()) babbling_.pop_front();
}

void StrangeAdapters::clear() {
    silent_.clear();
    babbling_.clear();
}

void StrangeAdapters::tick() {
    for (auto& adapter : babbling_) adapter.tick();
}

}  // namespace reliability
