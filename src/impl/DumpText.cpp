#include "impl/DumpText.h"

#include <algorithm>
#include <cctype>
#include <iomanip>
#include <sstream>

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

/// One past the longest label of the class, whatever the mask.
std::size_t valueColumn(const ManagedEntityDescription& description)
{
    std::size_t column = 0;
    for (unsigned int i = 0; i < description.attributeCount; ++i) {
        column = std::max(column, labelText(description.attributes[i]).size() + 1);
    }
    return column;
}

void writeOctets(std::ostream& text, const unsigned char* value, unsigned int size)
{
    for (unsigned int i = 0; i < size; ++i) {
        text << std::hex << std::setfill('0') << std::setw(2) << static_cast<unsigned int>(value[i]) << ' ';
    }
}

void writeValue(std::ostream& text, AttributeForm form, DumpValue value, unsigned int size)
{
    switch (form) {
    case AttributeForm::Octets:
        writeOctets(text, value.octets, size);
        break;
    case AttributeForm::S8:
    case AttributeForm::S16:
        text << static_cast<long long>(value.number);
        break;
    default:
        text << value.number;
        break;
    }
    text << '\n';
}

void writeAlarms(std::ostream& text, const std::bitset<223>& alarms)
{
    text << "\n  Active alarms\n";
    if (alarms.none()) {
        text << "    No active alarms\n";
    }
    for (std::size_t alarm = 0; alarm < alarms.size(); ++alarm) {
        if (alarms.test(alarm)) {
            text << "    " << static_cast<char>(alarm) << '\n';
        }
    }
}

}  // namespace

std::string dumpText(const ManagedEntityDescription& description, unsigned short instance, unsigned short attributeMask,
                     const DumpValue* values, const std::bitset<223>& alarms)
{
    std::ostringstream text;
    const std::string shortName = description.shortName;
    text << shortName << '(' << description.classId << "; " << instance << ")\n"
         << std::string(shortName.size(), '-') << '\n';
    const std::size_t column = valueColumn(description);
    for (unsigned int i = 0; i < description.attributeCount; ++i) {
        const AttributeDescription& attribute = description.attributes[i];
        if ((attributeMask & attribute.definition.attributeMask) == 0) {
            continue;
        }
        const std::string label = labelText(attribute);
        text << label << std::string(column - label.size(), ' ') << "= ";
        writeValue(text, description.forms[i], values[i], attribute.definition.attributeSize);
    }
    writeAlarms(text, alarms);
    text << "\n\n";
    return text.str();
}

}  // namespace nrvk
