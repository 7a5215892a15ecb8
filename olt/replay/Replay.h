#ifndef OLT_REPLAY_REPLAY_H
#define OLT_REPLAY_REPLAY_H

#include "app/Context.h"
#include "model/Difference.h"
#include "replay/Conversation.h"

namespace olt {

enum class ReplayPace
{
    AsFastAsAnswersCome,
    AsRecorded
};

struct ReplayOutcome
{
    std::size_t requests = 0;  ///< Sent; an upload counts as one.
    std::vector<Difference> differences;
};

/// Plays the OLT's side of a recording to the ONU of the context and compares the answers. Requests have new
/// transaction ids and the format of the recording. A MIB upload and a reading of the alarms are compared as a whole,
/// since another ONU may pack them differently. How often the OLT had to ask whether an image is stored is the ONU's
/// affair: it is asked until it answers. Throws what Session::request throws.
class Replay
{
public:
    Replay(Context& context, const Conversation& conversation, const Ignored& ignored)
        : m_Context(context), m_Conversation(conversation), m_Ignored(ignored)
    {}

    [[nodiscard]] ReplayOutcome run(ReplayPace pace);

private:
    void play(std::size_t index);
    void playUpload(std::size_t index);
    void playAlarms(std::size_t index);
    void playRequest(const RecordedExchange& exchange);
    /// Asks again while the ONU is busy with a received image, when the recorded one was done with it.
    [[nodiscard]] Frame askUntilStored(const Request& request, const Frame& recorded);
    void waitUntil(Clock::time_point time);
    void add(std::vector<Difference> differences);

    Context& m_Context;
    const Conversation& m_Conversation;
    const Ignored& m_Ignored;
    ReplayOutcome m_Outcome;
};

}  // namespace olt

#endif
