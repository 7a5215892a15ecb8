#ifndef NRVK_IMPL_EXTENDED_OMCIMEONUREMOTEDEBUGIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEONUREMOTEDEBUGIMPLEXTENDED_H

#include "impl/OmciMeOnuRemoteDebugImpl.h"
#include "impl/ServedTable.h"
#include "implExtended/NoHardware.h"

/// ONU remote debug (G.988 9.1.12, class 158): commands go to the hardware layer's debug service, its reply is kept as
/// rows of 29 bytes for get next.
class OmciMeOnuRemoteDebugImplExtended : public nrvk::NoHardware<OmciMeOnuRemoteDebugImpl, -1>, public nrvk::ServedTable
{
public:
    using NoHardware::NoHardware;

    /// 25 bytes, passed on and not stored. Always 0.
    int setCommand(const unsigned char* command) override;
    /// For a Get: fetches the reply, keeps it as rows and sets get next back to row 0; yields the reply's bytes. 0 for
    /// any other action.
    unsigned int getReplyTable(EnumOmciAction action) const override;

    void eraseReplyTable() { m_ReplyTable.clear(); }
    /// The number of rows.
    unsigned int getReplyTableSize() const { return static_cast<unsigned int>(m_ReplyTable.size()); }
    /// Throws std::out_of_range for a row that is not there.
    Row getReplyTableEntry(unsigned short number) const { return m_ReplyTable.at(number); }

    unsigned int servedRows() const override { return getReplyTableSize(); }
    Row servedRow(unsigned short number) const override { return getReplyTableEntry(number); }

private:
    unsigned int fetchReply();
};

#endif
