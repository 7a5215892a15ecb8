// Requests about performance monitoring: intervals, traffic, alerts.
#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"
#include "Onu.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"

namespace {
using Duration = PerformanceMonitoring::Duration;
using Interval = OmciMeEthernetFrameExtendedPMCommonImplExtended;

constexpr double kShortestInterval = 0.1;
constexpr double kLongestInterval = 86400;
constexpr double kLongestAdvance = 1e7;

double secondsOf(Duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

std::optional<Duration> durationOf(const RequestFields& fields, const char* field, double low, double high)
{
    if (!fields.has(field)) {
        return std::nullopt;
    }
    const Json& value = fields.member(field);
    if (!value.is_number() || value.get<double>() < low || value.get<double>() > high) {
        throw BadRequest(std::string("pm.") + field + " is not a number of seconds from " + Json(low).dump() + " to " +
                         Json(high).dump());
    }
    return std::chrono::duration_cast<Duration>(std::chrono::duration<double>(value.get<double>()));
}

std::optional<bool> switchOf(const RequestFields& fields, const char* field)
{
    return fields.has(field) ? std::optional(fields.get<bool>(field)) : std::nullopt;
}

Json stateOf(const PerformanceMonitoring& counting)
{
    Json alerts = Json::array();
    for (const auto& [classId, instance, alarm] : counting.crossings().raised()) {
        alerts.push_back({{"class", classId}, {"instance", instance}, {"number", alarm}});
    }
    return {{"interval", secondsOf(counting.interval())},
            {"seconds_left", secondsOf(counting.untilIntervalEnd())},
            {"finished_intervals", Interval::getIntervalCounter()},
            {"running", counting.isRunning()},
            {"traffic", counting.hasTraffic()},
            {"measuring_sources", counting.measuringSources()},
            {"alerts", alerts}};
}

Json performanceMonitoring(PerformanceMonitoring& counting, const Json& request)
{
    const RequestFields fields(request, "pm", {"interval", "traffic", "running", "advance"});
    const auto interval = durationOf(fields, "interval", kShortestInterval, kLongestInterval);
    const auto isRunning = switchOf(fields, "running");
    const auto hasTraffic = switchOf(fields, "traffic");
    const auto time = durationOf(fields, "advance", 0, kLongestAdvance);
    if (isRunning) {
        counting.setRunning(*isRunning);
    }
    if (interval) {
        counting.setInterval(*interval);
    }
    if (hasTraffic) {
        counting.setTraffic(*hasTraffic);
    }
    counting.catchUp();
    if (time) {
        counting.advance(*time);
    }
    return {{"result", stateOf(counting)}};
}
}  // namespace

void ControlRequests::addPmRequests()
{
    m_Requests["pm"] = [this](const Json& request) {
        return performanceMonitoring(m_Onu.performanceMonitoring(), request);
    };
}
