#include "session/Operations.h"

#include <algorithm>

#include "model/Errors.h"
#include "model/Value.h"
#include "session/Exchange.h"

namespace olt {

namespace {

using omci::MessageType;
using omci::Result;

/// A table of a megabyte is a broken size, not a table.
constexpr std::uint32_t kLargestTable = 1U << 20;

/// Whether a further message about the same entity can fare better.
bool isHopeless(Result result)
{
    return result != Result::Success && result != Result::AttributesFailed;
}

Outcome outcomeOf(const omci::SetResponse& response)
{
    return {response.result, response.optionalMask, response.executionMask};
}

void append(AttributeValues& all, AttributeValues&& part)
{
    std::move(part.values.begin(), part.values.end(), std::back_inserter(all.values));
    all.undecoded = static_cast<std::uint16_t>(all.undecoded | part.undecoded);
    all.missing = static_cast<std::uint16_t>(all.missing | part.missing);
    all.rest.insert(all.rest.end(), part.rest.begin(), part.rest.end());
}

GetOutcome getOnce(Session& session, const EntityId& entity, std::uint16_t mask, MessageType type)
{
    const omci::MaskRequest layout{mask};
    const Frame answer =
        session.request(requestTo(entity, type, written([&](auto* contents) { return layout.write(contents); })));
    const auto result = orBadAnswer(omci::parseResultResponse(answer.view()), entity, type).result;
    GetOutcome outcome;
    outcome.result = result;
    if (isHopeless(result))
        return outcome;
    const auto response = orBadAnswer(omci::parseGetResponse(answer.view()), entity, type);
    outcome.unsupported = response.optionalMask;
    outcome.failed = response.executionMask;
    outcome.values = splitValues(*entity.entityClass, response.mask, response.values.data, response.values.size);
    outcome.absent =
        static_cast<std::uint16_t>(mask & ~(response.mask | response.optionalMask | response.executionMask));
    return outcome;
}

std::size_t getRoom(omci::Format format)
{
    return omci::GetResponse::room(format);
}

std::size_t setRoom(omci::Format format)
{
    return format == omci::Format::Baseline ? omci::kBaselineSetRoom : omci::kMaximumContentLength - 2;
}

Outcome setOnce(Session& session, const EntityId& entity, MessageType type, std::uint16_t mask, const Bytes& values)
{
    const omci::SetRequest layout{mask, {values.data(), values.size()}};
    const auto format = session.format();
    const Frame answer = session.request(
        requestTo(entity, type, written([&](auto* contents) { return layout.write(format, contents); })));
    const auto result = orBadAnswer(omci::parseResultResponse(answer.view()), entity, type).result;
    if (result != Result::AttributesFailed)
        return {result, 0, 0};
    return outcomeOf(orBadAnswer(omci::parseSetResponse(answer.view()), entity, type));
}

/// Values in order that fit one message.
struct SetPortion
{
    std::uint16_t mask = 0;
    Bytes values;
};

std::vector<SetPortion> portions(const std::vector<AttributeValue>& values, std::size_t room)
{
    auto ordered = values;
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const auto& a, const auto& b) { return a.attribute->number < b.attribute->number; });
    std::vector<SetPortion> all;
    for (const auto& value : ordered) {
        if (value.value.size() > room)
            throw UsageError(value.attribute->name + ": " + std::to_string(value.value.size()) +
                             " octets don't fit a message; " + std::to_string(room) + " do" +
                             (room == omci::kBaselineSetRoom ? " (--extended has more room)" : ""));
        if (all.empty() || all.back().values.size() + value.value.size() > room)
            all.emplace_back();
        all.back().mask = static_cast<std::uint16_t>(all.back().mask | value.attribute->mask);
        all.back().values.insert(all.back().values.end(), value.value.begin(), value.value.end());
    }
    return all;
}

const AttributeValue* find(const std::vector<AttributeValue>& values, const Attribute& attribute)
{
    const auto found =
        std::find_if(values.begin(), values.end(), [&](const auto& v) { return v.attribute == &attribute; });
    return found == values.end() ? nullptr : &*found;
}

}  // namespace

