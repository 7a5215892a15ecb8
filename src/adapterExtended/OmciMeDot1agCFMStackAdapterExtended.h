#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEDOT1AGCFMSTACKADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEDOT1AGCFMSTACKADAPTEREXTENDED_H

#include "adapter/OmciMeDot1agCFMStackAdapter.h"

/// Dot1ag CFM stack (G.988 9.3.25, class 305): get next on the MP status table. Rows can be asked for in any order.
class OmciMeDot1agCFMStackAdapterExtended : public OmciMeDot1agCFMStackAdapter
{
public:
    /// 0, or -1 for no frame. The reply's reason: 1 no entity, 2 another attribute, 3 no such row, 5 unknown instance.
    int getNext(OmciFrame* frame) const override;
    /// One row into `buffer`, of at least 18 bytes; `*length` stays as it is. The reason as above.
    int getNextMpStatusTableMessage(unsigned short instance, unsigned short sequenceNumber, unsigned char* buffer,
                                    unsigned short* length) const;

private:
    int readRow(unsigned short instance, unsigned short sequenceNumber, unsigned char* buffer,
                unsigned short* length) const;
};

#endif
