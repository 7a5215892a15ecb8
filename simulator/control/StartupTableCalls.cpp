// The statics of the start-up table: instance numbers by index, and the edits of its texts.
#include <algorithm>
#include <cstring>
#include <iterator>

#include "control/CallTable.h"

using Core = OmciManagedEntitiesCore;
using calls::callOf;

namespace {
using UpdateFunction = DefaultConfigManagedEntity::UpdateFunction;

/// A text of the table, up to the zeros that fill it.
std::string textOf(const unsigned char (&text)[26])
{
    std::size_t length = sizeof text;
    while (length != 0 && text[length - 1] == 0) {
        --length;
    }
    return toText(std::string(reinterpret_cast<const char*>(text), length));
}

/// Runs the edit on a copy of the texts of the row that it belongs to, so that the table itself stays.
Json runUpdate(UpdateFunction update, unsigned char index, const std::string& factoryFile)
{
    DefaultConfigManagedEntity::AttributeValues texts{};
    const auto row = std::find_if(
        std::begin(Core::defaultConfigManagedEntity), std::end(Core::defaultConfigManagedEntity),
        [update](const DefaultConfigManagedEntity& candidate) { return candidate.updateFunction == update; });
    if (row != std::end(Core::defaultConfigManagedEntity)) {
        std::memcpy(texts, row->attributeValues, sizeof texts);
    }
    update(index, texts, factoryFile);
    Json out = Json::array();
    for (const auto& text : texts) {
        out.push_back(textOf(text));
    }
    return {{"result", 0}, {"out", out}};
}

/// Arguments: the index, and the factory file where it is another than the one in force.
calls::Call callOfUpdate(UpdateFunction update)
{
    return [update](const Json& arguments) {
        if (!arguments.is_array() || arguments.empty() || arguments.size() > 2) {
            throw BadRequest("takes an index, and a factory file if need be");
        }
        unsigned char index = 0;
        values::from(arguments[0], index, "argument 1");
        std::string factoryFile = Core::m_FactoryConfigurationFile;
        if (arguments.size() == 2) {
            values::from(arguments[1], factoryFile, "argument 2");
        }
        return runUpdate(update, index, factoryFile);
    };
}

struct InstanceFunctionName
{
    const char* name;
    DefaultConfigManagedEntity::InstanceFunction function;
};
constexpr InstanceFunctionName kInstanceFunctions[] = {
    {"instanceOltG", &Core::instanceOltG},
    {"instanceOntSystem", &Core::instanceOntSystem},
    {"instanceOntFeature", &Core::instanceOntFeature},
    {"instanceOnuG", &Core::instanceOnuG},
    {"instanceOnu2G", &Core::instanceOnu2G},
    {"instanceOnuData", &Core::instanceOnuData},
    {"instanceOnuRemoteDebug", &Core::instanceOnuRemoteDebug},
    {"instanceEnhancedSecurityControl", &Core::instanceEnhancedSecurityControl},
    {"instancePowerShedding", &Core::instancePowerShedding},
    {"instanceOnuDynamicPowerManagement", &Core::instanceOnuDynamicPowerManagement},
    {"instanceIpHostConfigData", &Core::instanceIpHostConfigData},
    {"instanceVoipConfigData", &Core::instanceVoipConfigData},
    {"instanceSoftwareImage", &Core::instanceSoftwareImage},
    {"instanceTCont", &Core::instanceTCont},
    {"instanceCardHolder", &Core::instanceCardHolder},
    {"instanceCircuitPack", &Core::instanceCircuitPack},
    {"instancePptpEthernet", &Core::instancePptpEthernet},
    {"instanceUniG", &Core::instanceUniG},
    {"instanceVEIP", &Core::instanceVEIP},
    {"instancePptpPotsUni", &Core::instancePptpPotsUni},
    {"instanceVoipLineStatus", &Core::instanceVoipLineStatus},
    {"instanceAniG", &Core::instanceAniG},
    {"instancePptpVideo", &Core::instancePptpVideo},
    {"instancePptpVideoAni", &Core::instancePptpVideoAni},
    {"instanceTWDMChannel", &Core::instanceTWDMChannel},
    {"instanceTWDMSystemProfile", &Core::instanceTWDMSystemProfile},
    {"instanceTrafficScheduler", &Core::instanceTrafficScheduler},
    {"instancePriorityQueue", &Core::instancePriorityQueue},
    {"instanceFlexibleConfigurationStatusPortal", &Core::instanceFlexibleConfigurationStatusPortal},
};

struct UpdateFunctionName
{
    const char* name;
    UpdateFunction function;
};
constexpr UpdateFunctionName kUpdateFunctions[] = {
    {"updateAniG", &Core::updateAniG},
    {"updateCardHolder", &Core::updateCardHolder},
    {"updateCircuitPack", &Core::updateCircuitPack},
    {"updateOnuG", &Core::updateOnuG},
    {"updateOnu2G", &Core::updateOnu2G},
    {"updatePptpEthernet", &Core::updatePptpEthernet},
    {"updatePriorityQueue", &Core::updatePriorityQueue},
    {"updateTrafficScheduler", &Core::updateTrafficScheduler},
    {"updateFlexibleConfigurationStatusPortal", &Core::updateFlexibleConfigurationStatusPortal},
    {"updateVerizonOpenOmci", &Core::updateVerizonOpenOmci},
    {"updatePptpVideo", &Core::updatePptpVideo},
    {"updatePptpVideoAni", &Core::updatePptpVideoAni},
    {"updateSoftwareImage", &Core::updateSoftwareImage},
};
}  // namespace

void CallTable::addStartupTable()
{
    for (const InstanceFunctionName& entry : kInstanceFunctions) {
        m_Calls[entry.name] = callOf(entry.function);
    }
    for (const UpdateFunctionName& entry : kUpdateFunctions) {
        m_Calls[entry.name] = callOfUpdate(entry.function);
    }
}