void Outcome::merge(const Outcome& other)
{
    // "Attributes failed" of one message must not hide that the next one found the instance gone.
    if (succeeded() || isHopeless(other.result))
        result = other.result;
    unsupported = static_cast<std::uint16_t>(unsupported | other.unsupported);
    failed = static_cast<std::uint16_t>(failed | other.failed);
}

GetOutcome getAttributes(Session& session, const EntityId& entity, const std::vector<const Attribute*>& attributes,
                         MessageType type)
{
    // Of a class that nobody knows the sizes can't be reckoned with, so that the ONU decides what fits.
    const bool everything = !entity.entityClass->known && attributes.size() == entity.entityClass->attributes.size();
    const auto masks =
        everything ? std::vector<std::uint16_t>{0xFFFF} : splitMask(attributes, getRoom(session.format()));
    GetOutcome all;
    for (const auto mask : masks) {
        GetOutcome part = getOnce(session, entity, mask, type);
        all.merge(part);
        all.absent = static_cast<std::uint16_t>(all.absent | part.absent);
        append(all.values, std::move(part.values));
        if (isHopeless(part.result))
            break;
    }
    return all;
}

Outcome setAttributes(Session& session, const EntityId& entity, const std::vector<AttributeValue>& values)
{
    Outcome all;
    for (const auto& portion : portions(values, setRoom(session.format()))) {
        all.merge(setOnce(session, entity, MessageType::Set, portion.mask, portion.values));
        if (!all.succeeded())
            break;
    }
    return all;
}

Outcome setTableRows(Session& session, const EntityId& entity, const Attribute& table, const std::vector<Bytes>& rows)
{
    Bytes values;
    for (const auto& row : rows)
        values.insert(values.end(), row.begin(), row.end());
    return setOnce(session, entity, MessageType::SetTable, table.mask, values);
}

Outcome createEntity(Session& session, const EntityId& entity, const std::vector<AttributeValue>& values)
{
    Bytes contents;
    for (const auto& attribute : entity.entityClass->attributes) {
        if (!attribute.setByCreate)
            continue;
        const AttributeValue* const given = find(values, attribute);
        const Bytes& value = given ? given->value : attribute.defaultValue;
        contents.insert(contents.end(), value.begin(), value.end());
    }
    const Frame answer = session.request(requestTo(entity, MessageType::Create, std::move(contents)));
    const auto result = orBadAnswer(omci::parseResultResponse(answer.view()), entity, MessageType::Create).result;
    if (result != Result::ParameterError)
        return {result, 0, 0};
    const auto response = omci::parseCreateResponse(answer.view());
    return {result, 0, response ? response->executionMask : std::uint16_t{0}};
}

Outcome command(Session& session, const EntityId& entity, MessageType type, Bytes contents)
{
    const Frame answer = session.request(requestTo(entity, type, std::move(contents)));
    return {orBadAnswer(omci::parseResultResponse(answer.view()), entity, type).result, 0, 0};
}

namespace {

/// One get next message. False when the ONU refuses, with the reason in `table`.
bool readNext(Session& session, const EntityId& entity, std::uint16_t mask, std::uint16_t sequence,
              TableContents& table, Bytes& octets)
{
    const omci::GetNextRequest layout{mask, sequence};
    const Frame answer = session.request(
        requestTo(entity, MessageType::GetNext, written([&](auto* contents) { return layout.write(contents); })));
    const auto response = orBadAnswer(omci::parseGetNextResponse(answer.view()), entity, MessageType::GetNext);
    table.result = response.result;
    if (response.result != Result::Success)
        return false;
    if (response.data.size == 0)
        throw BadAnswer("get next " + std::to_string(sequence) + " of " + std::to_string(table.size) +
                        " octets or rows has no data");
    octets.assign(response.data.data, response.data.data + response.data.size);
    return true;
}

/// The tables whose classes serve them by themselves announce their size in octets; the others' rows are counted.
bool announcesOctets(const EntityId& entity, const Attribute& attribute)
{
    constexpr std::uint16_t remoteDebug = 158;
    constexpr std::uint16_t statusPortal = 65420;
    constexpr std::uint16_t statusMessage = 0x20;
    return attribute.size == 0 || entity.entityClass->id == remoteDebug ||
           (entity.entityClass->id == statusPortal && attribute.mask == statusMessage);
}

/// Collects the rows of a table out of get next messages.
class RowReader
{
public:
    RowReader(const EntityId& entity, const Attribute& attribute, omci::Format format, TableContents& table)
        : m_RowSize(attribute.size), m_InOctets(announcesOctets(entity, attribute)),
          m_IsBaseline(format == omci::Format::Baseline), m_Table(table)
    {}

