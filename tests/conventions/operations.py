"""Virtual operations as host and library have agreed on them, typed by hand: (result, name, parameters, const)."""


def _parse(line):
    constness = line.endswith(" const")
    head, parameters = line.removesuffix(" const").split("(", 1)
    result, name = head.rsplit(" ", 1)
    return result, name, parameters.rstrip(")"), constness


def operations(text):
    return [_parse(line.strip()) for line in text.strip().splitlines()]


# Places 0 and 1 are the destructor's; these follow from 2.
OMCI_ME = operations("""
int activateSoftwareImage(OmciFrame*)
int commitSoftware(OmciFrame*)
int createManagedEntityInstance(unsigned short, bool) const
int deleteManagedEntityInstance(unsigned short, bool) const
int downloadSection(OmciFrame*)
std::string dumpME(unsigned int, unsigned short) const
int endSoftwareDownload(OmciFrame*)
void eraseAllManagedEntityInstances() const
int findManagedEntityInstance(unsigned short) const
bool getAlarmsBitmap(unsigned short, std::bitset<223>&) const
int getAllAlarms(OmciFrame*)
int getAllAlarmsNext(OmciFrame*) const
int getAttribute(unsigned short, const attributeDefinition*, unsigned char*, EnumOmciAction) const
int getAttributesListForAvc(std::list<attributeDefinition>*) const
int getAttributesListForCreate(std::list<attributeDefinition>*) const
int getAttributesListForGet(std::list<attributeDefinition>*) const
int getAttributesListForGetNext(std::list<attributeDefinition>*) const
int getAttributesListForMibUpload(std::list<attributeDefinition>*) const
int getAttributesListForSet(std::list<attributeDefinition>*) const
unsigned short getCreateAttributesMask() const
int getCurrentData(OmciFrame*) const
unsigned short getGetAttributesMask() const
unsigned short getGetNextAttributesMask() const
int getFirstManagedEntityInstance(unsigned short*) const
unsigned short getManagedEntityClassId() const
std::string getManagedEntityName() const
int getMibUploadMessage(unsigned short, unsigned char*, unsigned short*) const
int getNext(OmciFrame*) const
int getNextManagedEntityInstance(unsigned short*) const
unsigned short getSetAttributesMask() const
bool isPartOfAlarmsUpload() const
bool isPartOfMibUpload() const
int mibReset() const
int mibReset(OmciFrame*) const
int mibUpload(OmciFrame*)
int incrementMibDataSyncAttribute()
int mibUploadNext(OmciFrame*) const
int reboot(OmciFrame*) const
int setAttribute(unsigned short, const attributeDefinition*, const unsigned char*) const
int applyConfigurationToHardwareForSet(unsigned short) const
int setGetAllAlarmsMessage(unsigned short, const unsigned char*, unsigned short)
int setMibUploadMessage(unsigned short, const unsigned char*, unsigned short)
void showSoftwareDownloadStatus(FILE*)
int startSoftwareDownload(OmciFrame*)
int synchronizeTime(OmciFrame*) const
int updateAlarmsBitmap(unsigned short, unsigned char, bool) const
void updateRxOmciFifoDepthInBytes(unsigned int)
int test(OmciFrame*) const
""")

