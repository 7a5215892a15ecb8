#ifndef ONT_OMCI_MANAGED_ENTITY_STATUS_RECORDS_H
#define ONT_OMCI_MANAGED_ENTITY_STATUS_RECORDS_H

/// Status reports that the host hands to OmciManagedEntitiesCore, by value, in host byte order.

/// VoIP line status (class 141).
struct VoipLineStatusData
{
    unsigned short VoipCodecUsed;         ///< codec, as G.988 numbers them
    unsigned char VoipVoiceServerStatus;  ///< 0 none, 1 registered, 2 in session; above that why not
    unsigned char VoipPortSessionType;    ///< 0 idle, 1 two-way, 2 three-way, 3 fax or modem, 4 telemetry, 5 conference
    unsigned short VoipCall_1_PacketPeriod;  ///< not passed on to the entity
    unsigned short VoipCall_2_PacketPeriod;  ///< not passed on to the entity
    unsigned char VoipCall_1_DestAddr[25];   ///< not passed on to the entity
    unsigned char VoipCall_2_DestAddr[25];   ///< not passed on to the entity
    unsigned char VoipLineState;             ///< 0 idle on hook to 9 receiver off hook tone
    unsigned char EmergencyCallStatus;       ///< 0 none, 1 in an emergency call
};

/// PPTP POTS UNI (class 53).
struct pptpPotsUniGetAttr
{
    unsigned char AdministrativeState;  ///< 0 unlocked, 1 locked
    unsigned char Deprecated;           ///< goes into an attribute of two bytes
    unsigned char Arc;                  ///< alarm reporting control: 0 off, 1 on
    unsigned char ArcIntervel;          ///< minutes; 255 for ever
    unsigned char Impedence;            ///< 0 600 ohm, 1 to 4 as in G.988
    unsigned char TransmissionPath;     ///< 0 full-time on hook, 1 part-time
    unsigned char RxGain;               ///< 0.1 dB, two's complement
    unsigned char TxGain;               ///< 0.1 dB, two's complement
    unsigned char OperationalState;     ///< 0 enabled, 1 disabled
    unsigned char HookState;            ///< 0 on hook, 1 off hook
    unsigned short PotsHoldoverTime;    ///< seconds
    unsigned char NominalFeedVoltage;   ///< volts
    unsigned char LossOfSwitch;         ///< loss of softswitch: how the line tells it
};

/// VoIP config data (class 138).
struct VoipConfigDataAttr
{
    unsigned char AvailableSignallingProtocols;      ///< bits: 1 SIP, 2 H.248, 4 MGCP
    unsigned char SignallingProtocolUsed;            ///< 0 none, 1 SIP, 2 H.248, 3 MGCP
    unsigned int AvailableVoipConfigurationMethods;  ///< bits: 1 OMCI, 2 file, 4 TR-069, 8 sipping
    unsigned char VoipConfigurationMethodUsed;       ///< 0 as it likes, 1 OMCI, 2 file, 3 TR-069, 4 sipping
    unsigned short VoipConfigurationAddressPointer;  ///< a network address; 65535 none
    unsigned char VoipConfigurationState;            ///< 0 inactive, 1 active, 2 initializing, 3 fault
    unsigned char RetrieveProfile;                   ///< any value asks for the profile
};

/// TWDM channel (class 65402).
struct TwdmChannel
{
    unsigned char ActiveChannelIndication;       ///< 1 active
    unsigned char OperationalChannelIndication;  ///< 1 operational
    unsigned char DownstreamWavelengthChannel;   ///< number of the channel, from 0
    unsigned char UpstreamWavelengthChannel;     ///< number of the channel, from 0
};

/// The six values of a TWDM system profile (class 65401), milliseconds except the index.
struct TwdmSystemProfile
{
    unsigned char ChannelPartitionIndex;       ///< not a time
    unsigned int ChannelPartitionWaiverTimer;  ///< milliseconds
    unsigned int LodsReinitializationTimer;    ///< milliseconds
    unsigned int LodsProtectionTimer;          ///< milliseconds
    unsigned int DownstreamTuningTimer;        ///< milliseconds
    unsigned int UpstreamTuningTimer;          ///< milliseconds
};

#endif
