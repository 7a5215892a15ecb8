#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEFLEXIBLECONFIGURATIONSTATUSPORTALADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEFLEXIBLECONFIGURATIONSTATUSPORTALADAPTEREXTENDED_H

#include "adapter/OmciMeFlexibleConfigurationStatusPortalAdapter.h"
#include "impl/ServedTable.h"

/// Flexible configuration status portal (class 65420): the status message, row by row. A get of the status message
/// starts a read; get next then takes the rows in ascending order, from 0. One sequence serves all instances.
class OmciMeFlexibleConfigurationStatusPortalAdapterExtended : public OmciMeFlexibleConfigurationStatusPortalAdapter,
                                                               public nrvk::RowSequence
{
public:
    /// 0, or -1 for no frame. std::out_of_range for the row after the last.
    int getNext(OmciFrame* frame) const override;
    /// The OMCI result; see nrvk::replayRow. Deliberate: the configuration portal table reads as zeros.
    int getNextMessage(unsigned short attributeMask, unsigned short sequenceNumber, unsigned char* buffer,
                       unsigned short* length, unsigned short instance) const;
};

#endif
