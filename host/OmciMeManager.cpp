#include "omci_host/OmciMeManager.h"

#include "AttributeLists.h"
#include "omci_host/OmciMeFactory.h"

OmciMeManager* OmciMeManager::getInstance()
{
    static OmciMeManager manager;
    return &manager;
}

int OmciMeManager::getAttributeSize(unsigned short classId, unsigned short attributeMask, unsigned char* size)
{
    const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr || size == nullptr) {
        return -1;
    }
    const unsigned short known = omci::AttributeListCache::instance().of(*me)->size(attributeMask);
    if (known == 0) {
        return -1;
    }
    *size = static_cast<unsigned char>(known);
    return 0;
}
