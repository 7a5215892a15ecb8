#ifndef NRVK_ADAPTER_EXTENDED_MESSAGE_SNAPSHOT_H
#define NRVK_ADAPTER_EXTENDED_MESSAGE_SNAPSHOT_H

#include <map>
#include <memory>

#include "OmciMessage.h"

namespace nrvk {

/// Ready-made frame contents by sequence number, as a MIB upload or get all alarms took them.
class MessageSnapshot
{
public:
    void clear() { m_Messages.clear(); }
    std::size_t size() const { return m_Messages.size(); }

    /// Copies the bytes. -1 for a null buffer, and for a number that is there already: the older message stays.
    int setMessage(unsigned short sequenceNumber, const unsigned char* buffer, unsigned short length);
    /// `length` is the capacity on entry and the message's length on return. A message longer than the capacity is not
    /// copied, and the result is 0 all the same.
    int getMessage(unsigned short sequenceNumber, unsigned char* buffer, unsigned short* length) const;

private:
    std::map<unsigned short, std::unique_ptr<OmciMessage>> m_Messages;
};

}  // namespace nrvk

#endif
