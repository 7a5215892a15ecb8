// Requests about the MIB: attributes, instances, the registrar's picture, alarms.
#include <algorithm>

#include "MibAccess.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeFactory.h"
#include "Onu.h"
#include "OwnInstances.h"
#include "TableRowsAccess.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"

namespace {
constexpr std::size_t kSpareBytes = 8;
constexpr unsigned int kAttributesPerClass = 16;
constexpr unsigned short kFirstAttribute = 0x8000;

OmciMe& classOf(const RequestFields& fields)
{
    const auto classId = fields.get<unsigned short>("class");
    OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr) {
        throw BadRequest("class " + std::to_string(classId) + " is not registered");
    }
    return *me;
}

unsigned short attributeByName(const OmciMe& me, const std::string& name)
{
    if (name.rfind("0x", 0) == 0 || name.rfind("0X", 0) == 0) {
        const auto bytes = fromHex(std::string(name.size() % 2, '0') + name.substr(2));
        if (bytes.size() <= 2) {
            unsigned int mask = 0;
            for (const unsigned char byte : bytes) {
                mask = (mask << 8) | byte;
            }
            return static_cast<unsigned short>(mask);
        }
    }
    const std::vector<unsigned short> instances = mib::instancesOf(me);
    for (const attributeDefinition& definition : mib::attributesOf(me)) {
        if (!instances.empty() && isSameName(name, mib::dumpedName(me, instances.front(), definition.attributeMask))) {
            return definition.attributeMask;
        }
    }
    throw BadRequest("class " + std::to_string(me.getManagedEntityClassId()) + " has no attribute \"" + name + "\"");
}

/// An attribute is given by name, by number (1 to 16), or by its mask.
unsigned short attributeMaskOf(const OmciMe& me, const RequestFields& fields)
{
    const Json& attribute = fields.member("attribute");
    if (attribute.is_string()) {
        return attributeByName(me, attribute.get<std::string>());
    }
    // Small numbers are attribute numbers where the class has that attribute, and masks of the last ones elsewhere.
    const auto number = fields.get<unsigned short>("attribute");
    if (number >= 1 && number <= kAttributesPerClass) {
        const auto mask = static_cast<unsigned short>(kFirstAttribute >> (number - 1));
        return mib::findAttribute(me, mask) ? mask : number;
    }
    return number;
}

Json getAttribute(const Json& request)
{
    const RequestFields fields(request, "get", {"class", "instance", "attribute", "action"});
    const OmciMe& me = classOf(fields);
    const auto instance = fields.get<unsigned short>("instance");
    const auto action = static_cast<EnumOmciAction>(fields.get<int>("action", OMCI_ACTION_GET));
    attributeDefinition definition{};
    definition.attributeMask = attributeMaskOf(me, fields);
    definition = mib::findAttribute(me, definition.attributeMask).value_or(definition);
    const auto bytes = mib::getAttribute(me, instance, definition, action);
    return bytes ? Json{{"result", 0}, {"bytes", toHex(*bytes)}} : Json{{"result", -1}};
}

Json setAttribute(const Json& request)
{
    const RequestFields fields(request, "set", {"class", "instance", "attribute", "bytes"});
    const OmciMe& me = classOf(fields);
    const auto instance = fields.get<unsigned short>("instance");
    auto bytes = fields.get<std::vector<unsigned char>>("bytes");
    attributeDefinition definition{};
    definition.attributeMask = attributeMaskOf(me, fields);
    definition = mib::findAttribute(me, definition.attributeMask).value_or(definition);
    const std::size_t longest = std::max<std::size_t>(definition.attributeSize, kSpareBytes);
    if (bytes.empty() || bytes.size() > longest) {
        throw BadRequest("set.bytes: the attribute takes " + std::to_string(definition.attributeSize) + " bytes, not " +
                         std::to_string(bytes.size()));
    }
    bytes.resize(definition.attributeSize + kSpareBytes);
    return {{"result", me.setAttribute(instance, &definition, bytes.data())}};
}

