#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART1ADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART1ADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelTuningPMHistoryDataPart1Adapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel tuning performance monitoring history data part 1 (class 65411): it serves get current data.
class OmciMeTWDMChannelTuningPMHistoryDataPart1AdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelTuningPMHistoryDataPart1Adapter>
{};

#endif
