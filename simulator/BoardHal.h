#ifndef SIMULATOR_BOARD_HAL_H
#define SIMULATOR_BOARD_HAL_H

#include "HALFactory.h"
#include "MacAddress.h"

/// The board's two MAC addresses: the one given, and the next.
class BoardHal : public NrvkHal
{
public:
    explicit BoardHal(const MacAddress& primary) : m_Primary(primary) {}

    std::string halGetPrimaryMacAddress(std::string name) override;
    std::string halGetSecondaryMacAddress(std::string name) override;

private:
    MacAddress m_Primary;
};

#endif
