#include "OnuInstances.h"

#include <algorithm>
#include <iterator>

#include "OmciManagedEntityRegistrar.h"
#include "OmciMeDot1RateLimiterIf.h"
#include "OmciMeDot1agMEPIf.h"
#include "OmciMeDot1agMaintenanceAssociationIf.h"
#include "OmciMeEnergyConsumptionPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeEquipmentProtectionProfileIf.h"
#include "OmciMeEthernetFrameExtendedPM64BitIf.h"
#include "OmciMeEthernetFrameExtendedPMIf.h"
#include "OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf.h"
#include "OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf.h"
#include "OmciMeEthernetPerformanceMonitoringHistoryData2If.h"
#include "OmciMeEthernetPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeExtendedVlanTaggingOperationConfigurationDataIf.h"
#include "OmciMeFecPMHistoryDataIf.h"
#include "OmciMeFlexibleConfigurationStatusPortalPMHistoryDataIf.h"
#include "OmciMeGalEthernetPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeGalEthernetProfileIf.h"
#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeGemPortPMHistoryDataIf.h"
#include "OmciMeGeneralPurposeBufferIf.h"
#include "OmciMeGenericStatusPortalIf.h"
#include "OmciMeIpHostPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeIpHostPerformanceMonitoringHistoryDataPart2If.h"
#include "OmciMeMacBridgePerformanceMonitoringHistoryDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMeMacBridgePortFilterPreassignTableIf.h"
#include "OmciMeMacBridgePortPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeMacBridgeServiceProfileIf.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "OmciMeMulticastOperationsProfileIf.h"
#include "OmciMeMulticastSubscriberConfigInfoIf.h"
#include "OmciMeMulticastSubscriberMonitorIf.h"
#include "OmciMeOctetStringIf.h"
#include "OmciMeOnuOperationalPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeTWDMChannelOMCIPMHistoryDataIf.h"
#include "OmciMeTWDMChannelPHYLODSPMHistoryDataIf.h"
#include "OmciMeTWDMChannelPLOAMPMHistoryDataPart1If.h"
#include "OmciMeTWDMChannelPLOAMPMHistoryDataPart2If.h"
#include "OmciMeTWDMChannelPLOAMPMHistoryDataPart3If.h"
#include "OmciMeTWDMChannelTuningPMHistoryDataPart1If.h"
#include "OmciMeTWDMChannelTuningPMHistoryDataPart2If.h"
#include "OmciMeTWDMChannelTuningPMHistoryDataPart3If.h"
#include "OmciMeTWDMChannelXGEMPMHistoryDataIf.h"
#include "OmciMeTcpUdpPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeThresholdData1If.h"
#include "OmciMeThresholdData2If.h"
#include "OmciMeThresholdData64BitIf.h"
#include "OmciMeTrafficDescriptorIf.h"
#include "OmciMeVlanTaggingFilterDataIf.h"
#include "OmciMeWatchdogPMHistoryDataIf.h"

