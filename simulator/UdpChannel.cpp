#include "UdpChannel.h"

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

namespace {
/// So many datagrams are taken in one turn, so that a flood does not shut the other descriptors out.
constexpr int kDatagramsPerTurn = 64;
/// Room for two windows of 256 of the longest download sections, bookkeeping of the system included.
constexpr int kReceiveBuffer = 4 << 20;

/// As much as the system allows: with less room, large windows of a software download lose sections.
void makeRoom(int descriptor)
{
    if (setsockopt(descriptor, SOL_SOCKET, SO_RCVBUFFORCE, &kReceiveBuffer, sizeof kReceiveBuffer) != 0) {
        static_cast<void>(setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &kReceiveBuffer, sizeof kReceiveBuffer));
    }
}

std::uint64_t numberOf(const SocketAddress& peer)
{
    const std::string_view octets(reinterpret_cast<const char*>(&peer.storage), peer.length);
    return std::hash<std::string_view>()(octets);
}
}  // namespace

UdpChannel::UdpChannel(EventLoop& loop, const SocketAddress& address, Receiver receiver)
    : m_Loop(loop), m_Receiver(std::move(receiver)),
      m_Socket(socket(address.storage.ss_family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
{
    if (!m_Socket.isOpen() || bind(m_Socket.get(), address.get(), address.length) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot listen on " + toString(address));
    }
    makeRoom(m_Socket.get());
    m_Loop.watch(m_Socket.get(), [this] { receive(); });
}

UdpChannel::~UdpChannel()
{
    m_Loop.unwatch(m_Socket.get());
}

std::string UdpChannel::localAddress() const
{
    SocketAddress address;
    address.length = sizeof address.storage;
    getsockname(m_Socket.get(), address.get(), &address.length);
    return toString(address);
}

void UdpChannel::receive()
{
    for (int i = 0; i < kDatagramsPerTurn; ++i) {
        SocketAddress peer;
        peer.length = sizeof peer.storage;
        const ssize_t got = recvfrom(m_Socket.get(), m_Buffer.data(), m_Buffer.size(), 0, peer.get(), &peer.length);
        if (got < 0) {
            return;
        }
        m_Peer = peer;
        m_Receiver(m_Buffer.data(), static_cast<std::size_t>(got), numberOf(peer));
    }
}

void UdpChannel::send(const std::uint8_t* bytes, std::size_t length)
{
    if (m_Peer) {
        // An OLT that went away is no trouble of the ONU's.
        static_cast<void>(sendto(m_Socket.get(), bytes, length, MSG_NOSIGNAL, m_Peer->get(), m_Peer->length));
    }
}
