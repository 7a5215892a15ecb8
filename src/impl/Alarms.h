#ifndef NRVK_IMPL_ALARMS_H
#define NRVK_IMPL_ALARMS_H

#include <bitset>

#include "impl/ManagedEntityDescription.h"

namespace nrvk {

using AlarmsBitmap = std::bitset<223>;

/// Copies the bitmap out and logs it as 223 characters, the highest alarm first.
void copyAlarmsBitmap(const ManagedEntityDescription& description, const AlarmsBitmap& alarms, AlarmsBitmap& copy);
/// Throws std::out_of_range from alarm number 223 upward.
void changeAlarm(const ManagedEntityDescription& description, AlarmsBitmap& alarms, unsigned char alarmNumber,
                 bool state);

}  // namespace nrvk

#endif
