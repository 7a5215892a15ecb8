#include "PmTest.h"

void PmTest::record()
{
    using U16 = unsigned short;
    using U32 = unsigned int;
    const auto onAction = [this](auto&& call, const char* operation) {
        call.WillByDefault(recorder<EnumOmciAction, U16>(operation));
    };
    onAction(ON_CALL(hardware, refreshTwdmChannel), "refreshTwdmChannel");
    onAction(ON_CALL(hardware, refreshTwdmOmciPm), "refreshTwdmOmciPm");
    onAction(ON_CALL(hardware, refreshTwdmPhyLodsPm), "refreshTwdmPhyLodsPm");
    onAction(ON_CALL(hardware, refreshTwdmPloamPm), "refreshTwdmPloamPm");
    onAction(ON_CALL(hardware, refreshTwdmTuningPm), "refreshTwdmTuningPm");
    onAction(ON_CALL(hardware, refreshTwdmXgemPm), "refreshTwdmXgemPm");
    onAction(ON_CALL(hardware, refreshGalEthernetPm), "refreshGalEthernetPm");
    ON_CALL(hardware, createPmInstance).WillByDefault(recorder<U16, U16>("createPmInstance"));
    ON_CALL(hardware, deletePmInstance).WillByDefault(recorder<U16, U16>("deletePmInstance"));
    ON_CALL(hardware, resetFecCounters).WillByDefault(recorder<U16, U32>("resetFecCounters"));
    ON_CALL(hardware, refreshFecCounters).WillByDefault(recorder<U16, U32>("refreshFecCounters"));
    ON_CALL(hardware, refreshGemPortCounters).WillByDefault(recorder<U16, U16, U32>("refreshGemPortCounters"));
    ON_CALL(hardware, clearEthernetFrameExtendedPmCounters)
        .WillByDefault(recorder<U16, U32>("clearEthernetFrameExtendedPmCounters"));
    ON_CALL(hardware, refreshEthernetFrameCounters)
        .WillByDefault(recorder<U16, U16, U32, U16, U16>("refreshEthernetFrameCounters"));
    ON_CALL(hardware, refreshEthernetFrameCounters64)
        .WillByDefault(recorder<U16, U16, U32, U16, U16>("refreshEthernetFrameCounters64"));
    ON_CALL(hardware, setTwdmChannelPartitionIndex)
        .WillByDefault(recorder<U16, unsigned char>("setTwdmChannelPartitionIndex"));
    ON_CALL(hardware, setTwdmChannelPartitionWaiverTimer)
        .WillByDefault(recorder<U16, U32>("setTwdmChannelPartitionWaiverTimer"));
    ON_CALL(hardware, setTwdmLodsReinitializationTimer)
        .WillByDefault(recorder<U16, U32>("setTwdmLodsReinitializationTimer"));
    ON_CALL(hardware, setTwdmLodsProtectionTimer).WillByDefault(recorder<U16, U32>("setTwdmLodsProtectionTimer"));
    ON_CALL(hardware, setTwdmDownstreamTuningTimer).WillByDefault(recorder<U16, U32>("setTwdmDownstreamTuningTimer"));
    ON_CALL(hardware, setTwdmUpstreamTuningTimer).WillByDefault(recorder<U16, U32>("setTwdmUpstreamTuningTimer"));
    ON_CALL(hardware, applyTwdmSystemProfile).WillByDefault([this](TwdmSystemProfile profile) {
        calls.push_back(callText("applyTwdmSystemProfile", profile.ChannelPartitionIndex,
                                 profile.ChannelPartitionWaiverTimer, profile.LodsReinitializationTimer,
                                 profile.LodsProtectionTimer, profile.DownstreamTuningTimer,
                                 profile.UpstreamTuningTimer));
        return -1;
    });
}
