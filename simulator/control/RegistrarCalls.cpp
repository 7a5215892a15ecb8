// The operations of OmciManagedEntityRegistrar.
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeManager.h"
#include "control/CallTable.h"

using Registrar = OmciManagedEntityRegistrar;
using calls::callOf;

namespace {
Registrar& registrar()
{
    return *Registrar::getInstance();
}

template <typename T>
calls::Call updateOf()
{
    return callOf(&registrar, &Registrar::updateManagedEntity<T>);
}

/// Without a type in its name: a text and a truth value speak for themselves, a number is as wide as its attribute.
Json updateByValue(const CallTable& table, const Json& arguments)
{
    if (!arguments.is_array() || arguments.size() != 4) {
        throw BadRequest("takes class, instance, attribute mask and value");
    }
    if (arguments[3].is_string()) {
        return table.run("updateManagedEntity<std::string>", arguments);
    }
    if (arguments[3].is_boolean()) {
        return table.run("updateManagedEntity<bool>", arguments);
    }
    unsigned short classId = 0;
    unsigned short attributeMask = 0;
    values::from(arguments[0], classId, "argument 1");
    values::from(arguments[2], attributeMask, "argument 3");
    unsigned char size = 0;
    if (OmciMeManager::getInstance()->getAttributeSize(classId, attributeMask, &size) != 0) {
        throw BadRequest("class " + std::to_string(classId) + " has no such attribute; name the type of the value");
    }
    const char* type = size == 1   ? "unsigned char"
                       : size == 2 ? "unsigned short"
                       : size <= 4 ? "unsigned int"
                                   : "unsigned long long";
    return table.run(std::string("updateManagedEntity<") + type + ">", arguments);
}
}  // namespace

void CallTable::addRegistrar()
{
    m_Calls["setSupportedManagedEntities"] = callOf(&registrar, &Registrar::setSupportedManagedEntities);
    m_Calls["getConfigManagedEntityVector"] = callOf(&registrar, &Registrar::getConfigManagedEntityVector);
    m_Calls["registerManagedEntity"] = callOf(&registrar, &Registrar::registerManagedEntity);
    m_Calls["unregisterManagedEntity"] = callOf(&registrar, &Registrar::unregisterManagedEntity);
    m_Calls["createManagedEntityInstance"] = callOf(&registrar, &Registrar::createManagedEntityInstance);
    m_Calls["deleteManagedEntityInstance"] = callOf(&registrar, &Registrar::deleteManagedEntityInstance);
    m_Calls["setManagedEntityAttribute"] = callOf(&registrar, &Registrar::setManagedEntityAttribute);
    m_Calls["registerSupportedManagedEntities"] = callOf(&registrar, &Registrar::registerSupportedManagedEntities);
    m_Calls["unregisterSupportedManagedEntitiesAndInstances"] =
        callOf(&registrar, &Registrar::unregisterSupportedManagedEntitiesAndInstances);
    m_Calls["initializeSupportedManagedEntitiesAndInstances"] =
        callOf(&registrar, &Registrar::initializeSupportedManagedEntitiesAndInstances);
    m_Calls["addManagedEntityInstance"] = callOf(&registrar, &Registrar::addManagedEntityInstance);
    m_Calls["updateSupportedManagedEntityAndInstance"] =
        callOf(&registrar, &Registrar::updateSupportedManagedEntityAndInstance);
    m_Calls["swapManagedEntityInstanceId"] = callOf(&registrar, &Registrar::swapManagedEntityInstanceId);
    m_Calls["updateManagedEntity<unsigned char>"] = updateOf<unsigned char>();
    m_Calls["updateManagedEntity<unsigned short>"] = updateOf<unsigned short>();
    m_Calls["updateManagedEntity<unsigned int>"] = updateOf<unsigned int>();
    m_Calls["updateManagedEntity<unsigned long long>"] = updateOf<unsigned long long>();
    m_Calls["updateManagedEntity<bool>"] = updateOf<bool>();
    m_Calls["updateManagedEntity<std::string>"] = updateOf<std::string>();
    m_Calls["updateManagedEntity"] = [this](const Json& arguments) { return updateByValue(*this, arguments); };
}
