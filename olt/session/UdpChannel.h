#ifndef OLT_SESSION_UDP_CHANNEL_H
#define OLT_SESSION_UDP_CHANNEL_H

#include "session/Channel.h"

namespace olt {

/// Where an ONU listens.
struct Peer
{
    std::string host;
    std::string port;

    /// "ADDR:PORT", "NAME:PORT" or "[ADDR6]:PORT". Throws UsageError.
    [[nodiscard]] static Peer parse(const std::string& text);
};

/// UDP to one peer; datagrams of others never arrive.
class UdpChannel : public Channel
{
public:
    /// Throws UsageError when the name can't be resolved.
    explicit UdpChannel(const Peer& peer);
    ~UdpChannel() override;
    UdpChannel(const UdpChannel&) = delete;
    UdpChannel& operator=(const UdpChannel&) = delete;

    void send(const std::uint8_t* data, std::size_t size) override;
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> receive(Clock::time_point deadline) override;
    [[nodiscard]] std::string trouble() const override;

private:
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> takeDatagram();

    int m_Socket = -1;
    int m_LastError = 0;
};

}  // namespace olt

#endif
