#ifndef NRVK_BENCH_FRAMES_H
#define NRVK_BENCH_FRAMES_H

#include <vector>

#include "host/FrameCodec.h"

namespace bench {

/// A whole frame without integrity check, transaction id 0.
std::vector<unsigned char> baselineRequest(omci::MessageType type, unsigned short classId, unsigned short instance,
                                           const std::vector<unsigned char>& contents);

/// Gives the frame another transaction id than the one before it: the dispatcher answers a repeated one from its last
/// reply.
void setTransactionId(std::vector<unsigned char>& frame, unsigned short transaction);

}  // namespace bench

#endif
