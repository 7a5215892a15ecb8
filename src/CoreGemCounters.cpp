// Counters of GEM ports, of the GAL and of FEC.
#include "CounterFeed.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeGemPortPMHistoryDataIf.h"
#include "impl/Log.h"

namespace {

constexpr unsigned short kGalEthernetPmClass = 276;
constexpr unsigned short kFecPmClass = 312;

void writeCounters(OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf& pm, const GemPortCounters& counters)
{
    pm.setTransmittedGemFrames(counters.transmittedFrames);
    pm.setReceivedGemFrames(counters.receivedFrames);
    pm.setReceivedPayloadBytes(counters.receivedPayloadBytes);
    pm.setTransmittedPayloadBytes(counters.transmittedPayloadBytes);
    pm.setEncryptionKeyErrors(counters.encryptionKeyErrors);
}

void writeCounters(OmciMeGemPortPMHistoryDataIf& pm, const GemPortCounters& counters)
{
    pm.setReceivedPackets(counters.receivedFrames);
    // The store is 32 bits wide, whatever the five bytes on the wire could carry.
    pm.setReceivedBlocks(static_cast<unsigned int>(counters.receivedPayloadBytes));
    pm.setTransmittedBlocks(static_cast<unsigned int>(counters.transmittedPayloadBytes));
    pm.setLostPackets(counters.lostPackets);
}

/// Writes the PM entity of that id, if the class has one.
template <typename If>
bool feedInstance(unsigned short instance, const GemPortCounters& counters)
{
    If* pm = If::getManagedEntityInstance(instance);
    if (pm == nullptr) {
        return false;
    }
    // An error only by its level, which operators filter for.
    NRVK_LOG(3, "Updating the Gem Port PM counters");
    writeCounters(*pm, counters);
    return true;
}

}  // namespace

int OmciManagedEntitiesCore::updateGemPortNetworkCtpPM(unsigned short instance, unsigned short portId,
                                                       GemPortCounters counters)
{
    NRVK_LOG(6, "Instance(%hu); Port id(%hu)", instance, portId);
    using CtpIf = OmciMeGemPortNetworkCtpIf;
    const CtpIf* ctp = CtpIf::getFirstManagedEntityInstance();
    while (ctp != nullptr) {
        const unsigned short found = ctp->getManagedEntityInstance();
        if (ctp->getPortId(OMCI_ACTION_GET) == portId &&
            (feedInstance<OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf>(found, counters) ||
             feedInstance<OmciMeGemPortPMHistoryDataIf>(found, counters))) {
            return 0;
        }
        ctp = CtpIf::getNextManagedEntityInstance(found);
    }
    return 0;
}

int OmciManagedEntitiesCore::updateGalEthPmHistData(unsigned short instance, GalEthPMHistData data)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    nrvk::feedCounters(kGalEthernetPmClass, instance, data.discardedFrames);
    return 0;
}

int OmciManagedEntitiesCore::updateTwdmFecStats(unsigned short instance, TwdmFecCounters counters)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    nrvk::feedCounters(kFecPmClass, instance, counters.correctedBytes, counters.correctedCodeWords,
                       counters.uncorrectableCodeWords, counters.totalCodeWords, counters.fecSeconds);
    return 0;
}
