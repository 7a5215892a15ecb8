#include "app/Arguments.h"

#include <algorithm>

#include "model/Errors.h"
#include "model/Names.h"
#include "model/PartedText.h"
#include "model/Value.h"
#include "model/VlanRow.h"

namespace olt {

namespace {

void addOnce(std::vector<AttributeValue>& values, AttributeValue&& added)
{
    const Attribute& attribute = *added.attribute;
    const auto isSame = [&](const AttributeValue& other) { return other.attribute == &attribute; };
    if (std::any_of(values.begin(), values.end(), isSame))
        throw UsageError(attribute.name + " is given twice" +
                         (attribute.isTable() ? "; give one row per command, or use set-table" : ""));
    values.push_back(std::move(added));
}

}  // namespace

const char* const kValueHelp =
    "Values: numbers (10, 0x0A, -5), locked/unlocked and enabled/disabled for states; octets and table rows as 0x\n"
    "and hexadecimal digits or as text (text: in front forces text), filled with zeros at the end; addresses as\n"
    "10.0.0.1, fe80::1 and 00:11:22:33:44:55, serial numbers as ABCD12345678; VLAN filter lists as 100,200:3 (VID and\n"
    "priority).";

void EntityArguments::declare(Options& options)
{
    using Need = Options::Need;
    options.positional("CLASS", m_Class, "Class by name (AniG, \"ANI-G\", OmciMeAniG) or number (263)", Need::Required);
    options.positional("INSTANCE", m_Instance, "Instance, 0 to 65535, decimal or 0x", Need::Required);
}

EntityId EntityArguments::resolve(const Catalogue& catalogue) const
{
    return {&catalogue.lookUp(m_Class), parseInstance(m_Instance)};
}

std::uint16_t parseInstance(const std::string& text)
{
    const auto number = parseUnsigned(text);
    if (!number || *number > 0xFFFF)
        throw UsageError("instance \"" + text + "\" isn't a number from 0 to 65535");
    return static_cast<std::uint16_t>(*number);
}

std::vector<const Attribute*> resolveAttributes(const EntityClass& entity, const std::vector<std::string>& names)
{
    std::uint16_t mask = 0;
    for (const auto& name : names)
        mask = static_cast<std::uint16_t>(mask | entity.attribute(name).mask);
    std::vector<const Attribute*> attributes;
    for (const auto& attribute : entity.attributes) {
        if ((mask & attribute.mask) != 0)
            attributes.push_back(&attribute);
    }
    return attributes;
}

namespace {

/// The attribute whose value may be spelled as the fields of a VLAN row; null when the class has none.
const Attribute* vlanRowAttribute(const EntityClass& entity)
{
    const auto found = std::find_if(entity.attributes.begin(), entity.attributes.end(),
                                    [](const auto& attribute) { return attribute.form == Form::VlanRow; });
    return found == entity.attributes.end() ? nullptr : &*found;
}

/// Fields of a VLAN row, scattered over several words, become one assignment to their attribute.
std::vector<std::string> gatherVlanFields(const EntityClass& entity, const std::vector<std::string>& assignments)
{
    const Attribute* const attribute = vlanRowAttribute(entity);
    if (!attribute)
        return assignments;
    std::vector<std::string> gathered;
    std::string fields;
    for (const auto& assignment : assignments) {
        if (isVlanFieldName(assignment.substr(0, assignment.find('='))))
            fields += (fields.empty() ? "" : " ") + assignment;
        else
            gathered.push_back(assignment);
    }
    if (!fields.empty())
        gathered.push_back(attribute->name + "=" + fields);
    return gathered;
}

}  // namespace

std::vector<AttributeValue> resolveAssignments(const EntityClass& entity, const std::vector<std::string>& assignments)
{
    std::vector<AttributeValue> values;
    for (const auto& assignment : gatherVlanFields(entity, assignments)) {
        const auto equals = assignment.find('=');
        if (equals == std::string::npos || equals == 0)
            throw UsageError("\"" + assignment + "\" isn't ATTRIBUTE=VALUE");
        const std::string name = assignment.substr(0, equals);
        const std::string text = assignment.substr(equals + 1);
        if (isWholeText(entity, name)) {
            for (auto& part : splitText(entity, text))
                addOnce(values, std::move(part));
        } else {
            const Attribute& attribute = entity.attribute(name);
            addOnce(values, {&attribute, parseValue(attribute, text)});
        }
    }
    return values;
}

}  // namespace olt
