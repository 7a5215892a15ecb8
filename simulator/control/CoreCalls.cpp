// The operations of OmciManagedEntitiesCore: start-up, status reports and counter feeds.
#include <algorithm>
#include <array>
#include <cstring>

#include "MacAddress.h"
#include "Onu.h"
#include "control/CallTable.h"

using Core = OmciManagedEntitiesCore;
using calls::callOf;

namespace {
/// Six raw bytes behind a char pointer: as a MAC address in text, or the six characters themselves.
std::array<char, 7> rawMacAddress(const std::string& text)
{
    const auto address = parseMacAddress(text);
    if (!address && text.size() != 6) {
        throw BadRequest("\"" + text + "\" is not a MAC address of 6 bytes");
    }
    std::array<char, 7> raw{};
    if (address) {
        std::memcpy(raw.data(), address->data(), address->size());
    } else {
        std::memcpy(raw.data(), text.data(), text.size());
    }
    return raw;
}

int updateBoardSpecificParameters(Core& core, std::string serialNumber, std::string version,
                                  const std::string& macAddress)
{
    std::array<char, 7> raw = rawMacAddress(macAddress);
    return core.updateBoardSpecificParameters(serialNumber.data(), version.data(), raw.data());
}

std::vector<unsigned char> incrementMacAddress(Core& core, const std::string& mac, const std::string& scratch,
                                               int increment)
{
    const std::string raw = core.incrementMacAddress(mac, scratch, increment);
    return {raw.begin(), raw.end()};
}
}  // namespace

namespace calls {
void Argument<DefaultConfigManagedEntity>::read(const Json& json, const std::string& what)
{
    unsigned short classId = 0;
    values::from(json, classId, what);
    const auto found =
        std::find_if(std::begin(Core::defaultConfigManagedEntity), std::end(Core::defaultConfigManagedEntity),
                     [classId](const DefaultConfigManagedEntity& row) { return row.classId == classId; });
    if (found == std::end(Core::defaultConfigManagedEntity)) {
        throw BadRequest(what + ": the start-up table has no class " + std::to_string(classId));
    }
    m_Row = &*found;
}
}  // namespace calls

void CallTable::addStartup(Onu& onu)
{
    const auto core = [&onu]() -> Core& { return onu.core(); };
    m_Calls["setBootInfoConfigurationFile"] = callOf(core, &Core::setBootInfoConfigurationFile);
    m_Calls["setFactoryConfigurationFile"] = callOf(core, &Core::setFactoryConfigurationFile);
    m_Calls["setSoftwareVersionConfigurationFile"] = callOf(core, &Core::setSoftwareVersionConfigurationFile);
    m_Calls["init"] = callOf(core, &Core::init);
    m_Calls["getDefaultConfigManagedEntity"] = callOf(core, &Core::getDefaultConfigManagedEntity);
    m_Calls["getManagedEntitiesCore"] = callOf(core, &Core::getManagedEntitiesCore);
    m_Calls["getDefaultConfigManagedEntitySize"] = callOf(core, &Core::getDefaultConfigManagedEntitySize);
    m_Calls["buildAttributeValueMap"] = callOf(core, &Core::buildAttributeValueMap);
    m_Calls["clearOmciManagedEntitiesAndInstances"] = callOf(core, &Core::clearOmciManagedEntitiesAndInstances);
    m_Calls["findAndUpdate"] = callOf(core, &Core::findAndUpdate);
    m_Calls["updateOnuG_PartNumber"] = callOf(core, &Core::updateOnuG_PartNumber);
    m_Calls["updatingBoardParams"] = callOf(core, &Core::updatingBoardParams);
    m_Calls["updateBoardSpecificParameters"] = callOf(std::function<int(std::string, std::string, const std::string&)>(
        [core](std::string serialNumber, std::string version, const std::string& macAddress) {
            return updateBoardSpecificParameters(core(), std::move(serialNumber), std::move(version), macAddress);
        }));
    m_Calls["isCodePoint49ReportingRequired"] = callOf(&Core::isCodePoint49ReportingRequired);
    m_Calls["incrementMacAddress"] =
        callOf(std::function<std::vector<unsigned char>(const std::string&, const std::string&, int)>(
            [core](const std::string& mac, const std::string& scratch, int increment) {
                return incrementMacAddress(core(), mac, scratch, increment);
            }));
    m_Calls["updateOnuGME"] = callOf(core, &Core::updateOnuGME);
    m_Calls["updateOnu2GME"] = callOf(core, &Core::updateOnu2GME);
    m_Calls["updateIpHostConfigDataMEs"] = callOf(core, &Core::updateIpHostConfigDataMEs);
    m_Calls["updateSoftwareImageMEs"] = callOf(core, &Core::updateSoftwareImageMEs);
    m_Calls["buildCommitCommands"] = callOf(core, &Core::buildCommitCommands);
}

