#ifndef SIMULATOR_RECORDS_H
#define SIMULATOR_RECORDS_H

#include "BoardSpecificConfig.h"
#include "CounterRecords.h"
#include "StatusRecords.h"
#include "VlanRecords.h"

/// The fields of each record that crosses the library's boundary, in order. `visit(name, field)` is called for each; a
/// further name after a bar is understood too. A record within a record stands for one class of several.
namespace records {

template <typename Visitor>
void fields(BoardSpecificConfig& record, Visitor&& visit)
{
    visit("numberOfTConts|t_conts", record.numberOfTConts);
    visit("numberOfEthernetUnis|ethernet_unis", record.numberOfEthernetUnis);
    visit("reserved", record.reserved);
    visit("numberOfVideoUnis|video_unis", record.numberOfVideoUnis);
    visit("numberOfVideoAnis|video_anis", record.numberOfVideoAnis);
    visit("upstreamQueuesPerTCont|upstream_queues_per_t_cont", record.upstreamQueuesPerTCont);
    visit("downstreamQueuesPerUni|downstream_queues_per_uni", record.downstreamQueuesPerUni);
    visit("numberOfPotsUnis|pots_unis", record.numberOfPotsUnis);
}

template <typename Visitor>
void fields(EthernetFrameExtendedCounters& record, Visitor&& visit)
{
    visit("dropEvents", record.dropEvents);
    visit("octets", record.octets);
    visit("frames|packets", record.frames);
    visit("broadcastFrames|broadcastPackets", record.broadcastFrames);
    visit("multicastFrames|multicastPackets", record.multicastFrames);
    visit("crcErroredFrames|crcErroredPackets", record.crcErroredFrames);
    visit("undersizeFrames|undersizePackets", record.undersizeFrames);
    visit("oversizeFrames|oversizePackets", record.oversizeFrames);
    visit("frames64Octets|packets64Octets", record.frames64Octets);
    visit("frames65To127Octets|frames65_127Octets|packets65To127Octets", record.frames65To127Octets);
    visit("frames128To255Octets|frames128_255Octets|packets128To255Octets", record.frames128To255Octets);
    visit("frames256To511Octets|frames256_511Octets|packets256To511Octets", record.frames256To511Octets);
    visit("frames512To1023Octets|frames512_1023Octets|packets512To1023Octets", record.frames512To1023Octets);
    visit("frames1024To1518Octets|frames1024_1518Octets|packets1024To1518Octets", record.frames1024To1518Octets);
}

template <typename Visitor>
void fields(GemPortCounters& record, Visitor&& visit)
{
    visit("reserved1", record.reserved1);
    visit("transmittedGemFrames|transmittedFrames", record.transmittedFrames);
    visit("receivedGemFrames|receivedFrames|receivedPackets", record.receivedFrames);
    visit("reserved2", record.reserved2);
    visit("receivedPayloadBytes|receivedBlocks", record.receivedPayloadBytes);
    visit("transmittedPayloadBytes|transmittedBlocks", record.transmittedPayloadBytes);
    visit("lostPackets", record.lostPackets);
    visit("encryptionKeyErrors", record.encryptionKeyErrors);
}

template <typename Visitor>
void fields(GalEthPMHistData& record, Visitor&& visit)
{
    visit("discardedFrames", record.discardedFrames);
}

template <typename Visitor>
void fields(TwdmFecCounters& record, Visitor&& visit)
{
    visit("correctedBytes", record.correctedBytes);
    visit("correctedCodeWords", record.correctedCodeWords);
    visit("uncorrectableCodeWords", record.uncorrectableCodeWords);
    visit("totalCodeWords", record.totalCodeWords);
    visit("fecSeconds", record.fecSeconds);
}

template <typename Visitor>
void fields(TwdmOmciCounters& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("omciBaselineMessageCount", record.omciBaselineMessageCount);
    visit("omciExtendedMessageCount", record.omciExtendedMessageCount);
    visit("omciMicErrorCount", record.omciMicErrorCount);
}

template <typename Visitor>
void fields(TwdmPhyLodsCounters& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("totalReceivedWordsProtectedByBip32", record.totalReceivedWordsProtectedByBip32);
    visit("bip32BitErrorCount", record.bip32BitErrorCount);
    visit("correctedPsbdHecErrorCount", record.correctedPsbdHecErrorCount);
    visit("uncorrectablePsbdHecErrorCount", record.uncorrectablePsbdHecErrorCount);
    visit("correctedDownstreamFsHeaderHecErrorCount", record.correctedDownstreamFsHeaderHecErrorCount);
    visit("uncorrectableDownstreamFsHeaderHecErrorCount", record.uncorrectableDownstreamFsHeaderHecErrorCount);
    visit("totalNumberOfLodsEvents", record.totalNumberOfLodsEvents);
    visit("lodsEventsRestoredInOperTwdmCh", record.lodsEventsRestoredInOperTwdmCh);
    visit("lodsEventsRestoredInProtTwdmCh", record.lodsEventsRestoredInProtTwdmCh);
    visit("lodsEventsRestoredInDiscTwdmCh", record.lodsEventsRestoredInDiscTwdmCh);
    visit("lodsEventsResultingInReactivation", record.lodsEventsResultingInReactivation);
    visit("lodsEventsResultingInReactivationAfterReturningToProtTwdmCh",
          record.lodsEventsResultingInReactivationAfterReturningToProtTwdmCh);
    visit("lodsEventsResultingInReactivationAfterReturningToDiscTwdmCh",
          record.lodsEventsResultingInReactivationAfterReturningToDiscTwdmCh);
}

template <typename Visitor>
void fields(TwdmXgemCounters& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("totalTransmittedXgemFrames", record.totalTransmittedXgemFrames);
    visit("transmittedXgemFramesWithLfBitNotSet", record.transmittedXgemFramesWithLfBitNotSet);
    visit("totalReceivedXgemFrames", record.totalReceivedXgemFrames);
    visit("receivedXgemFramesWithXgemHeaderHecErrors", record.receivedXgemFramesWithXgemHeaderHecErrors);
    visit("fsWordsLostToXgemHeaderHecErrors", record.fsWordsLostToXgemHeaderHecErrors);
    visit("xgemEncrytionKeyErrors", record.xgemEncrytionKeyErrors);
    visit("totalTransmittedBytesInNonIdleXgemFrames", record.totalTransmittedBytesInNonIdleXgemFrames);
    visit("totalReceivedBytesInNonIdleXgemFrames", record.totalReceivedBytesInNonIdleXgemFrames);
}

template <typename Visitor>
void fields(TwdmPloamCountersPart1& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("ploamMicErrors", record.ploamMicErrors);
    visit("downstreamPloamMessageCount", record.downstreamPloamMessageCount);
    visit("rangingTimeMessageCount", record.rangingTimeMessageCount);
    visit("protectionControlMessageCount", record.protectionControlMessageCount);
    visit("adjustTxWavelengthMessageCount", record.adjustTxWavelengthMessageCount);
    visit("adjustTxWavelengthAdjustmentAmplitude", record.adjustTxWavelengthAdjustmentAmplitude);
}

template <typename Visitor>
void fields(TwdmPloamCountersPart2& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("systemProfileMessageCount", record.systemProfileMessageCount);
    visit("channelProfileMessageCount", record.channelProfileMessageCount);
    visit("burstProfileMessageCount", record.burstProfileMessageCount);
    visit("assignOnuIdMessageCount", record.assignOnuIdMessageCount);
    visit("unsatisfiedAdjustTxWavelengthRequests", record.unsatisfiedAdjustTxWavelengthRequests);
    visit("deactivateOnuIdMessageCount", record.deactivateOnuIdMessageCount);
    visit("disableSerialNumberMessageCount", record.disableSerialNumberMessageCount);
    visit("requestRegistrationMessageCount", record.requestRegistrationMessageCount);
    visit("assignAllocIdMessageCount", record.assignAllocIdMessageCount);
    visit("keyControlMessageCount", record.keyControlMessageCount);
    visit("sleepAllowMessageCount", record.sleepAllowMessageCount);
    visit("tuningControlRequestMessageCount", record.tuningControlRequestMessageCount);
    visit("tuningControlCompleteDMessageCount", record.tuningControlCompleteDMessageCount);
    visit("calibrationRequestMessageCount", record.calibrationRequestMessageCount);
}

template <typename Visitor>
void fields(TwdmPloamCountersPart3& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("upstreamPloamMessageCount", record.upstreamPloamMessageCount);
    visit("serialNumberOnuInbandMessageCount", record.serialNumberOnuInbandMessageCount);
    visit("serialNumberOnuAmccMessageCount", record.serialNumberOnuAmccMessageCount);
    visit("registrationMessageCount", record.registrationMessageCount);
    visit("keyReportMessageCount", record.keyReportMessageCount);
    visit("acknowledgementMessageCount", record.acknowledgementMessageCount);
    visit("sleepRequestMessageCount", record.sleepRequestMessageCount);
    visit("tuningResponseAckNackMessageCount", record.tuningResponseAckNackMessageCount);
    visit("tuningResponseCompleteURollbackMessageCount", record.tuningResponseCompleteURollbackMessageCount);
    visit("powerConsumptionReportMessageCount", record.powerConsumptionReportMessageCount);
    visit("changePowerLevelParameterErrorCount", record.changePowerLevelParameterErrorCount);
}

template <typename Visitor>
void fields(TwdmPloamCounters& record, Visitor&& visit)
{
    visit("part1", record.part1);
    visit("part2", record.part2);
    visit("part3", record.part3);
}

template <typename Visitor>
void fields(TwdmTuningCountersPart1& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("tcrForRxOnlyOrRxAndTx", record.tcrForRxOnlyOrRxAndTx);
    visit("tcrForTxOnly", record.tcrForTxOnly);
    visit("tcrRejectedIntsfc", record.tcrRejectedIntsfc);
    visit("tcrRejectedDsxxx", record.tcrRejectedDsxxx);
    visit("tcrRejectedUsxxx", record.tcrRejectedUsxxx);
    visit("tcrFulfilledWithOnuReacquiredAtTargetCh", record.tcrFulfilledWithOnuReacquiredAtTargetCh);
    visit("tcrFailedDueToTargetDsWavelengthChNotFound", record.tcrFailedDueToTargetDsWavelengthChNotFound);
    visit("tcrFailedDueToNoFeedbackInTargetDsWavelengthCh", record.tcrFailedDueToNoFeedbackInTargetDsWavelengthCh);
    visit("tcrResolvedWithOnuReacquiredAtDiscCh", record.tcrResolvedWithOnuReacquiredAtDiscCh);
    visit("tcrRollbackComds", record.tcrRollbackComds);
    visit("tcrRollbackDsxxx", record.tcrRollbackDsxxx);
    visit("tcrRollbackUsxxx", record.tcrRollbackUsxxx);
    visit("tcrFailedWithOnuReactivation", record.tcrFailedWithOnuReactivation);
}

template <typename Visitor>
void fields(TwdmTuningCountersPart2& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("tcrRejectedDsAlbl", record.tcrRejectedDsAlbl);
    visit("tcrRejectedDsVoid", record.tcrRejectedDsVoid);
    visit("tcrRejectedDsPart", record.tcrRejectedDsPart);
    visit("tcrRejectedDsTunr", record.tcrRejectedDsTunr);
    visit("tcrRejectedDsLnrt", record.tcrRejectedDsLnrt);
    visit("tcrRejectedDsLncd", record.tcrRejectedDsLncd);
    visit("tcrRejectedUsAlbl", record.tcrRejectedUsAlbl);
    visit("tcrRejectedUsVoid", record.tcrRejectedUsVoid);
    visit("tcrRejectedUsTunr", record.tcrRejectedUsTunr);
    visit("tcrRejectedUsClbr", record.tcrRejectedUsClbr);
    visit("tcrRejectedUsLktp", record.tcrRejectedUsLktp);
    visit("tcrRejectedUsLnrt", record.tcrRejectedUsLnrt);
    visit("tcrRejectedUsLncd", record.tcrRejectedUsLncd);
}

template <typename Visitor>
void fields(TwdmTuningCountersPart3& record, Visitor&& visit)
{
    visit("intervalEndTime", record.intervalEndTime);
    visit("tcrRollbackDsAlbl", record.tcrRollbackDsAlbl);
    visit("tcrRollbackDsLktp", record.tcrRollbackDsLktp);
    visit("tcrRollbackUsAlbl", record.tcrRollbackUsAlbl);
    visit("tcrRollbackUsVoid", record.tcrRollbackUsVoid);
    visit("tcrRollbackUsTunr", record.tcrRollbackUsTunr);
    visit("tcrRollbackUsLktp", record.tcrRollbackUsLktp);
    visit("tcrRollbackUsLnrt", record.tcrRollbackUsLnrt);
    visit("tcrRollbackUsLncd", record.tcrRollbackUsLncd);
}

template <typename Visitor>
void fields(TwdmTuningCounters& record, Visitor&& visit)
{
    visit("part1", record.part1);
    visit("part2", record.part2);
    visit("part3", record.part3);
}

template <typename Visitor>
void fields(VoipLineStatusData& record, Visitor&& visit)
{
    visit("VoipCodecUsed", record.VoipCodecUsed);
    visit("VoipVoiceServerStatus", record.VoipVoiceServerStatus);
    visit("VoipPortSessionType", record.VoipPortSessionType);
    visit("VoipCall_1_PacketPeriod", record.VoipCall_1_PacketPeriod);
    visit("VoipCall_2_PacketPeriod", record.VoipCall_2_PacketPeriod);
    visit("VoipCall_1_DestAddr", record.VoipCall_1_DestAddr);
    visit("VoipCall_2_DestAddr", record.VoipCall_2_DestAddr);
    visit("VoipLineState", record.VoipLineState);
    visit("EmergencyCallStatus", record.EmergencyCallStatus);
}

template <typename Visitor>
void fields(pptpPotsUniGetAttr& record, Visitor&& visit)
{
    visit("AdministrativeState", record.AdministrativeState);
    visit("Deprecated", record.Deprecated);
    visit("Arc", record.Arc);
    visit("ArcIntervel", record.ArcIntervel);
    visit("Impedence", record.Impedence);
    visit("TransmissionPath", record.TransmissionPath);
    visit("RxGain", record.RxGain);
    visit("TxGain", record.TxGain);
    visit("OperationalState", record.OperationalState);
    visit("HookState", record.HookState);
    visit("PotsHoldoverTime", record.PotsHoldoverTime);
    visit("NominalFeedVoltage", record.NominalFeedVoltage);
    visit("LossOfSwitch", record.LossOfSwitch);
}

template <typename Visitor>
void fields(VoipConfigDataAttr& record, Visitor&& visit)
{
    visit("AvailableSignallingProtocols", record.AvailableSignallingProtocols);
    visit("SignallingProtocolUsed", record.SignallingProtocolUsed);
    visit("AvailableVoipConfigurationMethods", record.AvailableVoipConfigurationMethods);
    visit("VoipConfigurationMethodUsed", record.VoipConfigurationMethodUsed);
    visit("VoipConfigurationAddressPointer", record.VoipConfigurationAddressPointer);
    visit("VoipConfigurationState", record.VoipConfigurationState);
    visit("RetrieveProfile", record.RetrieveProfile);
}

template <typename Visitor>
void fields(TwdmChannel& record, Visitor&& visit)
{
    visit("activeChannelIndication|active", record.ActiveChannelIndication);
    visit("operationalChannelIndication|operational", record.OperationalChannelIndication);
    visit("downstreamWavelengthChannel|downstream", record.DownstreamWavelengthChannel);
    visit("upstreamWavelengthChannel|upstream", record.UpstreamWavelengthChannel);
}

template <typename Visitor>
void fields(TwdmSystemProfile& record, Visitor&& visit)
{
    visit("channelPartitionIndex", record.ChannelPartitionIndex);
    visit("channelPartitionWaiverTimer", record.ChannelPartitionWaiverTimer);
    visit("lodsReinitializationTimer", record.LodsReinitializationTimer);
    visit("lodsProtectionTimer", record.LodsProtectionTimer);
    visit("downstreamTuningTimer", record.DownstreamTuningTimer);
    visit("upstreamTuningTimer", record.UpstreamTuningTimer);
}

template <typename Visitor>
void fields(RecVlanTagFilData& record, Visitor&& visit)
{
    visit("FOP", record.FOP);
    visit("FOV", record.FOV);
    visit("FOT", record.FOT);
    visit("pad1", record.pad1);
    visit("FIP", record.FIP);
    visit("FIV", record.FIV);
    visit("FIT", record.FIT);
    visit("pad2", record.pad2);
    visit("FET", record.FET);
    visit("TTR", record.TTR);
    visit("pad3", record.pad3);
    visit("TOP", record.TOP);
    visit("TOV", record.TOV);
    visit("TOT", record.TOT);
    visit("pad4", record.pad4);
    visit("TIP", record.TIP);
    visit("TIV", record.TIV);
    visit("TIT", record.TIT);
}

/// Without the bytes that are the hardware layer's own.
template <typename Visitor>
void fields(ExtendedVlanTaggingRuleContainer& record, Visitor&& visit)
{
    visit("ruleFlags", record.ruleFlags);
    visit("inputTpid", record.inputTpid);
    visit("outputTpid", record.outputTpid);
    visit("downstreamMode", record.downstreamMode);
    visit("frameTagCount", record.frameTagCount);
    visit("tagAction", record.tagAction);
    visit("FET", record.FET);
    visit("FOT", record.FOT);
    visit("FOV", record.FOV);
    visit("FOP", record.FOP);
    visit("FIT", record.FIT);
    visit("FIV", record.FIV);
    visit("FIP", record.FIP);
    visit("TTR", record.TTR);
    visit("TOT", record.TOT);
    visit("TOV", record.TOV);
    visit("TOP", record.TOP);
    visit("TIT", record.TIT);
    visit("TIV", record.TIV);
    visit("TIP", record.TIP);
    visit("dscpToPbitMapping", record.dscpToPbitMapping);
}

}  // namespace records

#endif
