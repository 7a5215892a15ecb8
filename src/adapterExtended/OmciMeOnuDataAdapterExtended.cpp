#include "adapterExtended/OmciMeOnuDataAdapterExtended.h"

#include <array>
#include <exception>

#include "OmciFrame.h"
#include "OmciHardwareIfc.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeFactory.h"
#include "OmciMeOnuDataIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"
#include "impl/RegistrarLock.h"

std::atomic<unsigned char> OmciMeOnuDataAdapterExtended::m_GetAllAlarmsInProgress{0};
std::atomic<unsigned char> OmciMeOnuDataAdapterExtended::m_MibUploadInProgress{0};
nrvk::MessageSnapshot OmciMeOnuDataAdapterExtended::m_GetAllAlarmsMessagesMap;
nrvk::MessageSnapshot OmciMeOnuDataAdapterExtended::m_MibUploadMessagesMap;

namespace {

constexpr unsigned int kSupervisionMilliseconds = 60000;
constexpr unsigned char kUnknownInstance = 5;
constexpr unsigned char kNetworkStateAttemptOltSync = 3;
constexpr unsigned char kNetworkStateOltSync = 4;

/// The answers of an upload carry no result: an exception would make them tell of an empty MIB.
void notifyNetworkState(unsigned char state)
{
    try {
        if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
            hardware->notifyMibUploadState(state);
        }
    } catch (const std::exception& exception) {
        NRVK_LOG_IF_POSSIBLE(3, "notifyMibUploadState(%hhu) failed(%s)", state, exception.what());
    } catch (...) {
        NRVK_LOG_IF_POSSIBLE(3, "notifyMibUploadState(%hhu) failed(%s)", state, "unknown exception");
    }
}

/// One reply of a replay: starts zeroed, and holds what its format can carry.
struct ReplyContents
{
    explicit ReplyContents(const OmciFrame& frame)
        : length(frame.getDeviceId() == OmciFrame::kBaselineDeviceId ? OmciFrame::kBaselineContentLength
                                                                     : OmciFrame::kMaximumContentLength)
    {}

    std::array<unsigned char, OmciFrame::kMaximumContentLength> bytes{};
    unsigned short length;
};

/// False for a request too short to hold its sequence number.
bool readSequenceNumber(const OmciFrame& frame, unsigned short& sequenceNumber)
{
    const unsigned char* contents = frame.getMessageContent();
    if (contents == nullptr || frame.getMessageContentLength() < 2) {
        return false;
    }
    sequenceNumber = static_cast<unsigned short>((contents[0] << 8) | contents[1]);
    return true;
}

}  // namespace

OmciMeOnuDataAdapterExtended::OmciMeOnuDataAdapterExtended()
{
    init();
}

OmciMeOnuDataAdapterExtended::~OmciMeOnuDataAdapterExtended()
{
    m_GetAllAlarmsMessagesMap.clear();
    m_GetAllAlarmsTimer.reset();
    m_MibUploadMessagesMap.clear();
    m_MibUploadTimer.reset();
}

void OmciMeOnuDataAdapterExtended::init()
{
    m_GetAllAlarmsTimer = std::make_unique<NorvikTimer>(getAllAlarmsTimerHandler, this);
    m_MibUploadTimer = std::make_unique<NorvikTimer>(mibUploadTimerHandler, this);
    m_GetAllAlarmsMessagesMap.clear();
    m_MibUploadMessagesMap.clear();
    m_GetAllAlarmsInProgress = 0;
    m_MibUploadInProgress = 0;
}

