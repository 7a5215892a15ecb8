#ifndef OLT_APP_TIME_OF_DAY_H
#define OLT_APP_TIME_OF_DAY_H

#include <string>

namespace olt {

/// The time of the machine in UTC, "2024-02-29T12:34:56.789Z".
[[nodiscard]] std::string timeOfDay();

}  // namespace olt

#endif
