#ifndef ONT_OMCI_MANAGED_ENTITY_STATUS_RECORDS_H
#define ONT_OMCI_MANAGED_ENTITY_STATUS_RECORDS_H

/// Status reports that the host hands to OmciManagedEntitiesCore, by value, in host byte order.

/// VoIP line status (class 141).
struct VoipLineStatusData
{
    unsigned short VoipCodecUsed;
    unsigned char VoipVoiceServerStatus;
    unsigned char VoipPortSessionType;
    unsigned short VoipCall_1_PacketPeriod;  ///< not passed on to the entity
    unsigned short VoipCall_2_PacketPeriod;  ///< not passed on to the entity
    unsigned char VoipCall_1_DestAddr[25];   ///< not passed on to the entity
    unsigned char VoipCall_2_DestAddr[25];   ///< not passed on to the entity
    unsigned char VoipLineState;
    unsigned char EmergencyCallStatus;
};

/// PPTP POTS UNI (class 53).
struct pptpPotsUniGetAttr
{
    unsigned char AdministrativeState;
    unsigned char Deprecated;
    unsigned char Arc;
    unsigned char ArcIntervel;
    unsigned char Impedence;
    unsigned char TransmissionPath;
    unsigned char RxGain;
    unsigned char TxGain;
    unsigned char OperationalState;
    unsigned char HookState;
    unsigned short PotsHoldoverTime;
    unsigned char NominalFeedVoltage;
    unsigned char LossOfSwitch;
};

/// VoIP config data (class 138).
struct VoipConfigDataAttr
{
    unsigned char AvailableSignallingProtocols;
    unsigned char SignallingProtocolUsed;
    unsigned int AvailableVoipConfigurationMethods;
    unsigned char VoipConfigurationMethodUsed;
    unsigned short VoipConfigurationAddressPointer;
    unsigned char VoipConfigurationState;
    unsigned char RetrieveProfile;
};

/// TWDM channel (class 65402).
struct TwdmChannel
{
    unsigned char ActiveChannelIndication;
    unsigned char OperationalChannelIndication;
    unsigned char DownstreamWavelengthChannel;
    unsigned char UpstreamWavelengthChannel;
};

/// The six values of a TWDM system profile (class 65401), milliseconds except the index.
struct TwdmSystemProfile
{
    unsigned char ChannelPartitionIndex;
    unsigned int ChannelPartitionWaiverTimer;
    unsigned int LodsReinitializationTimer;
    unsigned int LodsProtectionTimer;
    unsigned int DownstreamTuningTimer;
    unsigned int UpstreamTuningTimer;
};

#endif
