#include "implExtended/OmciMeDot1agCFMStackImplExtended.h"

#include "impl/Log.h"

unsigned int OmciMeDot1agCFMStackImplExtended::getMpStatusTable(EnumOmciAction /*action*/) const
{
    constexpr unsigned int rows = 0;
    m_HighestSequenceNumber = 0;
    NRVK_LOG(6, "CfmStack Inst %04x MpStatusTableLen= %d", m_ManagedEntityInstance, rows);
    return rows;
}

int OmciMeDot1agCFMStackImplExtended::getNextMpStatusTableEntry(unsigned short sequenceNumber,
                                                                unsigned char* /*buffer*/)
{
    constexpr unsigned short lastSequenceNumber = 5;
    NRVK_LOG(6, "CfmStack Inst %04x MpStatusTable SequNo %d", m_ManagedEntityInstance, sequenceNumber);
    if (sequenceNumber > lastSequenceNumber) {
        NRVK_LOG(3, "CfmStack Requested SequenceNo out of range, abort!");
        return -1;
    }
    return 0;
}
