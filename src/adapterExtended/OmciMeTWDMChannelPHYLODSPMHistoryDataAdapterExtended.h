#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPHYLODSPMHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPHYLODSPMHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelPHYLODSPMHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel PHY/LODS performance monitoring history data (class 65406): it serves get current data.
class OmciMeTWDMChannelPHYLODSPMHistoryDataAdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelPHYLODSPMHistoryDataAdapter>
{};

#endif
