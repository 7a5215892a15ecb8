#include "Mib.h"

#include <list>
#include <vector>

#include "Logger.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"

namespace bench {

void startUp()
{
    std::vector<StartupConfigManagedEntity> managedEntities;
    const BoardSpecificConfig board = {8, 4, 0, 1, 1, 8, 4, 2};
    OmciManagedEntitiesCore(board).getManagedEntitiesCore(managedEntities);
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    registrar->setSupportedManagedEntities(managedEntities);
    registrar->registerSupportedManagedEntities();
}

void dropReports()
{
    Logger::getInstance(150)->setLevel(2);
}

OmciMe& adapter(unsigned short classId)
{
    return *OmciMeFactory::getInstance()->getManagedEntity(classId);
}

attributeDefinition definition(unsigned short classId, unsigned short mask)
{
    std::list<attributeDefinition> list;
    adapter(classId).getAttributesListForGet(&list);
    for (const attributeDefinition& found : list) {
        if (found.attributeMask == mask) {
            return found;
        }
    }
    return {};
}

}  // namespace bench
