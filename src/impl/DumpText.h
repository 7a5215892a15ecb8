#ifndef NRVK_IMPL_DUMP_TEXT_H
#define NRVK_IMPL_DUMP_TEXT_H

#include <bitset>
#include <sstream>
#include <string>

#include "impl/ManagedEntityDescription.h"

namespace nrvk {

/// The text of one instance: header, the attributes of the mask, the active alarms.
///
/// Attributes are given in order; those outside the mask are skipped. After an octet attribute integers come out in
/// hexadecimal: operators' scripts know the text so.
class DumpText
{
public:
    DumpText(const ManagedEntityDescription& description, unsigned short instance, unsigned short attributeMask);

    void number(unsigned int attribute, unsigned long long value);
    void signedNumber(unsigned int attribute, long long value);
    void octets(unsigned int attribute, const unsigned char* value);
    /// Ends the text; `alarms` bit n is alarm n, shown as the character of that code.
    std::string finish(const std::bitset<223>& alarms);

private:
    bool label(unsigned int attribute);

    const ManagedEntityDescription& m_Description;
    unsigned short m_AttributeMask;
    std::string::size_type m_ValueColumn = 0;
    std::ostringstream m_Text;
};

}  // namespace nrvk

#endif
