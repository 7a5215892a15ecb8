#include "app/TimeOfDay.h"

#include "terminal/TimeText.h"

namespace olt {

std::string timeOfDay()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return timeText(std::chrono::duration_cast<std::chrono::microseconds>(now), 3);
}

}  // namespace olt
