"""Attributes that the other decoder names otherwise than this system: (class, its name) to the name here.

Names that differ in case and punctuation alone are not listed.
"""

ORDERS = (("1St", "First"), ("2Nd", "Second"), ("3Rd", "Third"), ("4Th", "Fourth"))

NAMES = {
    (5, "AlarmReportingControl"): "Arc",
    (5, "ExpectedPortCount"): "ExpectedPortType",
    (11, "AutoDetectionConfiguration"): "AutodetectionConfig",
    (11, "ConfigurationInd"): "ConfigInd",
    (11, "EthernetLoopbackConfiguration"): "EthernetLoopbackConfig",
    (45, "UnknownMacAddressDiscard"): "UnknownMacAddrDiscard",
    (53, "Impedance"): "Impedence",
    (79, "BridgeManagementInformationFiltering"): "BridgeMgmtInfoFiltering",
    (79, "PointToPointProtocolOverEthernetPppoeBroadcastFiltering"): "PppoeBroadcastFiltering",
    (133, "DigitalSubscriberLineClassSheddingInterval"): "DslClassSheddingInterval",
    (256, "OnuSurvivalTime"): "OntSurvivalTime",
    (257, "OpticalNetworkUnitManagementAndControlChannelOmccVersion"): "OmccVersion",
    (257, "QualityOfServiceQosConfigurationFlexibility"): "QosConfigFlexibility",
    (263, "SignalDegradeThreshold"): "SdThreshold",
    (263, "SignalFailThreshold"): "SfThreshold",
    (266, "GalLoopbackConfiguration"): "GalLoopbackConfig",
    (266, "GemPortNetworkCtpConnectivityPointer"): "GemPortNetworkCtpConnPointer",
    (266, "InterworkingTerminationPointPointer"): "InterworkingTpPointer",
    (268, "PriorityQueuePointerForDownStream"): "PriorityQueuePointerDownstream",
    (268, "TrafficDescriptorProfilePointerForDownstream"): "TrafficDescProfilePointerDownstream",
    (268, "TrafficDescriptorProfilePointerForUpstream"): "TrafficDescProfilePointerUpstream",
    (268, "TrafficManagementPointerForUpstream"): "TrafficMgmtPointerUpstream",
    (272, "MaximumGemPayloadSize"): "MaxGemPayloadSize",
    (277, "MaximumQueueSize"): "MaxQueueSize",
    (277, "PacketDropQueueThresholds"): "PacketDropQueueThreshold",
    (277, "QueueConfigurationOption"): "QueueConfOption",
    (277, "ThresholdValueForDiscardedBlocksDueToBufferOverflow"): "ThresholdDiscardedBlocksBufferOverflow",
    (278, "PriorityWeight"): "Priority",
    (281, "GemPortNetworkCtpConnectivityPointer"): "GemPortNetworkCtpConnPointer",
    (425, "Frames256To511Octets"): "Frames_256_511_Octets",
    **{(number, "ThresholdData12Id"): "ThresholdData_1by2_Id" for number in (24, 89, 322, 341)},
    **{(142, f"{what}{theirs}Order"): f"{what}{ours}Order"
       for what in ("CodecSelection", "PacketPeriodSelection", "SilenceSuppression") for theirs, ours in ORDERS},
}
