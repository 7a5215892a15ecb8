#include "hardware/VlanReads.h"

#include "ExtendedVlanTaggingAccess.h"
#include "JsonValues.h"
#include "OmciMeExtendedVlanTaggingOperationConfigurationDataIf.h"

namespace {
using Tagging = OmciMeExtendedVlanTaggingOperationConfigurationDataIf;

/// G.988 9.3.13, association type.
constexpr unsigned char kOnBridgePort = 0;
constexpr unsigned char kOnPptpEthernetUni = 2;
constexpr unsigned char kOnIpHost = 3;
/// G.988 9.3.4, TP type of a bridge port.
constexpr unsigned char kTpTypeIpHost = 4;

/// The first entity with rules among those that are associated with the other entity.
const Tagging* findTagging(unsigned char associationType, unsigned short pointer)
{
    for (const Tagging* tagging = Tagging::getFirstManagedEntityInstance(); tagging != nullptr;
         tagging = Tagging::getNextManagedEntityInstance(tagging->getManagedEntityInstance())) {
        if (tagging->getAssociationType(OMCI_ACTION_GET) == associationType &&
            tagging->getAssociatedMePointer(OMCI_ACTION_GET) == pointer &&
            !nrvk::getTableOfReceivedFrames(*tagging).empty()) {
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
    readRules(written, findTagging(kOnPptpEthernetUni, uni.getManagedEntityInstance()));
}

void readVlanRules(HardwareCall& written, const OmciMeMacBridgePortConfigurationDataIf& port)
{
    const Tagging* tagging = findTagging(kOnBridgePort, port.getManagedEntityInstance());
    if (tagging == nullptr && port.getTpType(OMCI_ACTION_GET) == kTpTypeIpHost) {
        tagging = findTagging(kOnIpHost, port.getTpPointer(OMCI_ACTION_GET));
    }
    readRules(written, tagging);
}
