#include "voice/EntityReader.h"

#include <algorithm>

#include "app/Report.h"
#include "model/Errors.h"
#include "model/PartedText.h"
#include "model/Value.h"

namespace olt {

namespace {

constexpr std::uint64_t kNullPointer = 0xFFFF;

bool isThere(omci::Result result)
{
    return result == omci::Result::Success || result == omci::Result::AttributesFailed;
}

}  // namespace

const Bytes* ReadEntity::octets(const char* attribute) const
{
    const auto found = std::find_if(m_Values.begin(), m_Values.end(),
                                    [&](const AttributeValue& value) { return value.attribute->name == attribute; });
    return found == m_Values.end() ? nullptr : &found->value;
}

std::optional<std::uint64_t> ReadEntity::number(const char* attribute) const
{
    const Bytes* const value = octets(attribute);
    return value ? std::optional(bigEndian(value->data(), value->size())) : std::nullopt;
}

Bytes ReadEntity::text(const char* attribute) const
{
    const Bytes* const value = octets(attribute);
    return value ? Bytes(value->begin(), std::find(value->begin(), value->end(), 0)) : Bytes();
}

GetOutcome EntityReader::get(const EntityId& id, const std::vector<const Attribute*>& attributes)
{
    GetOutcome outcome = getAttributes(m_Session, id, attributes);
    const bool isMissing =
        outcome.result == omci::Result::UnknownInstance || outcome.result == omci::Result::UnknownManagedEntity;
    if (!isThere(outcome.result) && !isMissing)
        throw BadAnswer("get " + entityLabel(id) + ": " + omci::resultName(outcome.result));
    return outcome;
}

const ReadEntity* EntityReader::keep(const EntityId& id, GetOutcome&& outcome)
{
    auto& entity = m_Entities[{id.entityClass->id, id.instance}];
    if (isThere(outcome.result))
        entity = std::make_unique<ReadEntity>(id, std::move(outcome.values.values));
    return entity.get();
}

const ReadEntity* EntityReader::read(std::uint16_t entityClass, std::uint16_t instance)
{
    const auto known = m_Entities.find({entityClass, instance});
    if (known != m_Entities.end())
        return known->second.get();
    const EntityId id{&m_Catalogue.ofNumber(entityClass), instance};
    return keep(id, get(id, id.entityClass->readableAttributes()));
}

const ReadEntity* EntityReader::readText(std::uint16_t entityClass, std::uint16_t instance)
{
    const auto known = m_Entities.find({entityClass, instance});
    if (known != m_Entities.end())
        return known->second.get();
    const EntityId id{&m_Catalogue.ofNumber(entityClass), instance};
    GetOutcome outcome = get(id, {&id.entityClass->attributes.front()});
    if (!outcome.values.values.empty()) {
        const auto parts = partsOfText(*id.entityClass, outcome.values.values.front().value);
        if (!parts.empty()) {
            GetOutcome rest = get(id, parts);
            std::move(rest.values.values.begin(), rest.values.values.end(), std::back_inserter(outcome.values.values));
        }
    }
    return keep(id, std::move(outcome));
}

const ReadEntity* EntityReader::follow(const ReadEntity& from, const char* attribute, std::uint16_t targetClass)
{
    const auto pointer = from.number(attribute);
    if (!pointer || *pointer == kNullPointer)
        return nullptr;
    const auto instance = static_cast<std::uint16_t>(*pointer);
    const EntityClass& target = m_Catalogue.ofNumber(targetClass);
    const ReadEntity* const entity = holdsText(target) ? readText(targetClass, instance) : read(targetClass, instance);
    if (!entity && instance != 0) {
        const std::string pointerText = from.id().entityClass->shortName + " " + std::to_string(from.id().instance) +
                                        " " + attribute + " -> " + target.shortName + " " + std::to_string(instance);
        if (std::find(m_Dangling.begin(), m_Dangling.end(), pointerText) == m_Dangling.end())
            m_Dangling.push_back(pointerText);
    }
    return entity;
}

std::vector<std::string> EntityReader::takeDangling()
{
    return std::exchange(m_Dangling, {});
}

}  // namespace olt
