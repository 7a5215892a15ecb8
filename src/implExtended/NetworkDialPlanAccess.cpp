#include "NetworkDialPlanAccess.h"

#include <algorithm>

#include "implExtended/OmciMeNetworkDialPlanTableImplExtended.h"

namespace nrvk {

bool getDialPlanRow(const OmciMeNetworkDialPlanTableIf& dialPlan, unsigned int index,
                    unsigned char (&row)[kDialPlanRowSize])
{
    // The store makes no other kind of object for the class.
    const auto& rows = static_cast<const OmciMeNetworkDialPlanTableImplExtended&>(dialPlan).getRows();
    if (index >= rows.size()) {
        return false;
    }
    std::copy(rows[index].begin(), rows[index].end(), row);
    return true;
}

}  // namespace nrvk
