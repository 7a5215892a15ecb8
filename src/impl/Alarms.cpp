#include "impl/Alarms.h"

#include <array>

namespace nrvk {

void copyAlarmsBitmap(const ManagedEntityDescription& description, const AlarmsBitmap& alarms, AlarmsBitmap& copy)
{
    static const LogName function("getAlarmsBitmap");
    copy = alarms;
    std::array<char, AlarmsBitmap().size() + 1> text{};
    for (std::size_t i = 0; i < alarms.size(); ++i) {
        text[i] = alarms[alarms.size() - 1 - i] ? '1' : '0';
    }
    const char* rendered = text.data();
    logForClass(function, description.file, description.line, 6, "Alarm bitmap(%s)", rendered);
}

void changeAlarm(const ManagedEntityDescription& description, AlarmsBitmap& alarms, unsigned char alarmNumber,
                 bool state)
{
    static const LogName function("updateAlarmsBitmap");
    // The text is logged so, without its second percent sign.
    logForClass(function, description.file, description.line, 6, "Alarm number(%hhu), State(hhu)", alarmNumber, state);
    alarms.set(alarmNumber, state);
}

}  // namespace nrvk
