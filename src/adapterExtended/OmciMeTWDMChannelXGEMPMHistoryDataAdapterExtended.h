#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELXGEMPMHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELXGEMPMHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelXGEMPMHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel XGEM performance monitoring history data (class 65407): it serves get current data.
class OmciMeTWDMChannelXGEMPMHistoryDataAdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelXGEMPMHistoryDataAdapter>
{};

#endif
