#ifndef OLT_REPLAY_CONVERSATION_H
#define OLT_REPLAY_CONVERSATION_H

#include <optional>
#include <vector>

#include "decode/FrameSource.h"
#include "session/Session.h"

namespace olt {

/// A recorded request and what the ONU answered.
struct RecordedExchange
{
    Frame request;
    std::optional<Frame> answer;
    std::optional<std::chrono::microseconds> time;  ///< Of the request, since 1970.
};

/// The OLT's side of a recording, in order. Repetitions of a request count once.
struct Conversation
{
    std::vector<RecordedExchange> exchanges;
    std::size_t notifications = 0;  ///< Alarms, attribute value changes and test results.
    std::size_t unusable = 0;       ///< Frames that are no OMCI, or answers to nothing.
};

/// Throws what FrameSource throws.
[[nodiscard]] Conversation readConversation(FrameSource& source);

}  // namespace olt

#endif
