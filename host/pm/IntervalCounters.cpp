#include "IntervalCounters.h"

#include <algorithm>
#include <limits>

namespace omci {

namespace {

std::uint64_t saturatedSum(std::uint64_t left, std::uint64_t right)
{
    constexpr std::uint64_t full = std::numeric_limits<std::uint64_t>::max();
    return left > full - right ? full : left + right;
}

}  // namespace

void IntervalCounters::add(std::size_t counter, std::uint64_t amount)
{
    m_Continuous.at(counter) = saturatedSum(m_Continuous.at(counter), amount);
    m_Current.at(counter) = saturatedSum(m_Current.at(counter), amount);
}

void IntervalCounters::report(const Values& values)
{
    const std::size_t known = size();
    m_Current = values;
    m_Current.resize(known);
    m_Continuous = m_Current;
}

void IntervalCounters::endInterval()
{
    m_History.swap(m_Current);
    std::fill(m_Current.begin(), m_Current.end(), 0);
}

void IntervalCounters::restart()
{
    std::fill(m_History.begin(), m_History.end(), 0);
    std::fill(m_Current.begin(), m_Current.end(), 0);
}

void IntervalCounters::clear(PmView view, std::size_t first, std::size_t count)
{
    Values& cleared = of(view);
    const std::size_t begin = std::min(first, cleared.size());
    const std::size_t end = begin + std::min(count, cleared.size() - begin);
    std::fill(cleared.begin() + static_cast<std::ptrdiff_t>(begin), cleared.begin() + static_cast<std::ptrdiff_t>(end),
              0);
}

const IntervalCounters::Values& IntervalCounters::values(PmView view) const
{
    switch (view) {
    case PmView::Continuous:
        return m_Continuous;
    case PmView::Current:
        return m_Current;
    case PmView::History:
        break;
    }
    return m_History;
}

IntervalCounters::Values& IntervalCounters::of(PmView view)
{
    return const_cast<Values&>(values(view));
}

}  // namespace omci
