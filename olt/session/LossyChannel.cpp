#include "session/LossyChannel.h"

namespace olt {

bool LossyChannel::isLost()
{
    const bool lost = m_Loses(m_Chance);
    m_Lost += lost ? 1 : 0;
    return lost;
}

void LossyChannel::send(const std::uint8_t* data, std::size_t size)
{
    if (!isLost())
        m_Road->send(data, size);
}

std::optional<std::vector<std::uint8_t>> LossyChannel::receive(Clock::time_point deadline)
{
    for (;;) {
        auto datagram = m_Road->receive(deadline);
        if (!datagram || !isLost())
            return datagram;
    }
}

}  // namespace olt
