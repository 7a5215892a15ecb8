#ifndef HOST_PM_INTERVAL_COUNTERS_H
#define HOST_PM_INTERVAL_COUNTERS_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace omci {

/// Which values of a counter are asked for. The numbers are those that the library hands to a refresh operation as
/// statsAction.
enum class PmView : unsigned int
{
    Continuous = 0,  ///< since the counters began, whatever the intervals
    Current = 1,     ///< since the running interval began: get current data
    History = 2      ///< of the interval that ended last: get
};

/// The counters of one source (a port, a channel) over the intervals. A counter that is full stays full.
class IntervalCounters
{
public:
    /// One value for each counter, in the order of the entity's attributes.
    using Values = std::vector<std::uint64_t>;

    /// All zero.
    explicit IntervalCounters(std::size_t count) : m_Continuous(count), m_Current(count), m_History(count) {}

    /// How many counters the source has.
    std::size_t size() const { return m_Current.size(); }
    /// Counts up by `amount`, to the counter's highest value at most. A counter that does not exist throws
    /// std::out_of_range.
    void add(std::size_t counter, std::uint64_t amount);
    /// From now on the running interval and the continuous count stand at these values; the last interval stays.
    /// Missing values are 0.
    void report(const Values& values);

    /// The running interval becomes the last one, and a new one begins at 0.
    void endInterval();
    /// As when the clock is set: there is no last interval, and the running one begins at 0.
    void restart();
    /// Sets a range of counters back to 0, as they are seen by one view.
    void clear(PmView view, std::size_t first, std::size_t count);

    /// The counters as one view sees them; good until they change.
    const Values& values(PmView view) const;

private:
    Values& of(PmView view);

    Values m_Continuous;
    Values m_Current;
    Values m_History;
};

}  // namespace omci

#endif
