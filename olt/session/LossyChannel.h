#ifndef OLT_SESSION_LOSSY_CHANNEL_H
#define OLT_SESSION_LOSSY_CHANNEL_H

#include <memory>
#include <random>

#include "session/Channel.h"

namespace olt {

/// A road that loses datagrams of both directions by chance, the same ones in every run.
class LossyChannel : public Channel
{
public:
    /// `share` of the datagrams goes, 0 to 1.
    LossyChannel(std::unique_ptr<Channel> road, double share) : m_Road(std::move(road)), m_Loses(share) {}

    void send(const std::uint8_t* data, std::size_t size) override;
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> receive(Clock::time_point deadline) override;
    [[nodiscard]] std::string trouble() const override { return m_Road->trouble(); }

    [[nodiscard]] std::uint64_t lost() const { return m_Lost; }
    /// The road as it was; nothing may be sent or received here afterwards.
    [[nodiscard]] std::unique_ptr<Channel> takeRoad() { return std::move(m_Road); }

private:
    [[nodiscard]] bool isLost();

    std::unique_ptr<Channel> m_Road;
    std::mt19937 m_Chance;
    std::bernoulli_distribution m_Loses;
    std::uint64_t m_Lost = 0;
};

}  // namespace olt

#endif
