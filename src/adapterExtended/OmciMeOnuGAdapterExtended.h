#ifndef NRVK_ADAPTER_EXTENDED_OMCI_ME_ONU_G_H
#define NRVK_ADAPTER_EXTENDED_OMCI_ME_ONU_G_H

#include "adapter/OmciMeOnuGAdapter.h"

/// ONU-G (G.988 9.1.1, class 256): the commands to the ONU as a device. All on the host's OMCI thread.
class OmciMeOnuGAdapterExtended : public OmciMeOnuGAdapter
{
public:
    /// Restarts the machine. The reply stands in the frame before that; -1 for no frame, or, with result 5, for an
    /// unknown instance.
    int reboot(OmciFrame* frame) const override;
    /// Has the hardware layer set its clock; failures as of reboot.
    int synchronizeTime(OmciFrame* frame) const override;
    /// The result is the OMCI result for the reply, which the host sends.
    int test(OmciFrame* frame) const override;

private:
    /// Null frames and frames to an unknown instance are logged, the latter answered.
    bool isForInstance(OmciFrame* frame) const;
};

#endif
