#ifndef SIMULATOR_LISTEN_ADDRESS_H
#define SIMULATOR_LISTEN_ADDRESS_H

#include <sys/socket.h>

#include <string>

/// A socket address of either IP family.
struct SocketAddress
{
    sockaddr_storage storage{};
    socklen_t length = 0;

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
    sockaddr* get() { return reinterpret_cast<sockaddr*>(&storage); }
};

/// Reads "ADDR:PORT"; an IPv6 address stands in brackets. std::invalid_argument with the reason.
SocketAddress parseAddress(const std::string& text);
/// "ADDR:PORT" in numbers.
std::string toString(const SocketAddress& address);

#endif
