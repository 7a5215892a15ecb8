#include "replay/Conversation.h"

#include <algorithm>

namespace olt {

namespace {

/// An OLT repeats a request before it sends many others.
constexpr std::size_t kFarthestRepetition = 8;

bool isAnswerTo(const omci::FrameHeader& answer, const omci::FrameHeader& request)
{
    return answer.transactionId == request.transactionId && answer.type == request.type &&
           answer.entityClass == request.entityClass && answer.entityInstance == request.entityInstance;
}

bool isRepetition(const Conversation& conversation, const Frame& request)
{
    const auto& all = conversation.exchanges;
    const std::size_t looked = std::min(all.size(), kFarthestRepetition);
    return request.header().transactionId != 0 &&
           std::any_of(all.rbegin(), all.rbegin() + static_cast<std::ptrdiff_t>(looked),
                       [&](const auto& exchange) { return exchange.request.bytes() == request.bytes(); });
}

bool giveAnswer(Conversation& conversation, Frame& answer)
{
    for (auto exchange = conversation.exchanges.rbegin(); exchange != conversation.exchanges.rend(); ++exchange) {
        if (!isAnswerTo(answer.header(), exchange->request.header()))
            continue;
        // The answer to a repetition is the first one again.
        if (!exchange->answer)
            exchange->answer.emplace(std::move(answer));
        return true;
    }
    return false;
}

}  // namespace

Conversation readConversation(FrameSource& source)
{
    Conversation conversation;
    while (auto recorded = source.next()) {
        const auto decoded = omci::decode(recorded->octets.data(), recorded->octets.size());
        if (!decoded) {
            ++conversation.unusable;
            continue;
        }
        // The octets keep their place when they move, and the view with them.
        Frame frame(std::move(recorded->octets), decoded.frame);
        if (omci::isAutonomous(frame.header().type))
            ++conversation.notifications;
        else if (frame.header().acknowledgement)
            conversation.unusable += giveAnswer(conversation, frame) ? 0 : 1;
        else if (!isRepetition(conversation, frame))
            conversation.exchanges.push_back({std::move(frame), std::nullopt, recorded->time});
    }
    return conversation;
}

}  // namespace olt
