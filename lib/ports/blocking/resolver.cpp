#include "lib/ports/blocking/resolver.h"

#include <netdb.h>
#include <netinet/in.h>

#include <cstring>
#include <future>
#include <memory>
#include <thread>

#include "lib/ports/port_error.h"
#include "lib/text/printable.h"

namespace zolt_ports {
namespace {

struct Answer {
    int error = 0;
    std::vector<Address> addresses;
};

Answer lookUp(const std::string& host, std::uint16_t port, int flags) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* list = nullptr;
    Answer answer;
    answer.error = ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &list);
    if (answer.error != 0) {
        return answer;
    }
    const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owner(list, ::freeaddrinfo);
    for (const addrinfo* entry = list; entry != nullptr; entry = entry->ai_next) {
        Address address;
        std::memcpy(&address.bytes, entry->ai_addr, entry->ai_addrlen);
        address.size = entry->ai_addrlen;
        address.family = entry->ai_family;
        answer.addresses.push_back(address);
    }
    return answer;
}

PortError unknownHost(const std::string& host, const std::string& reason) {
    return {Reason::kUnreachable, "unknown host " + zolt_text::quote(host) + ": " + reason};
}

}  // namespace

bool Address::isLoopback() const {
    if (family == AF_INET) {
        sockaddr_in address{};
        std::memcpy(&address, &bytes, sizeof address);
        return ntohl(address.sin_addr.s_addr) >> 24U == 127;
    }
    sockaddr_in6 address{};
    std::memcpy(&address, &bytes, sizeof address);
    return IN6_IS_ADDR_LOOPBACK(&address.sin6_addr) != 0;
}

std::vector<Address> resolve(const std::string& host, std::uint16_t port,
                             const zolt_os::Deadline& deadline) {
    Answer answer = lookUp(host, port, AI_NUMERICHOST);
    if (answer.error != 0) {
        // getaddrinfo() takes no time limit. A thread that waits too long for the name
        // service is left to itself.
        auto promise = std::make_shared<std::promise<Answer>>();
        std::future<Answer> future = promise->get_future();
        std::thread([promise, host, port] { promise->set_value(lookUp(host, port, 0)); }).detach();
        if (future.wait_until(deadline.end()) != std::future_status::ready) {
            throw unknownHost(host, "the name service does not answer");
        }
        answer = future.get();
    }
    if (answer.error != 0) {
        throw unknownHost(host, ::gai_strerror(answer.error));
    }
    return answer.addresses;
}

}  // namespace zolt_ports
