#ifndef SIMULATOR_UDP_CHANNEL_H
#define SIMULATOR_UDP_CHANNEL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "EventLoop.h"
#include "ListenAddress.h"

/// OMCI over UDP: one message per datagram.
class UdpChannel
{
public:
    /// Takes one datagram, which is only good during the call. `peer` is a number that goes with its sender.
    using Receiver = std::function<void(const std::uint8_t* bytes, std::size_t length, std::uint64_t peer)>;

    /// Binds; std::system_error when that fails. The loop outlives the object.
    UdpChannel(EventLoop& loop, const SocketAddress& address, Receiver receiver);
    ~UdpChannel();
    UdpChannel(const UdpChannel&) = delete;
    UdpChannel& operator=(const UdpChannel&) = delete;

    /// "ADDR:PORT", the port being the real one.
    std::string localAddress() const;
    /// Sends to the peer that spoke last. Nothing happens when nobody has spoken, or when the peer is gone.
    void send(const std::uint8_t* bytes, std::size_t length);

private:
    void receive();

    EventLoop& m_Loop;
    Receiver m_Receiver;
    Descriptor m_Socket;
    std::optional<SocketAddress> m_Peer;
    std::array<std::uint8_t, 65536> m_Buffer;
};

#endif
