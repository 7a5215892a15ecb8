#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART3ADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART3ADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelPLOAMPMHistoryDataPart3Adapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel PLOAM performance monitoring history data part 3 (class 65410): it serves get current data.
class OmciMeTWDMChannelPLOAMPMHistoryDataPart3AdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelPLOAMPMHistoryDataPart3Adapter>
{};

#endif
