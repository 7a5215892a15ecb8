#ifndef OLT_VOICE_ENTITY_READER_H
#define OLT_VOICE_ENTITY_READER_H

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "session/Operations.h"

namespace olt {

/// An entity with the values that the ONU gave.
class ReadEntity
{
public:
    ReadEntity(const EntityId& id, std::vector<AttributeValue> values) : m_Id(id), m_Values(std::move(values)) {}

    [[nodiscard]] const EntityId& id() const { return m_Id; }
    [[nodiscard]] const std::vector<AttributeValue>& values() const { return m_Values; }
    /// By the attribute's name as the catalogue has it. Nothing when the ONU did not give it.
    [[nodiscard]] std::optional<std::uint64_t> number(const char* attribute) const;
    [[nodiscard]] const Bytes* octets(const char* attribute) const;
    /// Octets up to the first zero; empty when the ONU did not give them.
    [[nodiscard]] Bytes text(const char* attribute) const;

private:
    EntityId m_Id;
    std::vector<AttributeValue> m_Values;
};

/// Reads entities, each once, and follows pointers among them.
class EntityReader
{
public:
    /// Neither is owned.
    EntityReader(Session& session, const Catalogue& catalogue) : m_Session(session), m_Catalogue(catalogue) {}

    /// All that can be read of the entity; null when the ONU has no such class or instance. The object lives as long as
    /// the reader. Throws BadAnswer when the ONU refuses for another reason than failed attributes.
    const ReadEntity* read(std::uint16_t entityClass, std::uint16_t instance);
    /// As `read`, of the string classes only the parts that their text has.
    const ReadEntity* readText(std::uint16_t entityClass, std::uint16_t instance);

    /// What a pointer attribute leads to. Null for no pointer: 65535, 0 where no instance 0 exists, and an attribute
    /// that the ONU did not give; and for one that leads nowhere, which is noted.
    const ReadEntity* follow(const ReadEntity& from, const char* attribute, std::uint16_t targetClass);
    /// "SipUserData 2 UserPartAor -> LargeString 74", each once, in the order in which they were met since the last
    /// call.
    [[nodiscard]] std::vector<std::string> takeDangling();

private:
    const ReadEntity* keep(const EntityId& id, GetOutcome&& outcome);
    GetOutcome get(const EntityId& id, const std::vector<const Attribute*>& attributes);

    Session& m_Session;
    const Catalogue& m_Catalogue;
    std::map<std::pair<std::uint16_t, std::uint16_t>, std::unique_ptr<ReadEntity>> m_Entities;
    std::vector<std::string> m_Dangling;
};

}  // namespace olt

#endif
