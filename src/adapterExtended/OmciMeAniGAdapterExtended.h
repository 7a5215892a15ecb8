#ifndef NRVK_ADAPTER_EXTENDED_OMCI_ME_ANI_G_H
#define NRVK_ADAPTER_EXTENDED_OMCI_ME_ANI_G_H

#include "adapter/OmciMeAniGAdapter.h"

/// ANI-G (G.988 9.2.1, class 263): the self-test of the optical interface.
class OmciMeAniGAdapterExtended : public OmciMeAniGAdapter
{
public:
    /// The result is the OMCI result for the reply, which the host sends.
    int test(OmciFrame* frame) const override;
};

#endif
