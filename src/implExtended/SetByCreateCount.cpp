#include "implExtended/SetByCreateCount.h"

#include <list>

#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "attributeDefinition.h"

namespace nrvk {

unsigned short numberOfSetByCreateAttributes(unsigned short classId)
{
    std::list<attributeDefinition> attributes;
    if (const OmciMe* adapter = OmciMeFactory::getInstance()->getManagedEntity(classId)) {
        adapter->getAttributesListForCreate(&attributes);
    }
    return static_cast<unsigned short>(attributes.size());
}

}  // namespace nrvk
