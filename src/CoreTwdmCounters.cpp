// Counters of TWDM channels: a feed brings the interval end time along with the counters.
#include "CounterFeed.h"
#include "OmciManagedEntitiesCore.h"
#include "impl/Log.h"

namespace {

constexpr unsigned short kPhyLodsClass = 65406;
constexpr unsigned short kXgemClass = 65407;
constexpr unsigned short kPloamPart1Class = 65408;
constexpr unsigned short kPloamPart2Class = 65409;
constexpr unsigned short kPloamPart3Class = 65410;
constexpr unsigned short kTuningPart1Class = 65411;
constexpr unsigned short kTuningPart2Class = 65412;
constexpr unsigned short kTuningPart3Class = 65413;
constexpr unsigned short kOmciClass = 65414;

/// One class's share of a record, in attribute order.
template <typename... Counters>
void feed(unsigned short classId, unsigned short instance, unsigned char intervalEndTime, Counters... counters)
{
    OmciManagedEntityRegistrar::getInstance()->updateManagedEntity(classId, instance, nrvk::kIntervalEndTime,
                                                                   intervalEndTime);
    nrvk::feedCounters(classId, instance, counters...);
}

void feed(unsigned short instance, const TwdmOmciCounters& counters)
{
    feed(kOmciClass, instance, counters.intervalEndTime, counters.omciBaselineMessageCount,
         counters.omciExtendedMessageCount, counters.omciMicErrorCount);
}

void feed(unsigned short instance, const TwdmPhyLodsCounters& counters)
{
    feed(kPhyLodsClass, instance, counters.intervalEndTime, counters.totalReceivedWordsProtectedByBip32,
         counters.bip32BitErrorCount, counters.correctedPsbdHecErrorCount, counters.uncorrectablePsbdHecErrorCount,
         counters.correctedDownstreamFsHeaderHecErrorCount, counters.uncorrectableDownstreamFsHeaderHecErrorCount,
         counters.totalNumberOfLodsEvents, counters.lodsEventsRestoredInOperTwdmCh,
         counters.lodsEventsRestoredInProtTwdmCh, counters.lodsEventsRestoredInDiscTwdmCh,
         counters.lodsEventsResultingInReactivation,
         counters.lodsEventsResultingInReactivationAfterReturningToProtTwdmCh,
         counters.lodsEventsResultingInReactivationAfterReturningToDiscTwdmCh);
}

void feed(unsigned short instance, const TwdmPloamCountersPart1& counters)
{
    feed(kPloamPart1Class, instance, counters.intervalEndTime, counters.ploamMicErrors,
         counters.downstreamPloamMessageCount, counters.rangingTimeMessageCount, counters.protectionControlMessageCount,
         counters.adjustTxWavelengthMessageCount, counters.adjustTxWavelengthAdjustmentAmplitude);
}

void feed(unsigned short instance, const TwdmPloamCountersPart2& counters)
{
    feed(kPloamPart2Class, instance, counters.intervalEndTime, counters.systemProfileMessageCount,
         counters.channelProfileMessageCount, counters.burstProfileMessageCount, counters.assignOnuIdMessageCount,
         counters.unsatisfiedAdjustTxWavelengthRequests, counters.deactivateOnuIdMessageCount,
         counters.disableSerialNumberMessageCount, counters.requestRegistrationMessageCount,
         counters.assignAllocIdMessageCount, counters.keyControlMessageCount, counters.sleepAllowMessageCount,
         counters.tuningControlRequestMessageCount, counters.tuningControlCompleteDMessageCount,
         counters.calibrationRequestMessageCount);
}

void feed(unsigned short instance, const TwdmPloamCountersPart3& counters)
{
    feed(kPloamPart3Class, instance, counters.intervalEndTime, counters.upstreamPloamMessageCount,
         counters.serialNumberOnuInbandMessageCount, counters.serialNumberOnuAmccMessageCount,
         counters.registrationMessageCount, counters.keyReportMessageCount, counters.acknowledgementMessageCount,
         counters.sleepRequestMessageCount, counters.tuningResponseAckNackMessageCount,
         counters.tuningResponseCompleteURollbackMessageCount, counters.powerConsumptionReportMessageCount,
         counters.changePowerLevelParameterErrorCount);
}

void feed(unsigned short instance, const TwdmTuningCountersPart1& counters)
{
    feed(kTuningPart1Class, instance, counters.intervalEndTime, counters.tcrForRxOnlyOrRxAndTx, counters.tcrForTxOnly,
         counters.tcrRejectedIntsfc, counters.tcrRejectedDsxxx, counters.tcrRejectedUsxxx,
         counters.tcrFulfilledWithOnuReacquiredAtTargetCh, counters.tcrFailedDueToTargetDsWavelengthChNotFound,
         counters.tcrFailedDueToNoFeedbackInTargetDsWavelengthCh, counters.tcrResolvedWithOnuReacquiredAtDiscCh,
         counters.tcrRollbackComds, counters.tcrRollbackDsxxx, counters.tcrRollbackUsxxx,
         counters.tcrFailedWithOnuReactivation);
}

void feed(unsigned short instance, const TwdmTuningCountersPart2& counters)
{
    feed(kTuningPart2Class, instance, counters.intervalEndTime, counters.tcrRejectedDsAlbl, counters.tcrRejectedDsVoid,
         counters.tcrRejectedDsPart, counters.tcrRejectedDsTunr, counters.tcrRejectedDsLnrt, counters.tcrRejectedDsLncd,
         counters.tcrRejectedUsAlbl, counters.tcrRejectedUsVoid, counters.tcrRejectedUsTunr, counters.tcrRejectedUsClbr,
         counters.tcrRejectedUsLktp, counters.tcrRejectedUsLnrt, counters.tcrRejectedUsLncd);
}

void feed(unsigned short instance, const TwdmTuningCountersPart3& counters)
{
    feed(kTuningPart3Class, instance, counters.intervalEndTime, counters.tcrRollbackDsAlbl, counters.tcrRollbackDsLktp,
         counters.tcrRollbackUsAlbl, counters.tcrRollbackUsVoid, counters.tcrRollbackUsTunr, counters.tcrRollbackUsLktp,
         counters.tcrRollbackUsLnrt, counters.tcrRollbackUsLncd);
}

void feed(unsigned short instance, const TwdmXgemCounters& counters)
{
    feed(kXgemClass, instance, counters.intervalEndTime, counters.totalTransmittedXgemFrames,
         counters.transmittedXgemFramesWithLfBitNotSet, counters.totalReceivedXgemFrames,
         counters.receivedXgemFramesWithXgemHeaderHecErrors, counters.fsWordsLostToXgemHeaderHecErrors,
         counters.xgemEncrytionKeyErrors, counters.totalTransmittedBytesInNonIdleXgemFrames,
         counters.totalReceivedBytesInNonIdleXgemFrames);
}

}  // namespace

int OmciManagedEntitiesCore::updateTwdmOmciStats(unsigned short instance, TwdmOmciCounters counters)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    feed(instance, counters);
    return 0;
}

int OmciManagedEntitiesCore::updateTwdmPhyLodsStats(unsigned short instance, TwdmPhyLodsCounters counters)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    feed(instance, counters);
    return 0;
}

int OmciManagedEntitiesCore::updateTwdmPloamStats(unsigned short instance, TwdmPloamCounters counters)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    feed(instance, counters.part1);
    feed(instance, counters.part2);
    feed(instance, counters.part3);
    return 0;
}

int OmciManagedEntitiesCore::updateTwdmTuningStats(unsigned short instance, TwdmTuningCounters counters)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    feed(instance, counters.part1);
    feed(instance, counters.part2);
    feed(instance, counters.part3);
    return 0;
}

int OmciManagedEntitiesCore::updateTwdmXgemStats(unsigned short instance, TwdmXgemCounters counters)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    feed(instance, counters);
    return 0;
}