# Places 0 and 1 are the destructor's; reservedNN carries the number of its place, counted from 1.
HARDWARE = operations("""
int resetDataPathConfiguration()
int clearEthernetFrameExtendedPmCounters(unsigned short, unsigned int)
int reserved05()
int refreshGemPortCounters(unsigned short, unsigned short, unsigned int)
int resetFecCounters(unsigned short, unsigned int)
int refreshFecCounters(unsigned short, unsigned int)
int findMacBridgePortByTp(unsigned char, unsigned short, OmciMeMacBridgePortConfigurationDataIf**)
int reserved10()
int refreshAniOpticalSignalLevel(unsigned short)
std::vector<unsigned char> getRemoteDebugReply()
int refreshAniTransmitOpticalLevel(unsigned short)
int refreshTwdmChannel(EnumOmciAction, unsigned short)
int reserved15()
int refreshTwdmOmciPm(EnumOmciAction, unsigned short)
int refreshTwdmPhyLodsPm(EnumOmciAction, unsigned short)
int refreshGalEthernetPm(EnumOmciAction, unsigned short)
int refreshTwdmPloamPm(EnumOmciAction, unsigned short)
int refreshTwdmTuningPm(EnumOmciAction, unsigned short)
int refreshTwdmXgemPm(EnumOmciAction, unsigned short)
int getStatusPortalMessage(EnumOmciAction, unsigned short, unsigned char*)
int refreshEthernetFrameCounters(unsigned short, unsigned short, unsigned int, unsigned short, unsigned short)
int refreshEthernetFrameCounters64(unsigned short, unsigned short, unsigned int, unsigned short, unsigned short)
int refreshVoipLineStatus(EnumOmciAction, unsigned short)
bool endSoftwareImageDownload(unsigned char*)
int removeUniService(OmciMePptpEthernetUniIf*)
int reserved28()
int removeGemInterworkingTp(OmciMeGemInterworkingTpIf*)
int removeMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf*)
int removeTCont(OmciMeTContIf*)
int removeBridgePortService(unsigned short)
int removeMapperInterworkingTps(OmciMeMapperServiceProfile802_1PIf*, unsigned short)
int removeVeip(OmciMeVirtualEthernetInterfacePointIf*)
int removeVoipMediaProfile(OmciMeVoipMediaProfileIf*)
int removeSipUser(OmciMeSipUserDataIf*)
int removeSipAgent(OmciMeSipAgentConfigDataIf*)
int provisionGemInterworkingTp(OmciMeGemInterworkingTpIf*)
int provisionMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf*)
int provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf*)
int provisionMapper(OmciMeMapperServiceProfile802_1PIf*)
int provisionVeip(OmciMeVirtualEthernetInterfacePointIf*)
int provisionUniService(OmciMePptpEthernetUniIf*)
int reserved44()
int provisionVoipVoiceCtp(OmciMeVoipVoiceCTPIf*)
int provisionSipAgent(OmciMeSipAgentConfigDataIf*)
int sendAttributeValueChange(OmciMessage*)
unsigned int provisionEvcAndEvcMap(const std::string&, unsigned short, const std::string&, unsigned short, unsigned char, bool, bool)
int setBatteryBackup(unsigned char)
int reserved50()
int setUniAutodetection(unsigned short, unsigned char)
int setGemPortAdminState(unsigned short, unsigned short, unsigned char)
int setUniAdminState(unsigned short, unsigned char)
unsigned char getUniOperationalState(EnumOmciAction, unsigned short)
unsigned int getUniLinkSpeed(EnumOmciAction, unsigned short)
unsigned char getUniDuplex(EnumOmciAction, unsigned short)
int setVideoAdminState(unsigned short, unsigned char)
int applyPotsUni(unsigned short, unsigned int, unsigned char)
int reserved59()
int refreshPotsUni(EnumOmciAction, unsigned short)
int createPmInstance(unsigned short, unsigned short)
int deletePmInstance(unsigned short, unsigned short)
int sendRemoteDebugCommand(const unsigned char*)
int applyTwdmSystemProfile(TwdmSystemProfile)
int setTwdmChannelPartitionIndex(unsigned short, unsigned char)
int setTwdmChannelPartitionWaiverTimer(unsigned short, unsigned int)
int setTwdmDownstreamTuningTimer(unsigned short, unsigned int)
int setTwdmLodsProtectionTimer(unsigned short, unsigned int)
int setTwdmLodsReinitializationTimer(unsigned short, unsigned int)
int setTwdmUpstreamTuningTimer(unsigned short, unsigned int)
int applyVoipConfig(unsigned short, unsigned int, unsigned int)
int reserved72()
int synchronizeTime()
int testAni(unsigned short)
int testOnu(unsigned short)
int reserved76()
int reserved77()
int reserved78()
int reserved79()
int notifyMibUploadState(unsigned char)
int notifySoftwareDownloadStatus(unsigned char)
unsigned char resolveDot1agLayer2Entity(unsigned short, unsigned char, unsigned short*)
int setOltTimeOfDay(unsigned int, unsigned long long, unsigned int)
int notifyOltVendorId()
int setOntTimeOfDay(const time_t*)
""")

