#ifndef HOST_COMMAND_REPLY_H
#define HOST_COMMAND_REPLY_H

#include <cstdint>

#include "FrameCodec.h"
#include "omci_host/OmciFrame.h"

namespace omci {

/// ONU data (G.988 9.1.3), which serves MIB reset, MIB upload and get all alarms.
constexpr std::uint16_t kOnuDataClass = 2;

/// A reply without contents beyond its result and, for a create or set, its masks.
inline void reply(OmciFrame& frame, Result result, std::uint16_t optionalMask = 0, std::uint16_t executionMask = 0)
{
    frame.setFrameToSendBackToOLT(static_cast<unsigned char>(result), 0, optionalMask, executionMask, nullptr, 0);
}

}  // namespace omci

#endif