void CallTable::addStatusReports(Onu& onu)
{
    const auto core = [&onu]() -> Core& { return onu.core(); };
    // Through the hardware layer, so that what is read live agrees with what is reported.
    m_Calls["updatePptpEthernetUniMEOperStateSpeedMode"] =
        callOf(std::function<int(unsigned short, unsigned char, unsigned short, unsigned char)>(
            [&onu](unsigned short instance, unsigned char operationalState, unsigned short speed, unsigned char mode) {
                return onu.hardware().reportLink(instance, {operationalState, speed, mode});
            }));
    m_Calls["updatePptpEthernetUniMESensedTypeAndMaxFrameSize"] =
        callOf(core, &Core::updatePptpEthernetUniMESensedTypeAndMaxFrameSize);
    m_Calls["updateVoipLineStatus"] = callOf(core, &Core::updateVoipLineStatus);
    m_Calls["updatePptpPotsUniAttributes"] = callOf(core, &Core::updatePptpPotsUniAttributes);
    m_Calls["updatePptpPotsUniCallAttributes"] = callOf(core, &Core::updatePptpPotsUniCallAttributes);
    m_Calls["updateVoipConfigData"] = callOf(core, &Core::updateVoipConfigData);
    m_Calls["updateFlexibleConfigurationStatusPortalOperState"] =
        callOf(core, &Core::updateFlexibleConfigurationStatusPortalOperState);
    m_Calls["updateTWDMUpstreamWaveLength"] = callOf(core, &Core::updateTWDMUpstreamWaveLength);
    m_Calls["updateTWDMDownstreamWaveLength"] = callOf(core, &Core::updateTWDMDownstreamWaveLength);
    m_Calls["updateTwdmChannel"] = callOf(core, &Core::updateTwdmChannel);
    m_Calls["updateIpHostConfigDataMEs_CurrentIpAddress"] =
        callOf(core, &Core::updateIpHostConfigDataMEs_CurrentIpAddress);
    m_Calls["swapSubtendedHostInstanceId"] = callOf(core, &Core::swapSubtendedHostInstanceId);
    m_Calls["updateAniGOpticalSignalLevel"] = callOf(core, &Core::updateAniGOpticalSignalLevel);
    m_Calls["updateAniGTransmitOpticalLevel"] = callOf(core, &Core::updateAniGTransmitOpticalLevel);
}

void CallTable::addCounterFeeds(Onu& onu)
{
    const auto core = [&onu]() -> Core& { return onu.core(); };
    m_Calls["updateEthernetFrameExtendedPM"] = callOf(core, &Core::updateEthernetFrameExtendedPM);
    m_Calls["updateEthernetFramePM"] = callOf(core, &Core::updateEthernetFramePM);
    m_Calls["updateEthernetFramePMMangedEntity"] = callOf(core, &Core::updateEthernetFramePMMangedEntity);
    m_Calls["updateVeipExtendedPM"] = callOf(core, &Core::updateVeipExtendedPM);
    m_Calls["castToCounter32"] = callOf(core, &Core::castToCounter32);
    m_Calls["updateGemPortNetworkCtpPM"] = callOf(core, &Core::updateGemPortNetworkCtpPM);
    m_Calls["updateGalEthPmHistData"] = callOf(core, &Core::updateGalEthPmHistData);
    m_Calls["updateTwdmFecStats"] = callOf(core, &Core::updateTwdmFecStats);
    m_Calls["updateTwdmOmciStats"] = callOf(core, &Core::updateTwdmOmciStats);
    m_Calls["updateTwdmPhyLodsStats"] = callOf(core, &Core::updateTwdmPhyLodsStats);
    m_Calls["updateTwdmPloamStats"] = callOf(core, &Core::updateTwdmPloamStats);
    m_Calls["updateTwdmTuningStats"] = callOf(core, &Core::updateTwdmTuningStats);
    m_Calls["updateTwdmXgemStats"] = callOf(core, &Core::updateTwdmXgemStats);
}
