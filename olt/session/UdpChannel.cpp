#include "session/UdpChannel.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "model/Errors.h"
#include "model/Names.h"
#include "session/Interrupt.h"

namespace olt {

namespace {

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

AddressList resolve(const Peer& peer)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    const int error = getaddrinfo(peer.host.c_str(), peer.port.c_str(), &hints, &found);
    if (error != 0)
        throw UsageError("--connect " + peer.host + ": " + gai_strerror(error));
    return {found, &freeaddrinfo};
}

/// Milliseconds for poll, rounded up so that a wait never spins on the last fraction.
int millisecondsTo(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 3'600'000));
}

}  // namespace

Peer Peer::parse(const std::string& text)
{
    const auto colon = text.rfind(':');
    Peer peer;
    if (colon != std::string::npos) {
        peer.host = text.substr(0, colon);
        peer.port = text.substr(colon + 1);
    }
    if (peer.host.size() > 2 && peer.host.front() == '[' && peer.host.back() == ']')
        peer.host = peer.host.substr(1, peer.host.size() - 2);
    const auto port = parseUnsigned(peer.port);
    if (peer.host.empty() || !port || *port == 0 || *port > 65535)
        throw UsageError("--connect " + text + ": an address and a port are needed, as in 127.0.0.1:5000");
    return peer;
}

UdpChannel::UdpChannel(const Peer& peer)
{
    const AddressList addresses = resolve(peer);
    for (const addrinfo* address = addresses.get(); address; address = address->ai_next) {
        m_Socket = socket(address->ai_family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (m_Socket < 0)
            continue;
        if (connect(m_Socket, address->ai_addr, address->ai_addrlen) == 0)
            return;
        m_LastError = errno;
        close(m_Socket);
        m_Socket = -1;
    }
    throw Unreachable("no road to " + peer.host + ": " + std::strerror(m_LastError));
}

UdpChannel::~UdpChannel()
{
    if (m_Socket >= 0)
        close(m_Socket);
}

void UdpChannel::send(const std::uint8_t* data, std::size_t size)
{
    // A refusal that an earlier datagram met is reported here first, before this one has been sent.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (::send(m_Socket, data, size, 0) >= 0)
            return;
        m_LastError = errno;
    }
}

std::optional<std::vector<std::uint8_t>> UdpChannel::takeDatagram()
{
    // One octet more than UDP can carry, so that nothing is ever cut to a length that looks right.
    std::array<std::uint8_t, 65536> buffer;
    const auto received = recv(m_Socket, buffer.data(), buffer.size(), 0);
    if (received < 0) {
        if (errno != EAGAIN && errno != EINTR)
            m_LastError = errno;
        return std::nullopt;
    }
    m_LastError = 0;
    return std::vector<std::uint8_t>(buffer.begin(), buffer.begin() + received);
}

std::optional<std::vector<std::uint8_t>> UdpChannel::receive(Clock::time_point deadline)
{
    for (;;) {
        Interrupt::check();
        if (auto datagram = takeDatagram())
            return datagram;
        if (Clock::now() >= deadline)
            return std::nullopt;
        std::array<pollfd, 2> waits{{{m_Socket, POLLIN, 0}, {Interrupt::descriptor(), POLLIN, 0}}};
        [[maybe_unused]] const int ready = poll(waits.data(), waits.size(), millisecondsTo(deadline));
    }
}

std::string UdpChannel::trouble() const
{
    return m_LastError == 0 ? "" : std::strerror(m_LastError);
}

}  // namespace olt