# Attributes of a sample of classes by kind: plain, with octets, with a table, with and without hardware binding.
U8, U16, OCTETS, TABLE = "unsigned char", "unsigned short", "const unsigned char*", "table"
BOUND, PLAIN = True, False

SAMPLE_CLASSES = {
    "OmciMeOnuData": (PLAIN, [("MibDataSync", U8)]),
    "OmciMeCardholder": (PLAIN, [
        ("ActualPluginUnitType", U8), ("ExpectedPluginUnitType", U8), ("ExpectedPortType", U8),
        ("ExpectedEquipmentId", OCTETS), ("ActualEquipmentId", OCTETS), ("ProtectionProfilePointer", U8),
        ("InvokeProtectionSwitch", U8), ("Arc", U8), ("ArcInterval", U8)]),
    "OmciMeLargeString": (PLAIN, [("NumberOfParts", U8)] + [(f"Part_{number}", OCTETS) for number in range(1, 16)]),
    "OmciMeTCont": (BOUND, [("AllocId", U16), ("Deprecated", U8), ("Policy", U8)]),
    "OmciMeOnuG": (BOUND, [
        ("VendorId", OCTETS), ("Version", OCTETS), ("SerialNumber", OCTETS), ("TrafficManagementOption", U8),
        ("Deprecated", U8), ("BatteryBackup", U8), ("AdministrativeState", U8), ("OperationalState", U8),
        ("OntSurvivalTime", U8), ("LogicalOnuId", OCTETS), ("LogicalPassword", OCTETS), ("CredentialsStatus", U8),
        ("ExtendedTcLayerOptions", U16)]),
    "OmciMeAniG": (BOUND, [
        ("SrIndication", U8), ("TotalTcontNumber", U16), ("GemBlockLength", U16), ("PiggybackDbaReporting", U8),
        ("Deprecated", U8), ("SfThreshold", U8), ("SdThreshold", U8), ("Arc", U8), ("ArcInterval", U8),
        ("OpticalSignalLevel", U16), ("LowerOpticalThreshold", U8), ("UpperOpticalThreshold", U8),
        ("OnuResponseTime", U16), ("TransmitOpticalLevel", U16), ("LowerTransmitPowerThreshold", U8),
        ("UpperTransmitPowerThreshold", U8)]),
    "OmciMeMacBridgePortConfigurationData": (BOUND, [
        ("BridgeIdPointer", U16), ("PortNum", U8), ("TpType", U8), ("TpPointer", U16), ("PortPriority", U16),
        ("PortPathCost", U16), ("PortSpanningTreeInd", U8), ("Deprecated1", U8), ("Deprecated2", U8),
        ("PortMacAddr", OCTETS), ("OutboundTdPointer", U16), ("InboundTdPointer", U16), ("MacLearningDepth", U8)]),
    "OmciMeExtendedVlanTaggingOperationConfigurationData": (BOUND, [
        ("AssociationType", U8), ("ReceivedFrameVlanTaggingOperationTableMaxSize", U16), ("InputTpid", U16),
        ("OutputTpid", U16), ("DownstreamMode", U8), ("ReceivedFrameVlanTaggingOperationTable", OCTETS),
        ("AssociatedMePointer", U16), ("DscpToPbitMapping", OCTETS)]),
    "OmciMeOnuRemoteDebug": (BOUND, [("CommandFormat", U8), ("Command", OCTETS), ("ReplyTable", TABLE)]),
}


def of_managed_entity(attributes):
    """Virtual operations of an interface class, up to the destructor or, with hardware binding, the hook before it."""
    found = operations("""
        void init()
        unsigned short getManagedEntityInstance() const
        bool isCreatedByOlt() const
    """)
    for name, kind in attributes:
        if kind == TABLE:
            found += [("unsigned int", f"get{name}", "EnumOmciAction", True),
                      ("int", f"set{name}", OCTETS, False)]
        else:
            found += [(kind, f"get{name}", "EnumOmciAction", True), (kind, f"getDefault{name}", "", True),
                      ("int", f"set{name}", kind, False)]
    return found + operations("""
        std::string dumpME(unsigned short) const
        void getAlarmsBitmap(std::bitset<223>&) const
        void updateAlarmsBitmap(unsigned char, bool)
    """)