int OmciMeOnuDataAdapterExtended::mibUpload(OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    NRVK_LOG(6, "Instance(%hu)", instance);
    m_MibUploadMessagesMap.clear();
    unsigned short count = 0;
    if (findManagedEntityInstance(instance) == 0) {
        mibUploadExec(frame, count);
    } else {
        NRVK_LOG(3, "Instance(%hu) doesn't exists", instance);
    }
    if (findManagedEntityInstance(instance) == 0) {
        // A milestone that must appear in every log, hence its level.
        NRVK_LOG(3, "Mib upload start Notification sent to hardware manager NetworkState_AttemptOltSync");
        notifyNetworkState(kNetworkStateAttemptOltSync);
    }
    frame->setFrameToSendBackToOLT(0, count, 0, 0, nullptr, 0);
    if (count != 0) {
        m_MibUploadInProgress = 1;
        m_MibUploadTimer->startOneShotTimer(kSupervisionMilliseconds);
    }
    NRVK_LOG(6, "MIB upload next commands required to complete a MIB upload(%hu)", count);
    return 0;
}

int OmciMeOnuDataAdapterExtended::invokeMibUploadExec(OmciFrame* frame, unsigned short& count)
{
    m_MibUploadMessagesMap.clear();
    const int result = mibUploadExec(frame, count);
    NRVK_LOG(6, "MIBUPLOAD frames generations completed. No. of MEs to be uploaded is: %u", count);
    return result;
}

int OmciMeOnuDataAdapterExtended::setMibUploadMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                                                      unsigned short length)
{
    return m_MibUploadMessagesMap.setMessage(sequenceNumber, buffer, length);
}

int OmciMeOnuDataAdapterExtended::getMibUploadMessage(unsigned short sequenceNumber, unsigned char* buffer,
                                                      unsigned short* length) const
{
    return m_MibUploadMessagesMap.getMessage(sequenceNumber, buffer, length);
}

int OmciMeOnuDataAdapterExtended::mibUploadNext(OmciFrame* frame) const
{
    unsigned short sequenceNumber = 0;
    if (frame == nullptr || !readSequenceNumber(*frame, sequenceNumber)) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    NRVK_LOG(6, "Instance(%hu); Sequence number(%hu)", instance, sequenceNumber);
    ReplyContents reply(*frame);
    if (findManagedEntityInstance(instance) != 0) {
        NRVK_LOG(3, "Instance(%hu) doesn't exists", instance);
    } else if (getMibUploadMessage(sequenceNumber, reply.bytes.data(), &reply.length) != 0) {
        NRVK_LOG(3, "Failed to retrieve the MIB upload next(%hu) message", sequenceNumber);
    }
    // A number out of range is answered with success and zeros: OLTs take that as the end.
    frame->setFrameToSendBackToOLT(0, 0, 0, 0, reply.bytes.data(), reply.length);
    if (sequenceNumber != 0) {
        m_MibUploadTimer->startOneShotTimer(kSupervisionMilliseconds);
    }
    // On 32 bits, so that an empty snapshot has no last frame.
    if (sequenceNumber == static_cast<unsigned int>(m_MibUploadMessagesMap.size()) - 1U) {
        NRVK_LOG(3, "Mib upload END Notification sent to hardware manager NetworkState_OltSync");
        notifyNetworkState(kNetworkStateOltSync);
    }
    return 0;
}

void OmciMeOnuDataAdapterExtended::mibUploadTimerHandler(sigval /*argument*/)
{
    m_MibUploadInProgress = 0;
}

int OmciMeOnuDataAdapterExtended::getAllAlarms(OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    NRVK_LOG(6, "Instance(%hu)", instance);
    m_GetAllAlarmsMessagesMap.clear();
    unsigned short count = 0;
    if (findManagedEntityInstance(instance) == 0) {
        getAllAlarmsExec(frame, count);
    } else {
        NRVK_LOG(3, "Instance(%u) doesn't exists", instance);
    }
    frame->setFrameToSendBackToOLT(0, count, 0, 0, nullptr, 0);
    if (count != 0) {
        m_GetAllAlarmsInProgress = 1;
        m_GetAllAlarmsTimer->startOneShotTimer(kSupervisionMilliseconds);
    }
    NRVK_LOG(6, "Get all alarms next commands required to complete a GET ALL ALARMS(%u)", count);
    return 0;
}

