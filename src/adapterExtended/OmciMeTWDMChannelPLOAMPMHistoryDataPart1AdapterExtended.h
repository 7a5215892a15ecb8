#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART1ADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART1ADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelPLOAMPMHistoryDataPart1Adapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel PLOAM performance monitoring history data part 1 (class 65408): it serves get current data.
class OmciMeTWDMChannelPLOAMPMHistoryDataPart1AdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelPLOAMPMHistoryDataPart1Adapter>
{};

#endif
