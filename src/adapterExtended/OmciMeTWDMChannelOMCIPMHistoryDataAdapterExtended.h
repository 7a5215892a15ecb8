#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELOMCIPMHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELOMCIPMHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelOMCIPMHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel OMCI performance monitoring history data (class 65414): it serves get current data.
class OmciMeTWDMChannelOMCIPMHistoryDataAdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelOMCIPMHistoryDataAdapter>
{};

#endif
