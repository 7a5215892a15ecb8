#include "ThresholdAlerts.h"

#include <algorithm>
#include <iterator>

#include "ont_omci_managed_entity/OmciMeEthernetFrameExtendedPM64BitIf.h"
#include "ont_omci_managed_entity/OmciMeEthernetFrameExtendedPMIf.h"
#include "ont_omci_managed_entity/OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf.h"
#include "ont_omci_managed_entity/OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf.h"
#include "ont_omci_managed_entity/OmciMeFecPMHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeGalEthernetPerformanceMonitoringHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeGemPortPMHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeTWDMChannelOMCIPMHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeTWDMChannelPHYLODSPMHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeTWDMChannelPLOAMPMHistoryDataPart1If.h"
#include "ont_omci_managed_entity/OmciMeTWDMChannelPLOAMPMHistoryDataPart2If.h"
#include "ont_omci_managed_entity/OmciMeTWDMChannelPLOAMPMHistoryDataPart3If.h"
#include "ont_omci_managed_entity/OmciMeTWDMChannelXGEMPMHistoryDataIf.h"
#include "ont_omci_managed_entity/OmciMeThresholdData1If.h"
#include "ont_omci_managed_entity/OmciMeThresholdData2If.h"
#include "ont_omci_managed_entity/OmciMeThresholdData64BitIf.h"
#include "ont_omci_managed_entity/attributeDefinition.h"

