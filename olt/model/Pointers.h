#ifndef OLT_MODEL_POINTERS_H
#define OLT_MODEL_POINTERS_H

// Which attributes name other entities. The rules are data: PointerTable.cpp.

#include <optional>
#include <string>
#include <vector>

#include "model/Mib.h"

namespace olt {

/// How the instance that is pointed to is found.
enum class PointerKind
{
    Attribute,    ///< The attribute's value is the instance.
    RelatedPort,  ///< The upper two octets of the attribute are the instance.
    OwnInstance   ///< There is no attribute: the entity has the instance number of what it belongs to.
};

/// Targets that hold for one value of the selector.
struct PointerTargets
{
    int selected;                        ///< Value of the selector; kAlways when there is none.
    std::vector<std::uint16_t> classes;  ///< The target is of one of these.
};
constexpr int kAlways = -1;

/// What the value 0 means; 65535 always means "none".
enum class Zero
{
    Instance,      ///< The instance 0.
    NoneIfAbsent,  ///< The instance 0 where it exists, else none.
    None
};

struct PointerRule
{
    std::uint16_t entityClass;
    const char* attribute;  ///< Null for OwnInstance.
    const char* selector;   ///< Attribute that tells the target's class; null when there is only one.
    std::vector<PointerTargets> targets;
    PointerKind kind = PointerKind::Attribute;
    Zero zero = Zero::Instance;
    /// Whether a picture shows it. What only repeats another pointer or says little clutters one.
    bool drawn = true;
};

/// All rules, by class.
[[nodiscard]] const std::vector<PointerRule>& pointerRules();

/// A pointer of one entity that is set.
struct Pointer
{
    const PointerRule* rule = nullptr;
    Mib::Key from;
    Mib::Key to;          ///< Of the target's possible classes the one that exists, else the first.
    bool exists = false;  ///< Whether the MIB has the target.
    bool canExist =
        true;  ///< False when the target's class is left out of MIB uploads, so that its absence says nothing.
};

/// All pointers of a MIB that are set, in order of class, instance and rule.
[[nodiscard]] std::vector<Pointer> pointersOf(const Mib& mib, const Catalogue& catalogue);

/// The attribute's value as a number; none when the MIB doesn't have it or it has more than eight octets.
[[nodiscard]] std::optional<std::uint64_t> numberOf(const MibEntity& entity, const char* attribute);

/// Whether any attribute of the class is part of a MIB upload.
[[nodiscard]] bool isUploaded(const EntityClass& entity);

}  // namespace olt

#endif