    /// All that was announced is there, whichever way it was counted.
    bool isComplete() const
    {
        return m_InOctets ? m_Octets >= m_Table.size : m_Partial.empty() && m_Table.rows.size() >= m_Table.size;
    }
    /// An ONU that counts octets has no more rows.
    bool mayEnd() const { return m_Partial.empty() && m_Octets >= m_Table.size; }

    void add(const Bytes& octets)
    {
        m_InOctets = m_InOctets || runsOn(octets);
        const std::size_t wanted = isPadded() ? m_RowSize - m_Partial.size() : octets.size();
        const std::size_t announced = m_RunsOn ? m_Table.size - m_Octets : wanted;
        const std::size_t taken = std::min({octets.size(), wanted, announced});
        m_Octets += taken;
        m_Partial.insert(m_Partial.end(), octets.begin(), octets.begin() + static_cast<std::ptrdiff_t>(taken));
        const std::size_t size = m_RowSize == 0 ? m_Partial.size() : m_RowSize;
        while (!m_Partial.empty() && m_Partial.size() >= size) {
            const auto end = m_Partial.begin() + static_cast<std::ptrdiff_t>(size);
            m_Table.rows.emplace_back(m_Partial.begin(), end);
            m_Partial.erase(m_Partial.begin(), end);
        }
    }

    /// A size in octets that is no multiple of the row cuts the last one.
    void cutLastRow()
    {
        if (m_InOctets && m_Octets > m_Table.size && !m_Table.rows.empty()) {
            Bytes& last = m_Table.rows.back();
            last.resize(last.size() - std::min<std::size_t>(last.size(), m_Octets - m_Table.size));
        }
    }

private:
    /// Some ONUs begin a message with each row, and a baseline one is filled up with zeros behind it.
    bool isPadded() const { return m_IsBaseline && m_RowSize != 0 && !m_RunsOn; }

    /// Others cut the whole table into messages, and count its octets: the next row stands where the zeros would.
    bool runsOn(const Bytes& octets)
    {
        if (m_Octets == 0 && isPadded() && octets.size() > m_RowSize)
            m_RunsOn = std::any_of(octets.begin() + static_cast<std::ptrdiff_t>(m_RowSize), octets.end(),
                                   [](std::uint8_t octet) { return octet != 0; });
        return m_RunsOn;
    }

    std::size_t m_RowSize;
    bool m_InOctets;
    bool m_IsBaseline;
    bool m_RunsOn = false;
    TableContents& m_Table;
    std::size_t m_Octets = 0;
    Bytes m_Partial;
};

}  // namespace

