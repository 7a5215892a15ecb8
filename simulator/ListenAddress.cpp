#include "ListenAddress.h"

#include <netdb.h>

#include <array>
#include <cstring>
#include <memory>
#include <stdexcept>

SocketAddress parseAddress(const std::string& text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0 || colon + 1 == text.size()) {
        throw std::invalid_argument("\"" + text + "\" is not ADDR:PORT");
    }
    std::string host = text.substr(0, colon);
    const std::string port = text.substr(colon + 1);
    if (host.front() == '[' && host.back() == ']') {
        host = host.substr(1, host.size() - 2);
    }
    if (port.size() > 5 || port.find_first_not_of("0123456789") != std::string::npos || std::stoul(port) > 65535) {
        throw std::invalid_argument("\"" + port + "\" is not a port, 0 to 65535");
    }
    addrinfo hints{};
    hints.ai_socktype = SOCK_DGRAM;
    hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const int error = getaddrinfo(host.c_str(), port.c_str(), &hints, &found);
    if (error != 0) {
        throw std::invalid_argument("\"" + host + "\" is no address of this machine: " + gai_strerror(error));
    }
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owned(found, freeaddrinfo);
    SocketAddress address;
    std::memcpy(&address.storage, found->ai_addr, found->ai_addrlen);
    address.length = found->ai_addrlen;
    return address;
}

std::string toString(const SocketAddress& address)
{
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{};
    if (getnameinfo(address.get(), address.length, host.data(), host.size(), port.data(), port.size(),
                    NI_NUMERICHOST | NI_NUMERICSERV) != 0) {
        return "an unknown address";
    }
    const std::string name = host.data();
    const bool isIpv6 = address.storage.ss_family == AF_INET6;
    return (isIpv6 ? "[" + name + "]" : name) + ":" + port.data();
}