namespace {
struct InstanceOperations
{
    unsigned short classId;
    bool (*create)(unsigned short instance);
    bool (*remove)(unsigned short instance);
};

template <typename If>
constexpr InstanceOperations operationsOf(unsigned short classId)
{
    return {classId,
            [](unsigned short instance) { return If::createManagedEntityInstance(instance, false) != nullptr; },
            [](unsigned short instance) { return If::deleteManagedEntityInstance(instance, false); }};
}

/// The classes that the registrar does not make instances of.
constexpr InstanceOperations kOperations[] = {
    operationsOf<OmciMeEthernetPerformanceMonitoringHistoryDataIf>(24),
    operationsOf<OmciMeMacBridgeServiceProfileIf>(45),
    operationsOf<OmciMeMacBridgePortConfigurationDataIf>(47),
    operationsOf<OmciMeMacBridgePerformanceMonitoringHistoryDataIf>(51),
    operationsOf<OmciMeMacBridgePortPerformanceMonitoringHistoryDataIf>(52),
    operationsOf<OmciMeMacBridgePortFilterPreassignTableIf>(79),
    operationsOf<OmciMeVlanTaggingFilterDataIf>(84),
    operationsOf<OmciMeEthernetPerformanceMonitoringHistoryData2If>(89),
    operationsOf<OmciMeMapperServiceProfile802_1PIf>(130),
    operationsOf<OmciMeIpHostPerformanceMonitoringHistoryDataIf>(135),
    operationsOf<OmciMeEquipmentProtectionProfileIf>(159),
    operationsOf<OmciMeExtendedVlanTaggingOperationConfigurationDataIf>(171),
    operationsOf<OmciMeGemInterworkingTpIf>(266),
    operationsOf<OmciMeGemPortPMHistoryDataIf>(267),
    operationsOf<OmciMeGemPortNetworkCtpIf>(268),
    operationsOf<OmciMeGalEthernetProfileIf>(272),
    operationsOf<OmciMeThresholdData1If>(273),
    operationsOf<OmciMeThresholdData2If>(274),
    operationsOf<OmciMeGalEthernetPerformanceMonitoringHistoryDataIf>(276),
    operationsOf<OmciMeTrafficDescriptorIf>(280),
    operationsOf<OmciMeMulticastGemInterworkingTpIf>(281),
    operationsOf<OmciMeDot1RateLimiterIf>(298),
    operationsOf<OmciMeDot1agMaintenanceAssociationIf>(300),
    operationsOf<OmciMeDot1agMEPIf>(302),
    operationsOf<OmciMeOctetStringIf>(307),
    operationsOf<OmciMeGeneralPurposeBufferIf>(308),
    operationsOf<OmciMeMulticastOperationsProfileIf>(309),
    operationsOf<OmciMeMulticastSubscriberConfigInfoIf>(310),
    operationsOf<OmciMeMulticastSubscriberMonitorIf>(311),
    operationsOf<OmciMeFecPMHistoryDataIf>(312),
    operationsOf<OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf>(321),
    operationsOf<OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf>(322),
    operationsOf<OmciMeGenericStatusPortalIf>(330),
    operationsOf<OmciMeEthernetFrameExtendedPMIf>(334),
    operationsOf<OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf>(341),
    operationsOf<OmciMeTcpUdpPerformanceMonitoringHistoryDataIf>(342),
    operationsOf<OmciMeEnergyConsumptionPerformanceMonitoringHistoryDataIf>(343),
    operationsOf<OmciMeEthernetFrameExtendedPM64BitIf>(425),
    operationsOf<OmciMeThresholdData64BitIf>(426),
    operationsOf<OmciMeWatchdogPMHistoryDataIf>(65404),
    operationsOf<OmciMeTWDMChannelPHYLODSPMHistoryDataIf>(65406),
    operationsOf<OmciMeTWDMChannelXGEMPMHistoryDataIf>(65407),
    operationsOf<OmciMeTWDMChannelPLOAMPMHistoryDataPart1If>(65408),
    operationsOf<OmciMeTWDMChannelPLOAMPMHistoryDataPart2If>(65409),
    operationsOf<OmciMeTWDMChannelPLOAMPMHistoryDataPart3If>(65410),
    operationsOf<OmciMeTWDMChannelTuningPMHistoryDataPart1If>(65411),
    operationsOf<OmciMeTWDMChannelTuningPMHistoryDataPart2If>(65412),
    operationsOf<OmciMeTWDMChannelTuningPMHistoryDataPart3If>(65413),
    operationsOf<OmciMeTWDMChannelOMCIPMHistoryDataIf>(65414),
    operationsOf<OmciMeFlexibleConfigurationStatusPortalPMHistoryDataIf>(65421),
    operationsOf<OmciMeIpHostPerformanceMonitoringHistoryDataPart2If>(65423),
    operationsOf<OmciMeOnuOperationalPerformanceMonitoringHistoryDataIf>(65424),
};

const InstanceOperations* findOperations(unsigned short classId)
{
    const auto found = std::find_if(std::begin(kOperations), std::end(kOperations),
                                    [classId](const auto& operations) { return operations.classId == classId; });
    return found == std::end(kOperations) ? nullptr : found;
}
}  // namespace

bool createInstanceOfOnu(unsigned short classId, unsigned short instance)
{
    const InstanceOperations* operations = findOperations(classId);
    return operations != nullptr
               ? operations->create(instance)
               : OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(classId, instance) == 0;
}

bool deleteInstanceOfOnu(unsigned short classId, unsigned short instance)
{
    const InstanceOperations* operations = findOperations(classId);
    return operations != nullptr
               ? operations->remove(instance)
               : OmciManagedEntityRegistrar::getInstance()->deleteManagedEntityInstance(classId, instance) == 0;
}
