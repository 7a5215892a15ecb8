#ifndef NRVK_BENCH_REQUESTS_H
#define NRVK_BENCH_REQUESTS_H

#include <array>

#include "OmciFrame.h"
#include "host/FrameCodec.h"

namespace bench {

/// A decoded baseline request to ONU data, as the library's operations take it.
inline OmciFrame request(omci::MessageType type, const std::array<unsigned char, 32>& contents)
{
    omci::FrameView view;
    view.header.type = type;
    view.header.acknowledgeRequest = true;
    view.header.entityClass = 2;
    view.contents = contents.data();
    view.contentsLength = contents.size();
    OmciFrame frame;
    frame.setRequest(view);
    return frame;
}

}  // namespace bench

#endif
