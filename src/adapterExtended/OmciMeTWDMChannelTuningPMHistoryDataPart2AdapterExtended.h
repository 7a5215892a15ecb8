#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART2ADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART2ADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelTuningPMHistoryDataPart2Adapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel tuning performance monitoring history data part 2 (class 65412): it serves get current data.
class OmciMeTWDMChannelTuningPMHistoryDataPart2AdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelTuningPMHistoryDataPart2Adapter>
{};

#endif
