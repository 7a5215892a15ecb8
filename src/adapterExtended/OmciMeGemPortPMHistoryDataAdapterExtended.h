#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEGEMPORTPMHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEGEMPORTPMHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeGemPortPMHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// GEM port performance monitoring history data (class 267): the hardware layer is asked by port id.
class OmciMeGemPortPMHistoryDataAdapterExtended
    : public nrvk::GemPortPmAdapter<nrvk::AnnouncedPmAdapter<OmciMeGemPortPMHistoryDataAdapter>>
{};

#endif
