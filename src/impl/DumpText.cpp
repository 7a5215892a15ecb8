#include "impl/DumpText.h"

#include <algorithm>
#include <cctype>
#include <iomanip>

namespace nrvk {

namespace {

/// "SrIndication" gives "SR_INDICATION": an underscore at each step from a lower-case letter or digit to an upper-case
/// letter.
std::string upperCaseName(const char* name)
{
    std::string upper;
    char previous = '\0';
    for (; *name != '\0'; previous = *name++) {
        const bool step = std::islower(static_cast<unsigned char>(previous)) != 0 ||
                          std::isdigit(static_cast<unsigned char>(previous)) != 0;
        if (step && std::isupper(static_cast<unsigned char>(*name)) != 0) {
            upper += '_';
        }
        upper += static_cast<char>(std::toupper(static_cast<unsigned char>(*name)));
    }
    return upper;
}

std::string labelText(const AttributeDescription& attribute)
{
    const unsigned int size = attribute.definition.attributeSize;
    return "  " + upperCaseName(attribute.name) + " (" + std::to_string(size) + (size == 1 ? " byte)" : " bytes)");
}

}  // namespace

DumpText::DumpText(const ManagedEntityDescription& description, unsigned short instance, unsigned short attributeMask)
    : m_Description(description), m_AttributeMask(attributeMask)
{
    const std::string shortName = description.shortName;
    m_Text << shortName << '(' << description.classId << "; " << instance << ")\n"
           << std::string(shortName.size(), '-') << '\n';
    for (unsigned int i = 0; i < description.attributeCount; ++i) {
        m_ValueColumn = std::max(m_ValueColumn, labelText(description.attributes[i]).size() + 1);
    }
}

bool DumpText::label(unsigned int attribute)
{
    const AttributeDescription& description = m_Description.attributes[attribute];
    if ((m_AttributeMask & description.definition.attributeMask) == 0) {
        return false;
    }
    const std::string text = labelText(description);
    m_Text << text << std::string(m_ValueColumn - text.size(), ' ') << "= ";
    return true;
}

void DumpText::number(unsigned int attribute, unsigned long long value)
{
    if (label(attribute)) {
        m_Text << value << '\n';
    }
}

void DumpText::signedNumber(unsigned int attribute, long long value)
{
    if (label(attribute)) {
        m_Text << value << '\n';
    }
}

void DumpText::octets(unsigned int attribute, const unsigned char* value)
{
    if (!label(attribute)) {
        return;
    }
    const unsigned int size = m_Description.attributes[attribute].definition.attributeSize;
    for (unsigned int i = 0; i < size; ++i) {
        m_Text << std::hex << std::setfill('0') << std::setw(2) << static_cast<unsigned int>(value[i]) << ' ';
    }
    m_Text << '\n';
}

std::string DumpText::finish(const std::bitset<223>& alarms)
{
    m_Text << "\n  Active alarms\n";
    if (alarms.none()) {
        m_Text << "    No active alarms\n";
    }
    for (std::size_t alarm = 0; alarm < alarms.size(); ++alarm) {
        if (alarms.test(alarm)) {
            m_Text << "    " << static_cast<char>(alarm) << '\n';
        }
    }
    m_Text << "\n\n";
    return m_Text.str();
}

}  // namespace nrvk
