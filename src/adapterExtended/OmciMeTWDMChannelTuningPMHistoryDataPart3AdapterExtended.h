#ifndef NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART3ADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART3ADAPTEREXTENDED_H

#include "adapter/OmciMeTWDMChannelTuningPMHistoryDataPart3Adapter.h"
#include "adapterExtended/PmAdapter.h"

/// TWDM channel tuning performance monitoring history data part 3 (class 65413): it serves get current data.
class OmciMeTWDMChannelTuningPMHistoryDataPart3AdapterExtended
    : public nrvk::PmAdapter<OmciMeTWDMChannelTuningPMHistoryDataPart3Adapter>
{};

#endif
