#ifndef OLT_MODEL_ALARMS_H
#define OLT_MODEL_ALARMS_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace olt {

/// What G.988 calls an alarm of a class; empty where it isn't listed here.
[[nodiscard]] std::string alarmName(std::uint16_t entityClass, unsigned number);

/// Octets of an alarm bitmap: alarm n is bit 7 - n % 8 of octet n / 8.
using AlarmBitmap = std::array<std::uint8_t, 28>;

/// Numbers of the alarms that are raised, ascending.
[[nodiscard]] std::vector<unsigned> raisedAlarms(const AlarmBitmap& bitmap);

}  // namespace olt

#endif
