#ifndef OLT_MODEL_MIB_H
#define OLT_MODEL_MIB_H

// The MIB of an ONU as it was uploaded or saved.

#include "model/AttributeValues.h"

#include <map>
#include <nlohmann/json.hpp>
#include <utility>

namespace olt {

struct MibEntity
{
    const EntityClass* entityClass = nullptr;  ///< Owned by the catalogue.
    std::uint16_t instance = 0;
    std::map<unsigned, Bytes> values;          ///< By attribute number.
    std::map<std::uint16_t, Bytes> undecoded;  ///< By mask: what the catalogue can't take apart.
};

class Mib
{
public:
    using Key = std::pair<std::uint16_t, std::uint16_t>;  ///< Class and instance.

    /// One entry of an upload: values of a mask. An instance may come in several.
    void add(const EntityClass& entity, std::uint16_t instance, std::uint16_t mask, const std::uint8_t* data,
             std::size_t size);

    /// A whole entity.
    void add(const MibEntity& entity) { m_Entities[{entity.entityClass->id, entity.instance}] = entity; }

    /// In order of class and instance.
    [[nodiscard]] const std::map<Key, MibEntity>& entities() const { return m_Entities; }

    /// {"format": "omci-mib", "version": 1, "entities": [...]}: entities in order of class and instance, attributes in
    /// order of definition, so that the text of two files compares line by line.
    [[nodiscard]] nlohmann::ordered_json toJson() const;

    /// The inverse of toJson. Throws UsageError that names the entity and attribute when the JSON isn't a MIB.
    [[nodiscard]] static Mib fromJson(const Catalogue& catalogue, const nlohmann::ordered_json& json);

private:
    MibEntity& entityAt(const EntityClass& entity, std::uint16_t instance);

    std::map<Key, MibEntity> m_Entities;
};

}  // namespace olt

#endif
