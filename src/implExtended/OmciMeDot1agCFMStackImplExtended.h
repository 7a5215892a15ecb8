#ifndef NRVK_IMPL_EXTENDED_OMCIMEDOT1AGCFMSTACKIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEDOT1AGCFMSTACKIMPLEXTENDED_H

#include "impl/MpStatusTable.h"
#include "impl/OmciMeDot1agCFMStackImpl.h"
#include "implExtended/NoHardware.h"

/// Dot1ag CFM stack (G.988 9.3.25, class 305): nothing feeds the MP status table, so it is announced empty, and its
/// first row reads as zeros.
class OmciMeDot1agCFMStackImplExtended : public nrvk::DataPathEntity<OmciMeDot1agCFMStackImpl>,
                                         public nrvk::MpStatusTable
{
public:
    using NoHardware::NoHardware;

    /// 0 rows; starts a read.
    unsigned int getMpStatusTable(EnumOmciAction action) const override;

    unsigned char highestSequenceNumber() const override { return m_HighestSequenceNumber; }
    /// Leaves the buffer as it is; sequence numbers above 5 are out of range.
    int getNextMpStatusTableEntry(unsigned short sequenceNumber, unsigned char* buffer) override;

private:
    /// Set by a getter, which the OMCI thread alone calls.
    mutable unsigned char m_HighestSequenceNumber = 0;
};

#endif
