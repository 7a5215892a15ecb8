#include "implExtended/OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended.h"

#include <cstring>

#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/DataPath.h"
#include "implExtended/EvcMapping.h"
#include "implExtended/VlanRuleClassification.h"
#include "implExtended/VlanTaggingRow.h"

namespace {

/// Association types (G.988 9.3.13) that the library acts on.
constexpr unsigned char kAssociatedBridgePort = 0;
constexpr unsigned char kAssociatedEthernetUni = 2;
constexpr unsigned char kAssociatedIpHost = 3;

/// The entity of that id, with the log line of all the places that cannot do without it.
template <typename If>
If* findOrLog(unsigned short instance)
{
    If* found = If::getManagedEntityInstance(instance);
    if (found == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
    }
    return found;
}

}  // namespace

using BasicImpl = OmciMeExtendedVlanTaggingOperationConfigurationDataImpl;

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::setReceivedFrameVlanTaggingOperationTable(
    const unsigned char* row)
{
    BasicImpl::setReceivedFrameVlanTaggingOperationTable(row);
    parseInputOperationTable(row);
    if (nrvk::isUnsetFrame(m_CurrentFrame)) {
        NRVK_LOG(6, "Unset Frame has been arrived. No. of rules existing (%u)", m_TableOfReceivedFrames.ruleCount());
        if (deleteEntryFromTableOfReceivedFrames(m_CurrentFrame) == 0) {
            BasicImpl::setReceivedFrameVlanTaggingOperationTable(getDefaultReceivedFrameVlanTaggingOperationTable());
            return 0;
        }
    } else {
        m_TableOfReceivedFrames.append(m_CurrentFrame);
    }
    // Deliberate: an all-zero row counts as a rule, but the hardware layer is not told.
    return holdsDefaultRow() ? 0 : provisionAssociatedEntity();
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::setAssociatedMePointer(unsigned short value)
{
    NRVK_LOG(6, "Associated ME pointer(%hu)", value);
    BasicImpl::setAssociatedMePointer(value);
    return provisionBridgePortOnly();
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::setInputTpid(unsigned short value)
{
    NRVK_LOG(6, "Input TPID(%hu)", value);
    BasicImpl::setInputTpid(value);
    return provisionBridgePortOnly();
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    if (m_AssociationType == kAssociatedEthernetUni) {
        auto* uni = findOrLog<OmciMePptpEthernetUniIf>(m_AssociatedMePointer);
        if (uni == nullptr) {
            return -1;
        }
        if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
            layer->removeUniService(uni);
        }
    }
    deleteAllEntriesFromTableOfReceivedFrames();
    return 0;
}

void OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::parseInputOperationTable(const unsigned char* row)
{
    m_CurrentFrame = nrvk::decodeVlanTaggingRow(row);
    logCurrentFrame();
}

void OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::logCurrentFrame() const
{
    const RecVlanTagFilData& f = m_CurrentFrame;
    NRVK_LOG(6, "ExtVLAN received frame after processing. FOP(%u), FOV(%u), FOT(%u), pad1(%u)", f.FOP, f.FOV, f.FOT,
             f.pad1);
    NRVK_LOG(6, "    FIP(%u), FIV(%u), FIT(%u), pad2(%u), FET(%u)", f.FIP, f.FIV, f.FIT, f.pad2, f.FET);
    NRVK_LOG(6, "    TTR(%u), pad3(%u), TOP(%u), TOV(%u), TOT(%u)", f.TTR, f.pad3, f.TOP, f.TOV, f.TOT);
    NRVK_LOG(6, "    pad4(%u), TIP(%u), TIV(%u), TIT(%u)", f.pad4, f.TIP, f.TIV, f.TIT);
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::deleteEntryFromTableOfReceivedFrames(
    RecVlanTagFilData frame)
{
    return m_TableOfReceivedFrames.removeFirstWithFilterOf(frame) ? 1 : 0;
}

bool OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::deleteAllEntriesFromTableOfReceivedFrames()
{
    if (nrvk::hardwareOrLog() == nullptr) {
        return false;
    }
    m_TableOfReceivedFrames.clear();
    return true;
}

void OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::getRecVlanTagFilData(RecVlanTagFilData* out) const
{
    const RecVlanTagFilData* newest = m_TableOfReceivedFrames.newest();
    if (out == nullptr || newest == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return;
    }
    *out = *newest;
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::parseReceivedFrameVlanTaggingOperationTable(
    ExtendedVlanTaggingRuleContainer* container) const
{
    if (container == nullptr || holdsDefaultRow()) {
        NRVK_LOG(3, "RecVlanTagFilData is NULL");
        return 0;
    }
    container->inputTpid = getInputTpid(OMCI_ACTION_GET);
    container->outputTpid = getOutputTpid(OMCI_ACTION_GET);
    container->downstreamMode = getDownstreamMode(OMCI_ACTION_GET);
    nrvk::dscpMappingText(getDscpToPbitMapping(OMCI_ACTION_GET), container->dscpToPbitMapping);
    nrvk::classifyVlanRule(m_CurrentFrame, *container);
    return 1;
}

unsigned int
OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::sendEvcAndEvcMapToTmb(const RecVlanTagFilData& frame,
                                                                                       bool request) const
{
    OmciHardwareIfc* layer = nrvk::hardwareOrLog();
    if (layer == nullptr) {
        return 0;
    }
    const auto evc = nrvk::evcAndEvcMapOf(frame);
    if (!evc) {
        return 0;
    }
    return layer->provisionEvcAndEvcMap(evc->evcName, evc->evcVlan, evc->evcMapName, evc->matchVlan, evc->priority,
                                        evc->noTagRemoved, request);
}

bool OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::holdsDefaultRow() const
{
    return std::memcmp(m_ReceivedFrameVlanTaggingOperationTable.data(),
                       getDefaultReceivedFrameVlanTaggingOperationTable(), nrvk::kVlanTaggingRowBytes) == 0;
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::provisionAssociatedEntity()
{
    switch (m_AssociationType) {
    case kAssociatedEthernetUni:
        return provisionEthernetUni();
    case kAssociatedBridgePort:
        return provisionBridgePort();
    case kAssociatedIpHost:
        return provisionIpHost();
    default:
        return 0;
    }
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::provisionEthernetUni()
{
    auto* uni = findOrLog<OmciMePptpEthernetUniIf>(m_AssociatedMePointer);
    if (uni == nullptr) {
        return -1;
    }
    // The first rule replaces the untagged service of the port; so does the last one that an unset frame leaves.
    if (m_TableOfReceivedFrames.ruleCount() == 1) {
        if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
            layer->removeUniService(uni);
        }
    }
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->provisionUniService(uni);
    }
    return 0;
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::provisionBridgePort()
{
    auto* port = findOrLog<OmciMeMacBridgePortConfigurationDataIf>(m_AssociatedMePointer);
    if (port == nullptr) {
        return -1;
    }
    switch (port->getTpType(OMCI_ACTION_GET)) {
    case nrvk::TP_TYPE_IP_HOST:
    case nrvk::TP_TYPE_ETHERNET_UNI:
        nrvk::rebuildBridgePort(*port);
        break;
    case nrvk::TP_TYPE_MULTICAST_GEM_INTERWORKING_TP:
        nrvk::provisionBridgePort(*port);
        break;
    default:
        break;
    }
    return 0;
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::provisionIpHost()
{
    const auto* ipHost = findOrLog<OmciMeIpHostConfigDataIf>(m_AssociatedMePointer);
    if (ipHost == nullptr) {
        return -1;
    }
    auto* port = nrvk::findBridgePort(nrvk::BridgePortKey::ipHost, ipHost->getManagedEntityInstance());
    if (port != nullptr) {
        nrvk::rebuildBridgePort(*port);
    }
    return 0;
}

int OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended::provisionBridgePortOnly()
{
    if (m_AssociationType != kAssociatedBridgePort) {
        return 0;
    }
    auto* port = findOrLog<OmciMeMacBridgePortConfigurationDataIf>(m_AssociatedMePointer);
    if (port == nullptr) {
        return -1;
    }
    if (port->getTpType(OMCI_ACTION_GET) != nrvk::TP_TYPE_IP_HOST) {
        nrvk::provisionBridgePort(*port);
    }
    return 0;
}
