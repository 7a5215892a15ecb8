#ifndef ONT_OMCI_MANAGED_ENTITY_COUNTER_RECORDS_H
#define ONT_OMCI_MANAGED_ENTITY_COUNTER_RECORDS_H

#include <cstdint>

/// Counters that the host hands to OmciManagedEntitiesCore, by value, in host byte order.

/// Ethernet frame counters of one direction, in the order of the attributes they feed (classes 24, 321, 322, 334, 425).
struct EthernetFrameExtendedCounters
{
    /// @{

    /// Counts of frames, of octets in `octets`; those of the interval or the continuous ones, as the refresh asked.
    std::uint64_t dropEvents;
    std::uint64_t octets;
    std::uint64_t frames;
    std::uint64_t broadcastFrames;
    std::uint64_t multicastFrames;
    std::uint64_t crcErroredFrames;
    std::uint64_t undersizeFrames;
    std::uint64_t oversizeFrames;
    std::uint64_t frames64Octets;
    std::uint64_t frames65To127Octets;
    std::uint64_t frames128To255Octets;
    std::uint64_t frames256To511Octets;
    std::uint64_t frames512To1023Octets;
    std::uint64_t frames1024To1518Octets;
    /// @}
};

/// GEM port counters (classes 341 and 267).
struct GemPortCounters
{
    std::uint32_t reserved1;                ///< not read
    std::uint32_t transmittedFrames;        ///< GEM frames (class 341)
    std::uint32_t receivedFrames;           ///< GEM frames
    std::uint32_t reserved2;                ///< not read
    std::uint64_t receivedPayloadBytes;     ///< octets
    std::uint64_t transmittedPayloadBytes;  ///< octets
    std::uint32_t lostPackets;              ///< frames (class 267)
    std::uint32_t encryptionKeyErrors;      ///< frames (class 341)
};

/// GAL Ethernet PM history data (class 276).
struct GalEthPMHistData
{
    std::uint32_t discardedFrames;  ///< GEM frames that could not be put together
};

/// FEC PM history data (class 312).
struct TwdmFecCounters
{
    std::uint32_t correctedBytes;          ///< octets
    std::uint32_t correctedCodeWords;      ///< code words
    std::uint32_t uncorrectableCodeWords;  ///< code words
    std::uint32_t totalCodeWords;          ///< code words
    std::uint16_t fecSeconds;              ///< seconds with an uncorrectable code word
};

/// TWDM channel OMCI PM (class 65414).
struct TwdmOmciCounters
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t omciBaselineMessageCount;
    std::uint32_t omciExtendedMessageCount;
    std::uint32_t omciMicErrorCount;
    /// @}
};

/// TWDM channel PHY/LODS PM (class 65406).
struct TwdmPhyLodsCounters
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint64_t totalReceivedWordsProtectedByBip32;
    std::uint32_t bip32BitErrorCount;
    std::uint32_t correctedPsbdHecErrorCount;
    std::uint32_t uncorrectablePsbdHecErrorCount;
    std::uint32_t correctedDownstreamFsHeaderHecErrorCount;
    std::uint32_t uncorrectableDownstreamFsHeaderHecErrorCount;
    std::uint32_t totalNumberOfLodsEvents;
    std::uint32_t lodsEventsRestoredInOperTwdmCh;
    std::uint32_t lodsEventsRestoredInProtTwdmCh;
    std::uint32_t lodsEventsRestoredInDiscTwdmCh;
    std::uint32_t lodsEventsResultingInReactivation;
    std::uint32_t lodsEventsResultingInReactivationAfterReturningToProtTwdmCh;
    std::uint32_t lodsEventsResultingInReactivationAfterReturningToDiscTwdmCh;
    /// @}
};

/// TWDM channel XGEM PM (class 65407).
struct TwdmXgemCounters
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t totalTransmittedXgemFrames;
    std::uint32_t transmittedXgemFramesWithLfBitNotSet;
    std::uint32_t totalReceivedXgemFrames;
    std::uint32_t receivedXgemFramesWithXgemHeaderHecErrors;
    std::uint32_t fsWordsLostToXgemHeaderHecErrors;
    std::uint32_t xgemEncrytionKeyErrors;
    std::uint64_t totalTransmittedBytesInNonIdleXgemFrames;
    std::uint64_t totalReceivedBytesInNonIdleXgemFrames;
    /// @}
};

/// TWDM channel PLOAM PM, part 1 (class 65408).
struct TwdmPloamCountersPart1
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t ploamMicErrors;
    std::uint32_t downstreamPloamMessageCount;
    std::uint32_t rangingTimeMessageCount;
    std::uint32_t protectionControlMessageCount;
    std::uint32_t adjustTxWavelengthMessageCount;
    std::uint32_t adjustTxWavelengthAdjustmentAmplitude;
    /// @}
};

