#include "hardware/VlanReads.h"

#include "ExtendedVlanTaggingAccess.h"
#include "JsonValues.h"
#include "services/ServiceRecords.h"

namespace {
using services::Tagging;

/// The first entity with rules.
const Tagging* findRules(services::AssociationType associationType, unsigned short pointer)
{
    for (const Tagging* tagging : services::findTaggings(associationType, pointer)) {
        if (!nrvk::getTableOfReceivedFrames(*tagging).empty()) {
            return tagging;
        }
    }
    return nullptr;
}

void readRules(HardwareCall& written, const Tagging* tagging)
{
    if (tagging == nullptr) {
        return;
    }
    written.setRead("rows", values::to(nrvk::getTableOfReceivedFrames(*tagging)));
    RecVlanTagFilData newest{};
    nrvk::getRecVlanTagFilData(*tagging, &newest);
    written.setRead("newest", values::to(newest));
    ExtendedVlanTaggingRuleContainer rule{};
    const bool isFilled = nrvk::parseReceivedFrameVlanTaggingOperationTable(*tagging, &rule) == 1;
    written.setRead("rule", isFilled ? values::to(rule) : Json(nullptr));
    written.setRead("evc", nrvk::sendEvcAndEvcMapToTmb(*tagging, newest, true));
}
}  // namespace

void readVlanRules(HardwareCall& written, const OmciMePptpEthernetUniIf& uni)
{
    readRules(written, findRules(services::ON_UNI, uni.getManagedEntityInstance()));
}

void readVlanRules(HardwareCall& written, const OmciMeMacBridgePortConfigurationDataIf& port)
{
    const Tagging* tagging = findRules(services::ON_BRIDGE_PORT, port.getManagedEntityInstance());
    if (tagging == nullptr && port.getTpType(OMCI_ACTION_GET) == services::TP_TYPE_IP_HOST) {
        tagging = findRules(services::ON_IP_HOST, port.getTpPointer(OMCI_ACTION_GET));
    }
    readRules(written, tagging);
}
