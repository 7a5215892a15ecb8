#ifndef NRVK_IMPL_EXTENDED_T_CONT_H
#define NRVK_IMPL_EXTENDED_T_CONT_H

#include "impl/OmciMeTContImpl.h"
#include "implExtended/NoHardware.h"

/// T-CONT (G.988 9.2.2, class 262). An allocation id of 0xFF or 0xFFFF is none.
class OmciMeTContImplExtended : public nrvk::DataPathEntity<OmciMeTContImpl>
{
public:
    using NoHardware::NoHardware;

    /// Removes the T-CONT when the allocation id goes, before the new value is stored: the hardware layer reads which
    /// one goes. A new allocation id reaches it with the next GEM service. Always 0.
    int setAllocId(unsigned short value) override;
    int eraseConfigurationFromHardware() override;

private:
    void remove();
};

#endif
