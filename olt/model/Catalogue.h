#ifndef OLT_MODEL_CATALOGUE_H
#define OLT_MODEL_CATALOGUE_H

// The managed-entity classes as the OLT knows them.

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace olt {

using Bytes = std::vector<std::uint8_t>;

/// How an attribute is built on the wire.
enum class Kind
{
    U8,
    U16,
    U32,
    U64,
    S8,
    S16,
    Octets,
    Table
};

/// How the octets of an attribute are best written for people.
enum class Form
{
    Plain,
    Ipv4,
    Ipv6,
    Mac,
    SerialNumber,
    VlanRow,        ///< A row of the VLAN tagging operation table.
    VlanFilterList  ///< Twelve tags.
};

struct Attribute
{
    std::string name;        ///< As the catalogue has it, e.g. "OpticalSignalLevel".
    unsigned number = 0;     ///< 1 to 16.
    std::uint16_t mask = 0;  ///< Attribute 1 is 0x8000, attribute 16 is 0x0001.
    std::size_t size = 0;    ///< Octets of the value; of one row for a table. 0: unknown (class not in the catalogue).
    Kind kind = Kind::Octets;
    Form form = Form::Plain;
    bool setByCreate = false;
    bool readable = false;
    bool writable = false;
    bool uploaded = false;
    Bytes defaultValue;  ///< Big-endian, `size` octets; for a table the four octets of its size.

    [[nodiscard]] bool isTable() const { return kind == Kind::Table; }
    /// Octets that a Get of this attribute answers: for a table the four of its size.
    [[nodiscard]] std::size_t sizeInGet() const { return isTable() ? 4 : size; }
};

struct EntityClass
{
    std::uint16_t id = 0;
    std::string shortName;           ///< "AniG"
    std::string title;               ///< The managed entity's title in G.988, "ANI-G".
    std::uint16_t readableMask = 0;  ///< Attributes that a Get can have. A few classes announce more than that.
    bool known = true;               ///< False for a class that the user gave by a number that no catalogue has.
    std::vector<Attribute> attributes;

    /// By name in any case and spelling, or by number 1 to 16. Throws UsageError with suggestions.
    [[nodiscard]] const Attribute& attribute(std::string_view nameOrNumber) const;
    /// The attribute of a single mask bit; null when the class has none.
    [[nodiscard]] const Attribute* attributeOfMask(std::uint16_t bit) const;
    /// Names of the attributes in the mask, in order; "attribute 16" for one that the catalogue doesn't have.
    [[nodiscard]] std::vector<std::string> attributeNames(std::uint16_t mask) const;
    /// What a Get without names asks for, in order.
    [[nodiscard]] std::vector<const Attribute*> readableAttributes() const;
    /// "AniG (263)"
    [[nodiscard]] std::string label() const;
};

class Catalogue
{
public:
    /// From the JSON text that the generator writes. Throws std::runtime_error when it isn't that.
    explicit Catalogue(std::string_view json);

    /// The catalogue that was built into this program.
    [[nodiscard]] static const Catalogue& builtIn();

    [[nodiscard]] const std::vector<EntityClass>& classes() const { return m_Classes; }

    /// Null when the catalogue doesn't have it.
    [[nodiscard]] const EntityClass* find(std::uint16_t id) const;

    /// By name (any case, with or without OmciMe, or the title of G.988) or by number. A number that the catalogue
    /// doesn't have yields a class of 16 nameless attributes of unknown size, so that any ONU can be asked. The
    /// reference stays valid as long as the catalogue. Throws UsageError with suggestions.
    [[nodiscard]] const EntityClass& lookUp(std::string_view nameOrNumber) const;

    /// The class of that number, known or not.
    [[nodiscard]] const EntityClass& ofNumber(std::uint16_t id) const;

private:
    std::vector<EntityClass> m_Classes;         ///< In order of class number.
    mutable std::deque<EntityClass> m_Unknown;  ///< Handed out by reference, hence a container that doesn't move.
};

}  // namespace olt

#endif
