#ifndef OLT_PM_PM_CHART_H
#define OLT_PM_PM_CHART_H

#include <string>

#include "pm/PmSeries.h"

namespace olt {

/// The rates of one counter over its last samples as a row of bars, one character each, the highest as high as the
/// row. A sample without a rate is a blank.
[[nodiscard]] std::string sparkline(const PmSeries& series, const Attribute& counter, std::size_t width);

/// A drawing of all counters over time, one panel below the other with a scale of its own, as an SVG document.
[[nodiscard]] std::string svgChart(const PmSeries& series, const std::string& title);

/// Short form of a rate: three digits and a unit prefix ("12.3k").
[[nodiscard]] std::string formatRate(double rate);

}  // namespace olt

#endif
