#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART2ADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART2ADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelPLOAMPMHistoryDataPart2Adapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel PLOAM performance monitoring history data part 2 (class 65409): it serves get current data.
class OmciMeTWDMChannelPLOAMPMHistoryDataPart2AdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelPLOAMPMHistoryDataPart2Adapter>
{};

#endif
