#include "BoardHal.h"

std::string BoardHal::halGetPrimaryMacAddress(std::string)
{
    return toString(m_Primary);
}

std::string BoardHal::halGetSecondaryMacAddress(std::string)
{
    MacAddress secondary = m_Primary;
    for (std::size_t i = secondary.size(); i != 0 && ++secondary[i - 1] == 0; --i) {
    }
    return toString(secondary);
}
