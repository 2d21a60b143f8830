#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>

#include "platform/Check.h"

namespace tidewright::network {

/// A port on which nobody listens, neither over IPv4 nor over IPv6.
inline std::uint16_t freePort() {
    const int probe = socket(AF_INET6, SOCK_STREAM, 0);
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    socklen_t size = sizeof address;
    platform::check(bind(probe, reinterpret_cast<const sockaddr*>(&address), size) == 0,
                    "no port is free");
    getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
    close(probe);
    return ntohs(address.sin6_port);
}

}  // namespace tidewright::network
