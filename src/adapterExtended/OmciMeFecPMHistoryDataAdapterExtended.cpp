#include "adapterExtended/OmciMeFecPMHistoryDataAdapterExtended.h"

#include "adapterExtended/PmRefresh.h"

int OmciMeFecPMHistoryDataAdapterExtended::getAttribute(unsigned short instance, const attributeDefinition* definition,
                                                        unsigned char* buffer, EnumOmciAction action) const
{
    nrvk::refreshFecPm(instance, action);
    return OmciMeFecPMHistoryDataAdapter::getAttribute(instance, definition, buffer, action);
}
