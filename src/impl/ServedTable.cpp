#include "impl/ServedTable.h"

#include "OmciMe.h"
#include "OmciMeFactory.h"

void nrvk::restartRowSequence(unsigned short classId)
{
    if (auto* sequence = dynamic_cast<RowSequence*>(OmciMeFactory::getInstance()->getManagedEntity(classId))) {
        sequence->init();
    }
}
