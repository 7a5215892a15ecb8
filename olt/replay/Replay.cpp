#include "replay/Replay.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "model/Alarms.h"
#include "replay/Comparison.h"
#include "session/Operations.h"

namespace olt {

namespace {

using omci::MessageType;

Request requestOf(const Frame& frame)
{
    const auto& view = frame.view();
    return {view.header.type, view.header.entityClass, view.header.entityInstance,
            Bytes(view.contents, view.contents + view.contentsLength)};
}

/// Calls `use` with each answered exchange of that type behind `start`, up to the next one of the type at `start`.
template <typename Use>
void forEachFollowing(const Conversation& conversation, std::size_t start, MessageType type, Use use)
{
    const auto begins = conversation.exchanges[start].request.header().type;
    for (std::size_t i = start + 1; i < conversation.exchanges.size(); ++i) {
        const auto& exchange = conversation.exchanges[i];
        if (exchange.request.header().type == begins)
            return;
        if (exchange.request.header().type == type && exchange.answer)
            use(*exchange.answer);
    }
}

struct RecordedUpload
{
    Mib mib;
    bool whole = false;
};

RecordedUpload uploadOf(const Catalogue& catalogue, const Conversation& conversation, std::size_t start)
{
    RecordedUpload upload;
    const auto count = omci::parseCountResponse(conversation.exchanges[start].answer->view());
    std::size_t answers = 0;
    forEachFollowing(conversation, start, MessageType::MibUploadNext, [&](const Frame& answer) {
        ++answers;
        omci::UploadedEntities entities(answer.view());
        omci::UploadedEntity entity;
        while (entities.next(entity))
            upload.mib.add(catalogue.ofNumber(entity.entityClass), entity.entityInstance, entity.mask,
                           entity.values.data, entity.values.size);
    });
    upload.whole = count && answers >= count->count;
    return upload;
}

bool saysBusy(const Frame& answer)
{
    const auto response = omci::parseResultResponse(answer.view());
    return response && response->result == omci::Result::DeviceBusy;
}

constexpr std::chrono::microseconds kLongestReboot = std::chrono::minutes(3);

/// Whether the recorded ONU was busy with an image, and the OLT asked once more.
bool isAskedAgain(const Conversation& conversation, std::size_t index)
{
    const RecordedExchange& exchange = conversation.exchanges[index];
    if (!exchange.answer || !saysBusy(*exchange.answer))
        return false;
    const Request asked = requestOf(exchange.request);
    const auto next = conversation.exchanges.begin() + static_cast<std::ptrdiff_t>(index) + 1;
    return std::any_of(next, conversation.exchanges.end(), [&](const RecordedExchange& later) {
        const Request request = requestOf(later.request);
        return request.type == asked.type && request.entityInstance == asked.entityInstance &&
               request.contents == asked.contents;
    });
}

using AlarmTexts = std::map<Mib::Key, std::string>;

void addAlarms(AlarmTexts& texts, const omci::AlarmedEntity& entity)
{
    std::string text;
    for (const unsigned number : raisedAlarms(entity.bitmap))
        text += (text.empty() ? "" : ", ") + alarmText(entity.entityClass, number);
    if (!text.empty())
        texts[{entity.entityClass, entity.entityInstance}] = text;
}

std::optional<std::string> find(const AlarmTexts& texts, Mib::Key key)
{
    const auto found = texts.find(key);
    return found == texts.end() ? std::nullopt : std::optional<std::string>(found->second);
}

}  // namespace

ReplayOutcome Replay::run(ReplayPace pace)
{
    const auto start = Clock::now();
    const auto& all = m_Conversation.exchanges;
    for (std::size_t i = 0; i < all.size(); ++i) {
        // What comes before an ONU has gone down still reaches the old one.
        const bool isBehindReboot = i > 0 && all[i - 1].request.header().type == MessageType::Reboot;
        if (isBehindReboot && all[i].time && all[i - 1].time)
            waitUntil(Clock::now() + std::min(*all[i].time - *all[i - 1].time, kLongestReboot));
        if (pace == ReplayPace::AsRecorded && all[i].time && all.front().time)
            waitUntil(start + (*all[i].time - *all.front().time));
        m_Context.session().setFormat(all[i].request.header().format);
        play(i);
    }
    return std::move(m_Outcome);
}

/// What the ONU tells meanwhile is read and dropped, so that it can't fill up the socket.
void Replay::waitUntil(Clock::time_point time)
{
    while (Clock::now() < time)
        static_cast<void>(m_Context.session().notification(time));
}

void Replay::play(std::size_t index)
{
    const RecordedExchange& exchange = m_Conversation.exchanges[index];
    switch (exchange.request.header().type) {
    case MessageType::MibUploadNext:
    case MessageType::GetAllAlarmsNext:
        return;
    case MessageType::MibUpload:
        if (exchange.answer)
            return playUpload(index);
        break;
    case MessageType::GetAllAlarms:
        if (exchange.answer)
            return playAlarms(index);
        break;
    case MessageType::EndSoftwareDownload:
        if (isAskedAgain(m_Conversation, index))
            return;
        break;
    default:
        break;
    }
    playRequest(exchange);
}

void Replay::playUpload(std::size_t index)
{
    const auto& catalogue = m_Context.catalogue();
    const RecordedUpload before = uploadOf(catalogue, m_Conversation, index);
    ++m_Outcome.requests;
    const Mib after = uploadMib(m_Context.session(), catalogue, {});
    auto differences = diffMibs(before.mib, after, m_Ignored);
    // Of an upload that the recording breaks off, nothing can be told about the rest.
    if (!before.whole)
        differences.erase(std::remove_if(differences.begin(), differences.end(),
                                         [](const auto& difference) { return !difference.before; }),
                          differences.end());
    add(std::move(differences));
}

void Replay::playAlarms(std::size_t index)
{
    AlarmTexts before;
    forEachFollowing(m_Conversation, index, MessageType::GetAllAlarmsNext, [&](const Frame& answer) {
        for (std::size_t i = 0; const auto entity = omci::parseAlarmedEntity(answer.view(), i); ++i)
            addAlarms(before, *entity);
    });
    ++m_Outcome.requests;
    AlarmTexts after;
    const auto mode = omci::parseOctetRequest(m_Conversation.exchanges[index].request.view()).value;
    for (const auto& entity : readAlarms(m_Context.session(), m_Context.catalogue().ofNumber(2),
                                         mode == 0 ? AlarmRetrieval::All : AlarmRetrieval::WithoutArc))
        addAlarms(after, entity);
    std::set<Mib::Key> keys;
    for (const auto* const texts : {&before, &after}) {
        for (const auto& [key, text] : *texts)
            keys.insert(key);
    }
    for (const auto& key : keys) {
        const auto was = find(before, key);
        const auto is = find(after, key);
        if (was != is && !m_Ignored.covers(key.first, "alarms"))
            add({{key, "alarms", was, is}});
    }
}

void Replay::playRequest(const RecordedExchange& exchange)
{
    auto& session = m_Context.session();
    const Request request = requestOf(exchange.request);
    ++m_Outcome.requests;
    if (!exchange.request.header().acknowledgeRequest || !exchange.answer) {
        session.sendUnacknowledged(request);
        return;
    }
    const Frame answer = request.type == MessageType::EndSoftwareDownload ? askUntilStored(request, *exchange.answer)
                                                                          : session.request(request);
    const auto& catalogue = m_Context.catalogue();
    add(compareAnswers(describe(catalogue, exchange.answer->view()), describe(catalogue, answer.view()), m_Ignored));
}

Frame Replay::askUntilStored(const Request& request, const Frame& recorded)
{
    constexpr std::chrono::milliseconds pause{100};
    constexpr std::chrono::seconds longest{60};
    const auto deadline = Clock::now() + longest;
    Frame answer = m_Context.session().request(request);
    while (saysBusy(answer) && !saysBusy(recorded) && Clock::now() < deadline) {
        m_Context.session().pause(Clock::now() + pause);
        answer = m_Context.session().request(request);
    }
    return answer;
}

void Replay::add(std::vector<Difference> differences)
{
    std::move(differences.begin(), differences.end(), std::back_inserter(m_Outcome.differences));
}

}  // namespace olt