/// TWDM channel PLOAM PM, part 2 (class 65409).
struct TwdmPloamCountersPart2
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t systemProfileMessageCount;
    std::uint32_t channelProfileMessageCount;
    std::uint32_t burstProfileMessageCount;
    std::uint32_t assignOnuIdMessageCount;
    std::uint32_t unsatisfiedAdjustTxWavelengthRequests;
    std::uint32_t deactivateOnuIdMessageCount;
    std::uint32_t disableSerialNumberMessageCount;
    std::uint32_t requestRegistrationMessageCount;
    std::uint32_t assignAllocIdMessageCount;
    std::uint32_t keyControlMessageCount;
    std::uint32_t sleepAllowMessageCount;
    std::uint32_t tuningControlRequestMessageCount;
    std::uint32_t tuningControlCompleteDMessageCount;
    std::uint32_t calibrationRequestMessageCount;
    /// @}
};

/// TWDM channel PLOAM PM, part 3 (class 65410).
struct TwdmPloamCountersPart3
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t upstreamPloamMessageCount;
    std::uint32_t serialNumberOnuInbandMessageCount;
    std::uint32_t serialNumberOnuAmccMessageCount;
    std::uint32_t registrationMessageCount;
    std::uint32_t keyReportMessageCount;
    std::uint32_t acknowledgementMessageCount;
    std::uint32_t sleepRequestMessageCount;
    std::uint32_t tuningResponseAckNackMessageCount;
    std::uint32_t tuningResponseCompleteURollbackMessageCount;
    std::uint32_t powerConsumptionReportMessageCount;
    std::uint32_t changePowerLevelParameterErrorCount;
    /// @}
};

/// The three TWDM channel PLOAM PM classes in turn.
struct TwdmPloamCounters
{
    TwdmPloamCountersPart1 part1;  ///< class 65408
    TwdmPloamCountersPart2 part2;  ///< class 65409
    TwdmPloamCountersPart3 part3;  ///< class 65410
};

/// TWDM channel tuning PM, part 1 (class 65411).
struct TwdmTuningCountersPart1
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t tcrForRxOnlyOrRxAndTx;
    std::uint32_t tcrForTxOnly;
    std::uint32_t tcrRejectedIntsfc;
    std::uint32_t tcrRejectedDsxxx;
    std::uint32_t tcrRejectedUsxxx;
    std::uint32_t tcrFulfilledWithOnuReacquiredAtTargetCh;
    std::uint32_t tcrFailedDueToTargetDsWavelengthChNotFound;
    std::uint32_t tcrFailedDueToNoFeedbackInTargetDsWavelengthCh;
    std::uint32_t tcrResolvedWithOnuReacquiredAtDiscCh;
    std::uint32_t tcrRollbackComds;
    std::uint32_t tcrRollbackDsxxx;
    std::uint32_t tcrRollbackUsxxx;
    std::uint32_t tcrFailedWithOnuReactivation;
    /// @}
};

/// TWDM channel tuning PM, part 2 (class 65412).
struct TwdmTuningCountersPart2
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t tcrRejectedDsAlbl;
    std::uint32_t tcrRejectedDsVoid;
    std::uint32_t tcrRejectedDsPart;
    std::uint32_t tcrRejectedDsTunr;
    std::uint32_t tcrRejectedDsLnrt;
    std::uint32_t tcrRejectedDsLncd;
    std::uint32_t tcrRejectedUsAlbl;
    std::uint32_t tcrRejectedUsVoid;
    std::uint32_t tcrRejectedUsTunr;
    std::uint32_t tcrRejectedUsClbr;
    std::uint32_t tcrRejectedUsLktp;
    std::uint32_t tcrRejectedUsLnrt;
    std::uint32_t tcrRejectedUsLncd;
    /// @}
};

/// TWDM channel tuning PM, part 3 (class 65413).
struct TwdmTuningCountersPart3
{
    std::uint8_t intervalEndTime;  ///< count of finished intervals, modulo 256
    /// @{

    /// Counts since the interval began, each to the attribute of its name.
    std::uint32_t tcrRollbackDsAlbl;
    std::uint32_t tcrRollbackDsLktp;
    std::uint32_t tcrRollbackUsAlbl;
    std::uint32_t tcrRollbackUsVoid;
    std::uint32_t tcrRollbackUsTunr;
    std::uint32_t tcrRollbackUsLktp;
    std::uint32_t tcrRollbackUsLnrt;
    std::uint32_t tcrRollbackUsLncd;
    /// @}
};

/// The three TWDM channel tuning PM classes in turn.
struct TwdmTuningCounters
{
    TwdmTuningCountersPart1 part1;  ///< class 65411
    TwdmTuningCountersPart2 part2;  ///< class 65412
    TwdmTuningCountersPart3 part3;  ///< class 65413
};

#endif
