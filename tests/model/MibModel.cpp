#include "MibModel.h"

#include <stdexcept>

#include "ClassRules.h"

namespace model {

namespace {

constexpr std::uint16_t kOnuData = 2;
constexpr std::uint16_t kMibDataSync = 0x8000;

/// Result and reason.
enum Result : std::uint8_t
{
    SUCCESS = 0,
    PROCESSING_ERROR = 1,
    NOT_SUPPORTED = 2,
    PARAMETER_ERROR = 3,
    UNKNOWN_ENTITY = 4,
    UNKNOWN_INSTANCE = 5,
    INSTANCE_EXISTS = 7,
    ATTRIBUTES_FAILED = 9
};

constexpr std::size_t kBaselineGetRoom = 25;
constexpr std::size_t kExtendedGetRoom = 1966 - 7;
constexpr std::size_t kBaselineContents = 32;

std::uint16_t read16(const Bytes& bytes)
{
    return static_cast<std::uint16_t>((bytes.at(0) << 8) | bytes.at(1));
}

Bytes createAnswer(Result result, unsigned int refused = 0)
{
    Bytes contents = {result};
    add16(contents, refused);
    return contents;
}

Bytes setAnswer(const Request& request, Result result, unsigned int unknown = 0, unsigned int refused = 0)
{
    Bytes contents = {result};
    if (!request.isExtended || result == ATTRIBUTES_FAILED) {
        add16(contents, unknown);
        add16(contents, refused);
    }
    return contents;
}

Bytes getAnswer(const Request& request, Result result, unsigned int mask, unsigned int unknown, unsigned int refused,
                const Bytes& values)
{
    Bytes contents = {result};
    add16(contents, mask);
    if (request.isExtended) {
        add16(contents, unknown);
        add16(contents, refused);
        contents.insert(contents.end(), values.begin(), values.end());
        return contents;
    }
    contents.insert(contents.end(), values.begin(), values.end());
    contents.resize(kBaselineContents - 4);
    add16(contents, unknown);
    add16(contents, refused);
    return contents;
}

/// One row more.
void countUp(Bytes& count)
{
    for (std::size_t place = count.size(); place-- > 0 && ++count[place] == 0;) {
    }
}

/// The answer of a message that never came to the entity.
Bytes errorAnswer(const Request& request, Result result)
{
    switch (request.type) {
    case CREATE:
        return createAnswer(result);
    case SET:
    case SET_TABLE:
        return setAnswer(request, result);
    case GET:
    case GET_CURRENT_DATA:
        return getAnswer(request, result, 0, 0, 0, {});
    default:
        return {result};
    }
}

}  // namespace

const Instances& MibModel::instancesOf(std::uint16_t classId) const
{
    static const Instances none;
    const auto found = m_Instances.find(classId);
    return found == m_Instances.end() ? none : found->second;
}

const Instance* MibModel::find(std::uint16_t classId, std::uint16_t instance) const
{
    const Instances& instances = instancesOf(classId);
    const auto found = instances.find(instance);
    return found == instances.end() ? nullptr : &found->second;
}

const Bytes& MibModel::value(std::uint16_t classId, std::uint16_t instance, std::uint16_t mask) const
{
    return instancesOf(classId).at(instance).values.at(mask);
}

std::map<std::uint16_t, Bytes> MibModel::defaultsOf(std::uint16_t classId) const
{
    std::map<std::uint16_t, Bytes> values;
    for (const Attribute& attribute : m_Classes.at(classId).attributes) {
        values[attribute.mask] = defaultOf(classId, attribute);
    }
    return values;
}

void MibModel::addStartInstance(std::uint16_t classId, std::uint16_t instance,
                                const std::map<std::uint16_t, Bytes>& values)
{
    Instance made;
    made.values = defaultsOf(classId);
    for (const auto& [mask, octets] : values) {
        made.values[mask] = octets;
    }
    m_Start[classId][instance] = made;
    m_Instances[classId][instance] = made;
}

void MibModel::make(std::uint16_t classId, std::uint16_t instance, bool byOlt)
{
    if (find(classId, instance) != nullptr) {
        return;
    }
    m_Instances[classId][instance] = {byOlt, defaultsOf(classId)};
    for (const Companion& companion : companionsOf(classId)) {
        make(companion.classId, instance, companion.isCreatedByOlt);
    }
}

void MibModel::erase(std::uint16_t classId, std::uint16_t instance, bool byOlt)
{
    const Instance* const found = find(classId, instance);
    if (found == nullptr || found->isCreatedByOlt != byOlt) {
        return;
    }
    m_Instances[classId].erase(instance);
    for (const Companion& companion : companionsOf(classId)) {
        erase(companion.classId, instance, companion.isCreatedByOlt);
    }
}

bool MibModel::createAsOnu(std::uint16_t classId, std::uint16_t instance)
{
    const auto entity = m_Classes.find(classId);
    if (entity == m_Classes.end() || !entity->second.isCreatedByOnu) {
        return false;
    }
    make(classId, instance, false);
    return true;
}

bool MibModel::removeAsOnu(std::uint16_t classId, std::uint16_t instance)
{
    const auto entity = m_Classes.find(classId);
    if (entity == m_Classes.end() || !entity->second.isCreatedByOnu || find(classId, instance) == nullptr) {
        return false;
    }
    erase(classId, instance, false);
    return true;
}

void MibModel::stepDataSync()
{
    Bytes& counter = m_Instances.at(kOnuData).at(0).values.at(kMibDataSync);
    counter[0] = counter[0] == 0xFF ? std::uint8_t{1} : static_cast<std::uint8_t>(counter[0] + 1);
}

void MibModel::resetMib()
{
    for (auto& [classId, instances] : m_Instances) {
        const Instances before = instances;
        for (const auto& [number, instance] : before) {
            if (instance.isCreatedByOlt) {
                erase(classId, number, true);
            }
        }
    }
    for (auto& [classId, instances] : m_Instances) {
        for (auto& [number, instance] : instances) {
            const Instances& start = m_Start[classId];
            const auto found = start.find(number);
            instance.values = found != start.end() ? found->second.values : defaultsOf(classId);
        }
    }
}

Bytes MibModel::answer(const Request& request)
{
    if (request.type == SET_TABLE && !request.isExtended) {
        // There is no such message in this format.
        return errorAnswer(request, NOT_SUPPORTED);
    }
    const auto found = m_Classes.find(request.classId);
    if (found == m_Classes.end()) {
        return errorAnswer(request, UNKNOWN_ENTITY);
    }
    const EntityClass& entity = found->second;
    switch (request.type) {
    case CREATE:
        return create(entity, request);
    case DELETE:
        return remove(entity, request);
    case SET:
        return set(entity, request);
    case SET_TABLE:
        return setTable(entity, request);
    case GET:
    case GET_CURRENT_DATA:
        return get(entity, request);
    case MIB_RESET:
        resetMib();
        return {SUCCESS};
    default:
        throw std::logic_error("the model knows no such message");
    }
}

Bytes MibModel::create(const EntityClass& entity, const Request& request)
{
    const std::uint16_t instance = request.instance;
    std::size_t length = 0;
    for (const Attribute& attribute : entity.attributes) {
        length += attribute.has('C') ? attribute.size : 0;
    }
    const bool existed = find(entity.number, instance) != nullptr;
    const bool hasLength = request.isExtended ? request.contents.size() == length : length <= kBaselineContents;
    if (!existed && length != 0 && !hasLength) {
        return createAnswer(PARAMETER_ERROR);
    }
    if (!entity.isCreatedByOlt) {
        return createAnswer(NOT_SUPPORTED);
    }
    if (existed) {
        return createAnswer(INSTANCE_EXISTS);
    }
    make(entity.number, instance, true);
    Bytes padded = request.contents;
    padded.resize(std::max(padded.size(), length));
    auto value = padded.begin();
    unsigned int refused = 0;
    for (const Attribute& attribute : entity.attributes) {
        if (attribute.has('C')) {
            const auto end = value + static_cast<std::ptrdiff_t>(attribute.size);
            refused |= store(entity, instance, attribute, Bytes(value, end)) ? 0U : attribute.mask;
            value = end;
        }
    }
    if (refused != 0) {
        erase(entity.number, instance, true);
        return createAnswer(PARAMETER_ERROR, refused);
    }
    stepDataSync();
    return createAnswer(SUCCESS);
}

Bytes MibModel::remove(const EntityClass& entity, const Request& request)
{
    if (find(entity.number, request.instance) == nullptr) {
        return {UNKNOWN_INSTANCE};
    }
    if (!entity.isCreatedByOlt) {
        return {NOT_SUPPORTED};
    }
    erase(entity.number, request.instance, true);
    stepDataSync();
    return {SUCCESS};
}

Bytes MibModel::set(const EntityClass& entity, const Request& request)
{
    if (find(entity.number, request.instance) == nullptr) {
        return setAnswer(request, UNKNOWN_INSTANCE);
    }
    Bytes contents = request.contents;
    if (!request.isExtended) {
        contents.resize(kBaselineContents);
    }
    const unsigned int mask = read16(contents);
    unsigned int unknown = 0;
    unsigned int refused = 0;
    std::vector<std::pair<const Attribute*, Bytes>> values;
    std::size_t offset = 2;
    for (unsigned int bit = 0x8000; bit != 0; bit >>= 1) {
        const Attribute* const attribute = entity.find(static_cast<std::uint16_t>(mask & bit));
        if ((mask & bit) == 0) {
            continue;
        }
        if (attribute == nullptr) {
            unknown |= bit;
        } else if (unknown != 0) {
            refused |= bit;
        } else {
            const std::size_t end = offset + attribute->size;
            if (end > contents.size()) {
                return setAnswer(request, PARAMETER_ERROR);
            }
            values.emplace_back(attribute, Bytes(contents.begin() + static_cast<std::ptrdiff_t>(offset),
                                                 contents.begin() + static_cast<std::ptrdiff_t>(end)));
            offset = end;
        }
    }
    if (request.isExtended && unknown == 0 && offset != contents.size()) {
        return setAnswer(request, PARAMETER_ERROR);
    }
    for (const auto& [attribute, value] : values) {
        if (!attribute->has('W') || !store(entity, request.instance, *attribute, value)) {
            refused |= attribute->mask;
        }
    }
    if ((unknown | refused) != 0) {
        return setAnswer(request, ATTRIBUTES_FAILED, unknown, refused);
    }
    if (isRefusedByHardware(*this, entity.number, request.instance)) {
        return setAnswer(request, PROCESSING_ERROR);
    }
    if (entity.number != kOnuData) {
        stepDataSync();
    }
    return setAnswer(request, SUCCESS);
}

Bytes MibModel::setTable(const EntityClass& entity, const Request& request)
{
    if (find(entity.number, request.instance) == nullptr) {
        return setAnswer(request, UNKNOWN_INSTANCE);
    }
    const Attribute* const table = entity.find(read16(request.contents));
    const std::size_t length = request.contents.size() - 2;
    if (table == nullptr || !table->isTable || !table->has('W') || length == 0 || length % table->size != 0) {
        return setAnswer(request, PARAMETER_ERROR);
    }
    for (auto row = request.contents.begin() + 2; row != request.contents.end();
         row += static_cast<std::ptrdiff_t>(table->size)) {
        if (!store(entity, request.instance, *table, Bytes(row, row + static_cast<std::ptrdiff_t>(table->size)))) {
            return setAnswer(request, ATTRIBUTES_FAILED, 0, table->mask);
        }
    }
    stepDataSync();
    return setAnswer(request, SUCCESS);
}

Bytes MibModel::get(const EntityClass& entity, const Request& request) const
{
    if (find(entity.number, request.instance) == nullptr) {
        return errorAnswer(request, UNKNOWN_INSTANCE);
    }
    const std::size_t room = request.isExtended ? kExtendedGetRoom : kBaselineGetRoom;
    const unsigned int asked = read16(request.contents);
    unsigned int given = 0;
    unsigned int refused = 0;
    unsigned int unknown = asked;
    Bytes values;
    for (const Attribute& attribute : entity.attributes) {
        unknown &= ~static_cast<unsigned int>(attribute.mask);
        if ((asked & attribute.mask) == 0) {
            continue;
        }
        if (!attribute.has('R') || values.size() + attribute.readSize() > room) {
            refused |= attribute.mask;
            continue;
        }
        const std::optional<Bytes> value = read(*this, entity.number, request.instance, attribute, request.type);
        if (!value) {
            refused |= attribute.mask;
            continue;
        }
        values.insert(values.end(), value->begin(), value->end());
        given |= attribute.mask;
    }
    return getAnswer(request, (unknown | refused) == 0 ? SUCCESS : ATTRIBUTES_FAILED, given, unknown, refused, values);
}

bool MibModel::store(const EntityClass& entity, std::uint16_t instance, const Attribute& attribute, const Bytes& value)
{
    const Write outcome = write(*this, entity.number, instance, attribute, value);
    auto& values = m_Instances.at(entity.number).at(instance).values;
    if (outcome.taken == Taken::Stored || outcome.taken == Taken::StoredYetRefused) {
        if (attribute.isTable) {
            countUp(values.at(attribute.mask));
        } else {
            values.at(attribute.mask) = outcome.value;
        }
    }
    for (const auto& [mask, other] : outcome.others) {
        values.at(mask) = other;
    }
    return outcome.taken == Taken::Stored || outcome.taken == Taken::Passed;
}

}  // namespace model