Json apply(const Json& request)
{
    const RequestFields fields(request, "apply", {"class", "instance"});
    const OmciMe& me = classOf(fields);
    return {{"result", me.applyConfigurationToHardwareForSet(fields.get<unsigned short>("instance"))}};
}

Json dump(const Json& request)
{
    const RequestFields fields(request, "dump", {"class", "instance", "mask"});
    const OmciMe& me = classOf(fields);
    const auto instance = fields.get<unsigned int>("instance", 0xFFFFFFFF);
    const auto mask = fields.get<unsigned short>("mask", 0xFFFF);
    return {{"result", toText(me.dumpME(instance, mask))}};
}

Json listInstances(const Json& request)
{
    requireTrue(request, "instances");
    Json result = Json::object();
    for (const OmciMe* me : mib::registeredClasses()) {
        result[std::to_string(me->getManagedEntityClassId())] = mib::instancesOf(*me);
    }
    return {{"result", result}};
}

Json showPicture(const Json& request)
{
    const RequestFields fields(request, "picture", {"class"});
    const auto classId = fields.get<unsigned short>("class");
    std::vector<StartupConfigManagedEntity> picture;
    OmciManagedEntityRegistrar::getInstance()->getConfigManagedEntityVector(picture);
    const auto record =
        std::find_if(picture.begin(), picture.end(), [classId](const auto& row) { return row.classId == classId; });
    if (record == picture.end()) {
        throw BadRequest("the registrar has no record of class " + std::to_string(classId));
    }
    return {{"result", values::to(*record)}};
}
Json listRows(const Json& request)
{
    const RequestFields fields(request, "rows", {"class", "instance", "attribute"});
    const OmciMe& me = classOf(fields);
    const auto instance = fields.get<unsigned short>("instance");
    const unsigned short mask = attributeMaskOf(me, fields);
    const auto definition = mib::findAttribute(me, mask);
    if (!definition || definition->isTableAttribute == 0) {
        throw BadRequest("rows.attribute: class " + std::to_string(me.getManagedEntityClassId()) +
                         " has no such table");
    }
    if (me.findManagedEntityInstance(instance) != 0) {
        throw BadRequest("class " + std::to_string(me.getManagedEntityClassId()) + " has no instance " +
                         std::to_string(instance));
    }
    Json rows = Json::array();
    while (const unsigned char* row = nrvk::getTableRow(me.getManagedEntityClassId(), instance, mask, rows.size())) {
        rows.push_back(toHex(row, definition->attributeSize));
    }
    return {{"result", rows}};
}
}  // namespace

void ControlRequests::addMibRequests()
{
    m_Requests["get"] = getAttribute;
    m_Requests["set"] = setAttribute;
    m_Requests["apply"] = apply;
    m_Requests["dump"] = dump;
    m_Requests["instances"] = listInstances;
    m_Requests["rows"] = listRows;
    m_Requests["picture"] = showPicture;
    m_Requests["create"] = [this](const Json& request) -> Json {
        const RequestFields fields(request, "create", {"class", "instance"});
        const auto instance = fields.get<unsigned short>("instance");
        return {{"result", createOwnInstance(m_Onu, fields.get<unsigned short>("class"), instance)}};
    };
    m_Requests["delete"] = [](const Json& request) -> Json {
        const RequestFields fields(request, "delete", {"class", "instance"});
        const auto instance = fields.get<unsigned short>("instance");
        return {{"result", deleteOwnInstance(fields.get<unsigned short>("class"), instance)}};
    };
    m_Requests["alarm"] = [this](const Json& request) -> Json {
        const RequestFields fields(request, "alarm", {"class", "instance", "number", "state"});
        const auto classId = fields.get<unsigned short>("class");
        const auto instance = fields.get<unsigned short>("instance");
        const auto number = fields.get<unsigned char>("number");
        if (!m_Onu.notifier().raiseAlarm(classId, instance, number, fields.get<bool>("state"))) {
            throw BadRequest("there is no alarm " + std::to_string(number) + " on managed entity " +
                             std::to_string(classId) + ", instance " + std::to_string(instance));
        }
        return {{"result", 0}};
    };
}