namespace {

/// The whole table, or as much as came before the ONU refused to go on.
TableContents readTableOnce(Session& session, const EntityId& entity, const Attribute& attribute)
{
    TableContents table;
    const GetOutcome size = getAttributes(session, entity, {&attribute});
    table.merge(size);
    if (!size.succeeded())
        return table;
    const bool sizeIsThere = !size.values.values.empty() || size.values.rest.size() >= 4;
    if (!sizeIsThere)
        throw BadAnswer("the answer to get has no size of " + attribute.name);
    const Bytes& sizeOctets = size.values.values.empty() ? size.values.rest : size.values.values.front().value;
    table.size = static_cast<std::uint32_t>(bigEndian(sizeOctets.data(), 4));
    if (table.size > kLargestTable)
        throw BadAnswer(attribute.name + " claims a size of " + std::to_string(table.size) + " octets");
    RowReader reader(entity, attribute, session.format(), table);
    Bytes octets;
    for (std::uint16_t sequence = 0; !reader.isComplete(); ++sequence) {
        if (!readNext(session, entity, attribute.mask, sequence, table, octets)) {
            if (reader.mayEnd())
                table.result = Result::Success;
            break;
        }
        reader.add(octets);
    }
    reader.cutLastRow();
    return table;
}

}  // namespace

TableContents readTable(Session& session, const EntityId& entity, const Attribute& attribute)
{
    constexpr unsigned mostTries = 4;
    TableContents table = readTableOnce(session, entity, attribute);
    // A late copy of the first get, or another reader, makes an ONU begin anew: it refuses what it did not expect.
    for (unsigned i = 1; i < mostTries && table.size != 0 && table.result == Result::ParameterError; ++i)
        table = readTableOnce(session, entity, attribute);
    return table;
}

std::vector<Bytes> readRowsWithoutSize(Session& session, const EntityId& entity, const Attribute& attribute)
{
    TableContents table;
    table.size = kLargestTable;
    RowReader reader(entity, attribute, session.format(), table);
    Bytes octets;
    for (std::uint16_t sequence = 0; !reader.isComplete(); ++sequence) {
        if (!readNext(session, entity, attribute.mask, sequence, table, octets))
            break;
        reader.add(octets);
    }
    return std::move(table.rows);
}

Mib uploadMib(Session& session, const Catalogue& catalogue, const Progress& progress)
{
    const EntityId onuData{&catalogue.ofNumber(2), 0};
    const Frame started = session.request(requestTo(onuData, MessageType::MibUpload));
    const auto count = orBadAnswer(omci::parseCountResponse(started.view()), onuData, MessageType::MibUpload).count;
    Mib mib;
    for (std::uint16_t sequence = 0; sequence < count; ++sequence) {
        const omci::SequenceRequest layout{sequence};
        const Frame answer = session.request(requestTo(
            onuData, MessageType::MibUploadNext, written([&](auto* contents) { return layout.write(contents); })));
        omci::UploadedEntities entities(answer.view());
        omci::UploadedEntity entity;
        bool any = false;
        while (entities.next(entity)) {
            any = true;
            mib.add(catalogue.ofNumber(entity.entityClass), entity.entityInstance, entity.mask, entity.values.data,
                    entity.values.size);
        }
        if (!any || entities.isBroken())
            throw BadAnswer("MIB upload next " + std::to_string(sequence) + " of " + std::to_string(count) +
                            (any ? " is cut off" : " is empty; the ONU's snapshot may have expired"));
        if (progress)
            progress(sequence + 1U, count);
    }
    return mib;
}

std::vector<omci::AlarmedEntity> readAlarms(Session& session, const EntityClass& onuDataClass, AlarmRetrieval mode)
{
    const EntityId onuData{&onuDataClass, 0};
    const Frame started =
        session.request(requestTo(onuData, MessageType::GetAllAlarms, {static_cast<std::uint8_t>(mode)}));
    const auto count = orBadAnswer(omci::parseCountResponse(started.view()), onuData, MessageType::GetAllAlarms).count;
    std::vector<omci::AlarmedEntity> alarmed;
    for (std::uint16_t sequence = 0; sequence < count; ++sequence) {
        const omci::SequenceRequest layout{sequence};
        const Frame answer = session.request(requestTo(
            onuData, MessageType::GetAllAlarmsNext, written([&](auto* contents) { return layout.write(contents); })));
        for (std::size_t index = 0; const auto entity = omci::parseAlarmedEntity(answer.view(), index); ++index)
            alarmed.push_back(*entity);
    }
    return alarmed;
}

}  // namespace olt
