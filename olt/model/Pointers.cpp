#include "model/Pointers.h"

#include <algorithm>

#include "model/Value.h"

namespace olt {

namespace {

constexpr std::uint16_t kNone = 0xFFFF;

/// The target classes of a rule for one entity; null when the selector says something else or isn't there.
const std::vector<std::uint16_t>* targetClasses(const PointerRule& rule, const MibEntity& entity)
{
    int selected = kAlways;
    if (rule.selector) {
        const auto value = numberOf(entity, rule.selector);
        if (!value)
            return nullptr;
        selected = static_cast<int>(*value);
    }
    const auto found = std::find_if(rule.targets.begin(), rule.targets.end(),
                                    [selected](const auto& targets) { return targets.selected == selected; });
    return found == rule.targets.end() ? nullptr : &found->classes;
}

std::optional<std::uint16_t> instanceOf(const PointerRule& rule, const MibEntity& entity)
{
    if (rule.kind == PointerKind::OwnInstance)
        return entity.instance;
    const auto value = numberOf(entity, rule.attribute);
    if (!value)
        return std::nullopt;
    return static_cast<std::uint16_t>(rule.kind == PointerKind::RelatedPort ? *value >> 16 : *value);
}

bool anyOfClass(const Mib& mib, std::uint16_t entityClass)
{
    const auto found = mib.entities().lower_bound({entityClass, 0});
    return found != mib.entities().end() && found->first.first == entityClass;
}

std::optional<Pointer> resolve(const PointerRule& rule, const MibEntity& entity, const Mib& mib,
                               const Catalogue& catalogue)
{
    const auto* const classes = targetClasses(rule, entity);
    const auto instance = instanceOf(rule, entity);
    if (!classes || !instance || *instance == kNone || (*instance == 0 && rule.zero == Zero::None))
        return std::nullopt;
    Pointer pointer;
    pointer.rule = &rule;
    pointer.from = {entity.entityClass->id, entity.instance};
    pointer.to = {classes->front(), *instance};
    for (const std::uint16_t id : *classes) {
        if (mib.entities().count({id, *instance}) != 0) {
            pointer.to.first = id;
            pointer.exists = true;
            return pointer;
        }
    }
    if (*instance == 0 && rule.zero == Zero::NoneIfAbsent)
        return std::nullopt;
    pointer.canExist = std::all_of(classes->begin(), classes->end(), [&](std::uint16_t id) {
        return isUploaded(catalogue.ofNumber(id)) || anyOfClass(mib, id);
    });
    return pointer;
}

}  // namespace

std::vector<Pointer> pointersOf(const Mib& mib, const Catalogue& catalogue)
{
    std::vector<Pointer> pointers;
    for (const auto& [key, entity] : mib.entities()) {
        for (const auto& rule : pointerRules()) {
            if (rule.entityClass != key.first)
                continue;
            if (const auto pointer = resolve(rule, entity, mib, catalogue))
                pointers.push_back(*pointer);
        }
    }
    return pointers;
}

std::optional<std::uint64_t> numberOf(const MibEntity& entity, const char* attribute)
{
    for (const auto& [number, value] : entity.values) {
        const auto* const definition =
            entity.entityClass->attributeOfMask(static_cast<std::uint16_t>(0x8000U >> (number - 1)));
        if (definition && definition->name == attribute && value.size() <= 8)
            return bigEndian(value.data(), value.size());
    }
    return std::nullopt;
}

bool isUploaded(const EntityClass& entity)
{
    return !entity.known || std::any_of(entity.attributes.begin(), entity.attributes.end(),
                                        [](const auto& attribute) { return attribute.uploaded; });
}

}  // namespace olt
