#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEFECPMHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEFECPMHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeFecPMHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// FEC performance monitoring history data (G.988 9.2.9, class 312): the hardware layer is asked at each attribute.
class OmciMeFecPMHistoryDataAdapterExtended : public nrvk::AnnouncedPmAdapter<OmciMeFecPMHistoryDataAdapter>
{
public:
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override;
};

#endif
