#include "model/Alarms.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace olt {

namespace {

struct AlarmName
{
    std::uint16_t entityClass;
    unsigned number;
    std::string_view name;
};

constexpr std::array kAlarmNames{
    AlarmName{5, 0, "plug-in circuit pack missing"},
    AlarmName{5, 1, "plug-in type mismatch"},
    AlarmName{5, 2, "improper card removal"},
    AlarmName{5, 3, "plug-in equipment id mismatch"},
    AlarmName{5, 4, "protection switch"},
    AlarmName{6, 0, "equipment alarm"},
    AlarmName{6, 1, "powering alarm"},
    AlarmName{6, 2, "self-test failure"},
    AlarmName{6, 3, "laser end of life"},
    AlarmName{6, 4, "temperature yellow"},
    AlarmName{6, 5, "temperature red"},
    AlarmName{11, 0, "LAN loss of signal"},
    AlarmName{47, 0, "port blocking"},
    AlarmName{256, 0, "equipment alarm"},
    AlarmName{256, 1, "powering alarm"},
    AlarmName{256, 2, "battery missing"},
    AlarmName{256, 3, "battery failure"},
    AlarmName{256, 4, "battery low"},
    AlarmName{256, 5, "physical intrusion"},
    AlarmName{256, 6, "self-test failure"},
    AlarmName{256, 7, "dying gasp"},
    AlarmName{256, 8, "temperature yellow"},
    AlarmName{256, 9, "temperature red"},
    AlarmName{256, 10, "voltage yellow"},
    AlarmName{256, 11, "voltage red"},
    AlarmName{256, 12, "manual power off"},
    AlarmName{256, 13, "invalid software image"},
    AlarmName{256, 14, "PSE overload yellow"},
    AlarmName{256, 15, "PSE overload red"},
    AlarmName{263, 0, "low received optical power"},
    AlarmName{263, 1, "high received optical power"},
    AlarmName{263, 2, "signal fail"},
    AlarmName{263, 3, "signal degrade"},
    AlarmName{263, 4, "low transmit optical power"},
    AlarmName{263, 5, "high transmit optical power"},
    AlarmName{263, 6, "laser bias current"},
    AlarmName{267, 0, "threshold crossed: lost packets"},
    AlarmName{268, 5, "end-to-end loss of continuity"},
    AlarmName{276, 0, "threshold crossed: discarded frames"},
    AlarmName{277, 0, "block loss"},
    AlarmName{312, 0, "threshold crossed: corrected bytes"},
    AlarmName{312, 1, "threshold crossed: corrected code words"},
    AlarmName{312, 2, "threshold crossed: uncorrectable code words"},
    AlarmName{312, 4, "threshold crossed: FEC seconds"},
    AlarmName{321, 0, "threshold crossed: drop events"},
    AlarmName{321, 1, "threshold crossed: CRC errored packets"},
    AlarmName{321, 2, "threshold crossed: undersize packets"},
    AlarmName{321, 3, "threshold crossed: oversize packets"},
    AlarmName{322, 0, "threshold crossed: drop events"},
    AlarmName{322, 1, "threshold crossed: CRC errored packets"},
    AlarmName{322, 2, "threshold crossed: undersize packets"},
    AlarmName{322, 3, "threshold crossed: oversize packets"},
    AlarmName{329, 0, "connecting function fail"},
    AlarmName{334, 1, "threshold crossed: drop events"},
    AlarmName{334, 2, "threshold crossed: CRC errored frames"},
    AlarmName{334, 3, "threshold crossed: undersize frames"},
    AlarmName{334, 4, "threshold crossed: oversize frames"},
    AlarmName{341, 1, "threshold crossed: encryption key errors"},
    AlarmName{425, 1, "threshold crossed: drop events"},
    AlarmName{425, 2, "threshold crossed: CRC errored frames"},
    AlarmName{425, 3, "threshold crossed: undersize frames"},
    AlarmName{425, 4, "threshold crossed: oversize frames"},
};

}  // namespace

std::string alarmName(std::uint16_t entityClass, unsigned number)
{
    const auto* const found = std::find_if(kAlarmNames.begin(), kAlarmNames.end(), [&](const AlarmName& a) {
        return a.entityClass == entityClass && a.number == number;
    });
    return found == kAlarmNames.end() ? "" : std::string(found->name);
}

std::vector<unsigned> raisedAlarms(const AlarmBitmap& bitmap)
{
    std::vector<unsigned> raised;
    for (unsigned number = 0; number < 8 * bitmap.size(); ++number) {
        if ((bitmap[number / 8] >> (7 - number % 8) & 1) != 0)
            raised.push_back(number);
    }
    return raised;
}

}  // namespace olt
