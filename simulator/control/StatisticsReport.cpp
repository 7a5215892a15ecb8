#include "control/StatisticsReport.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "host/FrameCodec.h"

namespace {
const char* messageName(std::size_t type)
{
    return omci::messageTypeName(static_cast<omci::MessageType>(type));
}

template <typename Counts>
Json resultsOf(const Counts& counts)
{
    Json results = Json::object();
    for (std::size_t result = 0; result < counts.size(); ++result) {
        if (counts[result] != 0) {
            results[omci::resultName(static_cast<omci::Result>(result))] = counts[result];
        }
    }
    return results;
}

/// By message type: how many in which format, with which results.
Json messagesOf(const omci::Statistics& counted)
{
    Json messages = Json::object();
    for (std::size_t type = 0; type < counted.requests.size(); ++type) {
        if (counted.requests[type] != 0) {
            messages[messageName(type)] = {{"baseline", counted.requests[type] - counted.extendedByType[type]},
                                           {"extended", counted.extendedByType[type]},
                                           {"results", resultsOf(counted.resultsByType[type])}};
        }
    }
    return messages;
}

std::int64_t microseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(time).count();
}

/// The class with the slowest request first.
Json handlersOf(const omci::Statistics& counted)
{
    std::vector<std::pair<std::uint16_t, omci::HandlerTime>> handlers(counted.handlers.begin(), counted.handlers.end());
    std::stable_sort(handlers.begin(), handlers.end(),
                     [](const auto& a, const auto& b) { return a.second.slowest > b.second.slowest; });
    Json list = Json::array();
    for (const auto& [classId, time] : handlers) {
        list.push_back({{"class", classId},
                        {"requests", time.requests},
                        {"slowest_us", microseconds(time.slowest)},
                        {"slowest_message", messageName(time.slowestType)},
                        {"mean_us", microseconds(time.total / static_cast<std::int64_t>(time.requests))}});
    }
    return list;
}
}  // namespace

Json statisticsReport(const omci::Statistics& counted, const omci::Notifier::Counters& sent)
{
    Json requests = Json::object();
    for (std::size_t type = 0; type < counted.requests.size(); ++type) {
        if (counted.requests[type] != 0) {
            requests[messageName(type)] = counted.requests[type];
        }
    }
    Json drops = Json::object();
    for (std::size_t reason = 0; reason < counted.drops.size(); ++reason) {
        drops[omci::dropReasonName(static_cast<omci::DropReason>(reason))] = counted.drops[reason];
    }
    return {{"requests", requests},
            {"baseline_requests", counted.baselineRequests},
            {"extended_requests", counted.extendedRequests},
            {"messages", messagesOf(counted)},
            {"results", resultsOf(counted.results)},
            {"drops", drops},
            {"replies", counted.replies},
            {"retransmissions", counted.retransmissions},
            {"exceptions", counted.exceptions},
            {"handlers", handlersOf(counted)},
            {"attribute_value_changes", sent.attributeValueChanges},
            {"alarms", sent.alarms},
            {"test_results", sent.testResults},
            {"suppressed_notifications", sent.suppressed}};
}