namespace omci {

namespace {

/// Counter, threshold value, alarm. Numbers are G.988's where it has the class.
constexpr ThresholdAlert kAlerts[] = {
    // GEM port PM (vendor's): lost packets.
    {267, 1, 1, 0},
    // GAL Ethernet PM: discarded frames.
    {276, 1, 1, 0},
    // FEC PM: corrected bytes, corrected and uncorrectable code words, FEC seconds. Total code words have none.
    {312, 1, 1, 0},
    {312, 2, 2, 1},
    {312, 3, 3, 2},
    {312, 5, 4, 4},
    // Ethernet frame PM downstream, upstream: drop events, CRC errored, undersize and oversize packets.
    {321, 1, 1, 0},
    {321, 6, 2, 1},
    {321, 7, 3, 2},
    {321, 8, 4, 3},
    {322, 1, 1, 0},
    {322, 6, 2, 1},
    {322, 7, 3, 2},
    {322, 8, 4, 3},
    // Ethernet frame extended PM, 32 and 64 bits: the same four.
    {334, 1, 1, 1},
    {334, 6, 2, 2},
    {334, 7, 3, 3},
    {334, 8, 4, 4},
    // GEM port network CTP PM: encryption key errors.
    {341, 5, 1, 1},
    {425, 1, 1, 1},
    {425, 6, 2, 2},
    {425, 7, 3, 3},
    {425, 8, 4, 4},
    // TWDM channel PHY/LODS PM: all but the total of received words.
    {65406, 2, 1, 1},
    {65406, 3, 2, 2},
    {65406, 4, 3, 3},
    {65406, 5, 4, 4},
    {65406, 6, 5, 5},
    {65406, 7, 6, 6},
    {65406, 8, 7, 7},
    {65406, 9, 8, 8},
    {65406, 10, 9, 9},
    {65406, 11, 10, 10},
    {65406, 12, 11, 11},
    {65406, 13, 12, 12},
    // TWDM channel XGEM PM: header HEC errors, words lost to them, encryption key errors.
    {65407, 4, 1, 1},
    {65407, 5, 2, 2},
    {65407, 6, 3, 3},
    // TWDM channel PLOAM PM: MIC errors; unsatisfied wavelength requests; power level parameter errors.
    {65408, 1, 1, 1},
    {65409, 5, 1, 1},
    {65410, 11, 1, 1},
    // TWDM channel OMCI PM: MIC errors.
    {65414, 3, 1, 1},
};

using Reader = std::optional<ThresholdSettings> (*)(std::uint16_t instance);

template <typename If, auto getter>
std::optional<ThresholdSettings> byPointer(std::uint16_t instance)
{
    const If* const entity = If::getManagedEntityInstance(instance);
    if (entity == nullptr) {
        return std::nullopt;
    }
    return ThresholdSettings{(entity->*getter)(OMCI_ACTION_GET), false, std::nullopt};
}

template <typename If, bool is64Bit>
std::optional<ThresholdSettings> byControlBlock(std::uint16_t instance)
{
    const If* const entity = If::getManagedEntityInstance(instance);
    if (entity == nullptr) {
        return std::nullopt;
    }
    const PmControlBlock block(entity->getControlBlock(OMCI_ACTION_GET));
    return ThresholdSettings{block.thresholdData(), is64Bit, block};
}

struct PmClass
{
    std::uint16_t classId;
    Reader read;
};

constexpr PmClass kClasses[] = {
    {267, &byPointer<OmciMeGemPortPMHistoryDataIf, &OmciMeGemPortPMHistoryDataIf::getThresholdData_1by2_Id>},
    {276, &byPointer<OmciMeGalEthernetPerformanceMonitoringHistoryDataIf,
                     &OmciMeGalEthernetPerformanceMonitoringHistoryDataIf::getThresholdData_1by2_Id>},
    {312, &byPointer<OmciMeFecPMHistoryDataIf, &OmciMeFecPMHistoryDataIf::getThresholdData_1_2_Id>},
    {321, &byPointer<OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf,
                     &OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf::getThresholdData_1by2_Id>},
    {322, &byPointer<OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf,
                     &OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf::getThresholdData_1by2_Id>},
    {334, &byControlBlock<OmciMeEthernetFrameExtendedPMIf, false>},
    {341, &byPointer<OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf,
                     &OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf::getThresholdData_1by2_Id>},
    {425, &byControlBlock<OmciMeEthernetFrameExtendedPM64BitIf, true>},
    {65406, &byPointer<OmciMeTWDMChannelPHYLODSPMHistoryDataIf,
                       &OmciMeTWDMChannelPHYLODSPMHistoryDataIf::getThresholdData_1_2_Id>},
    {65407,
     &byPointer<OmciMeTWDMChannelXGEMPMHistoryDataIf, &OmciMeTWDMChannelXGEMPMHistoryDataIf::getThresholdData_1_2_Id>},
    {65408, &byPointer<OmciMeTWDMChannelPLOAMPMHistoryDataPart1If,
                       &OmciMeTWDMChannelPLOAMPMHistoryDataPart1If::getThresholdData_1_2_Id>},
    {65409, &byPointer<OmciMeTWDMChannelPLOAMPMHistoryDataPart2If,
                       &OmciMeTWDMChannelPLOAMPMHistoryDataPart2If::getThresholdData_1_2_Id>},
    {65410, &byPointer<OmciMeTWDMChannelPLOAMPMHistoryDataPart3If,
                       &OmciMeTWDMChannelPLOAMPMHistoryDataPart3If::getThresholdData_1_2_Id>},
    {65414,
     &byPointer<OmciMeTWDMChannelOMCIPMHistoryDataIf, &OmciMeTWDMChannelOMCIPMHistoryDataIf::getThresholdData_1_2_Id>},
};

template <typename If, typename Number>
using ThresholdGetter = Number (If::*)(EnumOmciAction) const;

constexpr ThresholdGetter<OmciMeThresholdData1If, unsigned int> kThresholds1To7[] = {
    &OmciMeThresholdData1If::getThresholdValue_1, &OmciMeThresholdData1If::getThresholdValue_2,
    &OmciMeThresholdData1If::getThresholdValue_3, &OmciMeThresholdData1If::getThresholdValue_4,
    &OmciMeThresholdData1If::getThresholdValue_5, &OmciMeThresholdData1If::getThresholdValue_6,
    &OmciMeThresholdData1If::getThresholdValue_7,
};
constexpr ThresholdGetter<OmciMeThresholdData2If, unsigned int> kThresholds8To14[] = {
    &OmciMeThresholdData2If::getThresholdValue_8,  &OmciMeThresholdData2If::getThresholdValue_9,
    &OmciMeThresholdData2If::getThresholdValue_10, &OmciMeThresholdData2If::getThresholdValue_11,
    &OmciMeThresholdData2If::getThresholdValue_12, &OmciMeThresholdData2If::getThresholdValue_13,
    &OmciMeThresholdData2If::getThresholdValue_14,
};
constexpr ThresholdGetter<OmciMeThresholdData64BitIf, unsigned long long> kThresholds64Bit[] = {
    &OmciMeThresholdData64BitIf::getThresholdValue_1,  &OmciMeThresholdData64BitIf::getThresholdValue_2,
    &OmciMeThresholdData64BitIf::getThresholdValue_3,  &OmciMeThresholdData64BitIf::getThresholdValue_4,
    &OmciMeThresholdData64BitIf::getThresholdValue_5,  &OmciMeThresholdData64BitIf::getThresholdValue_6,
    &OmciMeThresholdData64BitIf::getThresholdValue_7,  &OmciMeThresholdData64BitIf::getThresholdValue_8,
    &OmciMeThresholdData64BitIf::getThresholdValue_9,  &OmciMeThresholdData64BitIf::getThresholdValue_10,
    &OmciMeThresholdData64BitIf::getThresholdValue_11, &OmciMeThresholdData64BitIf::getThresholdValue_12,
    &OmciMeThresholdData64BitIf::getThresholdValue_13, &OmciMeThresholdData64BitIf::getThresholdValue_14,
};

template <typename If, typename Number, std::size_t count>
std::uint64_t valueIn(std::uint16_t instance, const ThresholdGetter<If, Number> (&getters)[count], unsigned index)
{
    const If* const data = If::getManagedEntityInstance(instance);
    return data == nullptr || index >= count ? 0 : (data->*getters[index])(OMCI_ACTION_GET);
}

}  // namespace

std::vector<ThresholdAlert> thresholdAlertsOf(std::uint16_t classId)
{
    std::vector<ThresholdAlert> alerts;
    std::copy_if(std::begin(kAlerts), std::end(kAlerts), std::back_inserter(alerts),
                 [classId](const ThresholdAlert& alert) { return alert.classId == classId; });
    return alerts;
}

const std::vector<std::uint16_t>& classesWithThresholdAlerts()
{
    static const std::vector<std::uint16_t> classes = [] {
        std::vector<std::uint16_t> found;
        for (const PmClass& pmClass : kClasses) {
            found.push_back(pmClass.classId);
        }
        return found;
    }();
    return classes;
}

std::optional<ThresholdSettings> thresholdSettingsOf(std::uint16_t classId, std::uint16_t instance)
{
    const auto* const found = std::find_if(std::begin(kClasses), std::end(kClasses),
                                           [classId](const PmClass& row) { return row.classId == classId; });
    return found == std::end(kClasses) ? std::nullopt : found->read(instance);
}

std::optional<std::uint64_t> thresholdValue(const ThresholdSettings& settings, unsigned threshold)
{
    constexpr unsigned perEntity = static_cast<unsigned>(std::size(kThresholds1To7));
    if (settings.dataInstance == 0 || threshold == 0) {
        return std::nullopt;
    }
    const std::uint16_t instance = settings.dataInstance;
    const unsigned index = threshold - 1;
    const std::uint64_t value = settings.is64Bit    ? valueIn(instance, kThresholds64Bit, index)
                                : index < perEntity ? valueIn(instance, kThresholds1To7, index)
                                                    : valueIn(instance, kThresholds8To14, index - perEntity);
    return value == 0 ? std::nullopt : std::optional(value);
}

}  // namespace omci
