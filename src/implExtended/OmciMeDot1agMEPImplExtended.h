#ifndef NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMEPIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMEPIMPLEXTENDED_H

#include "impl/OmciMeDot1agMEPImpl.h"
#include "implExtended/NoHardware.h"

/// Dot1ag MEP (G.988 9.3.22, class 302): each MEP has a MEP status (class 303) under its id, which comes and goes with
/// it. The layer-2 entity is only checked: one that cannot be resolved is logged and stored all the same.
class OmciMeDot1agMEPImplExtended : public nrvk::DataPathEntity<OmciMeDot1agMEPImpl>
{
public:
    OmciMeDot1agMEPImplExtended(unsigned short instance, bool createdByOlt);
    ~OmciMeDot1agMEPImplExtended() override;
    OmciMeDot1agMEPImplExtended(const OmciMeDot1agMEPImplExtended&) = delete;
    OmciMeDot1agMEPImplExtended& operator=(const OmciMeDot1agMEPImplExtended&) = delete;

    int setLayer2EntityPointer(unsigned short value) override;
    int setLayer2Type(unsigned char value) override;
};

#endif
