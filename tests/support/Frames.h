#ifndef NRVK_TESTS_SUPPORT_FRAMES_H
#define NRVK_TESTS_SUPPORT_FRAMES_H

#include <vector>

#include "OmciFrame.h"
#include "host/FrameCodec.h"

/// A request as the host's codec hands it to the library, with the acknowledge request bit set.
inline OmciFrame requestFrame(omci::MessageType type, unsigned short classId, unsigned short instance,
                              std::vector<unsigned char> contents = {}, omci::Format format = omci::Format::Baseline,
                              bool acknowledgeRequest = true)
{
    if (format == omci::Format::Baseline) {
        contents.resize(omci::kBaselineContentLength);
    }
    omci::FrameView view;
    view.header.transactionId = 0x1234;
    view.header.type = type;
    view.header.acknowledgeRequest = acknowledgeRequest;
    view.header.format = format;
    view.header.entityClass = classId;
    view.header.entityInstance = instance;
    view.contents = contents.data();
    view.contentsLength = contents.size();
    OmciFrame frame;
    frame.setRequest(view);
    return frame;
}

inline std::vector<unsigned char> replyContents(const OmciFrame& frame)
{
    return {frame.getReplyContent(), frame.getReplyContent() + frame.getReplyContentLength()};
}

#endif