int OmciMeOnuDataAdapterExtended::setGetAllAlarmsMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                                                         unsigned short length)
{
    return m_GetAllAlarmsMessagesMap.setMessage(sequenceNumber, buffer, length);
}

int OmciMeOnuDataAdapterExtended::getAllAlarmsMessage(unsigned short sequenceNumber, unsigned char* buffer,
                                                      unsigned short* length) const
{
    return m_GetAllAlarmsMessagesMap.getMessage(sequenceNumber, buffer, length);
}

int OmciMeOnuDataAdapterExtended::getAllAlarmsNext(OmciFrame* frame) const
{
    unsigned short sequenceNumber = 0;
    if (frame == nullptr || !readSequenceNumber(*frame, sequenceNumber)) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    NRVK_LOG(6, "Instance(%hu); Sequence number(%hu)", instance, sequenceNumber);
    ReplyContents reply(*frame);
    if (findManagedEntityInstance(instance) != 0) {
        NRVK_LOG(3, "Instance(%u) doesn't exists", instance);
    } else if (getAllAlarmsMessage(sequenceNumber, reply.bytes.data(), &reply.length) != 0) {
        NRVK_LOG(3, "Failed to retrieve the alarms next(%u) message", sequenceNumber);
    }
    frame->setFrameToSendBackToOLT(0, 0, 0, 0, reply.bytes.data(), reply.length);
    if (sequenceNumber != 0) {
        // Deliberate: a running alarm replay prolongs the MIB upload's supervision, not its own.
        m_MibUploadTimer->startOneShotTimer(kSupervisionMilliseconds);
    }
    return 0;
}

void OmciMeOnuDataAdapterExtended::getAllAlarmsTimerHandler(sigval /*argument*/)
{
    m_GetAllAlarmsInProgress = 0;
}

int OmciMeOnuDataAdapterExtended::mibReset(OmciFrame* frame) const
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    NRVK_LOG(6, "Instance(%hu)", instance);
    if (findManagedEntityInstance(instance) != 0) {
        frame->setFrameToSendBackToOLT(kUnknownInstance, 0, 0, 0, nullptr, 0);
        NRVK_LOG(3, "Instance(%hu) doesn't exists", instance);
        return -1;
    }
    resetMib();
    return 0;
}

int OmciMeOnuDataAdapterExtended::mibReset() const
{
    const nrvk::RegistrarLock lock(*OmciManagedEntityRegistrar::getInstance());
    resetMib();
    return 0;
}

void OmciMeOnuDataAdapterExtended::resetMib()
{
    NRVK_LOG(6, "MIB reset");
    OmciMeFactory* factory = OmciMeFactory::getInstance();
    for (const OmciMe* me = factory->getFirstManagedEntity(); me != nullptr;
         me = factory->getNextManagedEntity(me->getManagedEntityClassId())) {
        me->eraseAllManagedEntityInstances();
    }
    OmciManagedEntityRegistrar::getInstance()->initializeSupportedManagedEntitiesAndInstances();
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->resetDataPathConfiguration();
    }
}

int OmciMeOnuDataAdapterExtended::incrementMibDataSyncAttribute()
{
    OmciMeOnuDataIf* onuData = OmciMeOnuDataIf::getFirstManagedEntityInstance();
    if (onuData == nullptr) {
        NRVK_LOG(3, "Valid ONUData object not found.");
        return -1;
    }
    const unsigned char dataSync = onuData->getMibDataSync(OMCI_ACTION_GET);
    NRVK_LOG(7, "Current MIB Data Sync attribute value(%u). Incremented the value", dataSync);
    // 0 means "not synchronised since the last MIB reset", so the counter skips it.
    onuData->setMibDataSync(dataSync == 255 ? static_cast<unsigned char>(1) : static_cast<unsigned char>(dataSync + 1));
    return 0;
}
