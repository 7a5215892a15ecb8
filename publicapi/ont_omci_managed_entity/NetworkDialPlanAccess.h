#ifndef ONT_OMCI_MANAGED_ENTITY_NETWORK_DIAL_PLAN_ACCESS_H
#define ONT_OMCI_MANAGED_ENTITY_NETWORK_DIAL_PLAN_ACCESS_H

#include "Export.h"

class OmciMeNetworkDialPlanTableIf;

/// What the hardware layer asks a network dial plan table (G.988 9.9.10, class 145) for, besides its attributes.
namespace nrvk {

/// Octets of one row: dial plan id, action, and the token as text.
constexpr unsigned int kDialPlanRowSize = 30;

/// Copies the row that came as number `index`, from 0; it ends at its first zero byte and is zero from there. False,
/// and `row` stays as it is, when there are no more. On the OMCI thread.
NRVK_EXPORT bool getDialPlanRow(const OmciMeNetworkDialPlanTableIf& dialPlan, unsigned int index,
                                unsigned char (&row)[kDialPlanRowSize]);

}  // namespace nrvk

#endif
