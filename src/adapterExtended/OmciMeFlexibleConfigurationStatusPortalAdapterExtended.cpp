#include "adapterExtended/OmciMeFlexibleConfigurationStatusPortalAdapterExtended.h"

#include "OmciMeFlexibleConfigurationStatusPortalIf.h"
#include "adapterExtended/TableReplay.h"
#include "impl/Log.h"

namespace {

const nrvk::ServedTable* findStatusMessage(unsigned short instance)
{
    return dynamic_cast<const nrvk::ServedTable*>(
        OmciMeFlexibleConfigurationStatusPortalIf::getManagedEntityInstance(instance));
}

constexpr nrvk::ReplayedTable kStatusMessage = {0x20, &findStatusMessage, false};

}  // namespace

int OmciMeFlexibleConfigurationStatusPortalAdapterExtended::getNext(OmciFrame* frame) const
{
    NRVK_LOG(6, "Received getNext for FCSP statusMessage");
    return nrvk::replayTable(*this, *this, kStatusMessage, frame);
}

int OmciMeFlexibleConfigurationStatusPortalAdapterExtended::getNextMessage(unsigned short attributeMask,
                                                                           unsigned short sequenceNumber,
                                                                           unsigned char* buffer,
                                                                           unsigned short* length,
                                                                           unsigned short instance) const
{
    return nrvk::replayRow(*this, *this, kStatusMessage, instance, attributeMask, sequenceNumber, buffer, length);
}
