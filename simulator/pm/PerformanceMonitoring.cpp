#include "pm/PerformanceMonitoring.h"

#include <algorithm>
#include <utility>

#include "MibAccess.h"
#include "OmciMeEthernetFrameExtendedPM64BitIf.h"
#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"
#include "OmciMeEthernetFrameExtendedPMIf.h"
#include "host/pm/PmControlBlock.h"
#include "pm/TrafficModel.h"

namespace {
using Interval = OmciMeEthernetFrameExtendedPMCommonImplExtended;

constexpr unsigned short kClassPptpEthernetUni = 11;
constexpr unsigned short kUniAdministrativeState = 0x0800;
constexpr unsigned short kUniFamily = 24;
constexpr unsigned short kExtendedPm = 334;
constexpr unsigned short kExtendedPm64Bit = 425;
/// Traffic goes on in steps of this.
constexpr std::chrono::seconds kTrafficStep{1};

std::optional<omci::PmControlBlock> controlBlockOf(const PmEntity& entity)
{
    const unsigned char* octets = nullptr;
    if (entity.classId == kExtendedPm) {
        const auto* me = OmciMeEthernetFrameExtendedPMIf::getManagedEntityInstance(entity.instance);
        octets = me == nullptr ? nullptr : me->getControlBlock(OMCI_ACTION_GET);
    } else if (entity.classId == kExtendedPm64Bit) {
        const auto* me = OmciMeEthernetFrameExtendedPM64BitIf::getManagedEntityInstance(entity.instance);
        octets = me == nullptr ? nullptr : me->getControlBlock(OMCI_ACTION_GET);
    }
    return octets == nullptr ? std::nullopt : std::optional(omci::PmControlBlock(octets));
}

bool isLocked(unsigned short uni)
{
    // A UNI that does not exist carries nothing either.
    return mib::storedNumber(kClassPptpEthernetUni, uni, kUniAdministrativeState).value_or(1) != 0;
}
}  // namespace

PerformanceMonitoring::PerformanceMonitoring(Duration interval, bool hasTraffic, Surroundings surroundings)
    : m_Clock(interval), m_Surroundings(std::move(surroundings)), m_Crossings(m_Surroundings.raise),
      m_HasTraffic(hasTraffic)
{}

void PerformanceMonitoring::advance(Duration time)
{
    m_Clock.advance(time, [this](Duration stretch, std::uint64_t ended) { step(stretch, ended); });
}

PerformanceMonitoring::Duration PerformanceMonitoring::untilNextStep() const
{
    return m_HasTraffic ? std::min<Duration>(kTrafficStep, m_Clock.untilEnd()) : m_Clock.untilEnd();
}

void PerformanceMonitoring::setTraffic(bool hasTraffic)
{
    catchUp();
    m_HasTraffic = hasTraffic;
    if (hasTraffic) {
        followTheMib(allPmEntities());
    }
}

void PerformanceMonitoring::setRunning(bool isRunning)
{
    catchUp();
    m_IsRunning = isRunning;
}

void PerformanceMonitoring::setInterval(Duration interval)
{
    catchUp();
    m_Clock.setLength(interval);
}

void PerformanceMonitoring::synchronize()
{
    catchUp();
    m_Clock.restart();
    Interval::resetIntervalCounter();
    for (auto& entry : m_Measuring) {
        entry.second.restart();
    }
    m_Crossings.endInterval();
}

void PerformanceMonitoring::restart()
{
    catchUp();
    m_Clock.restart();
    Interval::resetIntervalCounter();
    m_Measuring.clear();
    m_TrafficTime = Duration::zero();
    m_Crossings.forget();
}

omci::IntervalCounters& PerformanceMonitoring::measuring(const PmSource& source)
{
    const auto found = m_Measuring.find(source);
    if (found != m_Measuring.end()) {
        return found->second;
    }
    auto& counted = m_Measuring.emplace(source, omci::IntervalCounters(counterCount(source.family))).first->second;
    if (const auto told = m_Surroundings.told(source)) {
        counted.report(*told);
    }
    return counted;
}

std::optional<counters::Values> PerformanceMonitoring::measured(const PmSource& source, omci::PmView view)
{
    if (m_HasTraffic) {
        return measuring(source).values(view);
    }
    const auto found = m_Measuring.find(source);
    return found == m_Measuring.end() ? std::nullopt : std::optional(found->second.values(view));
}

void PerformanceMonitoring::onTold(const PmSource& source)
{
    if (!m_HasTraffic) {
        m_Measuring.erase(source);
    } else if (const auto told = m_Surroundings.told(source)) {
        measuring(source).report(*told);
    }
    for (const PmEntity& entity : allPmEntities()) {
        if (!(entity.source < source) && !(source < entity.source)) {
            checkThresholds(entity);
        }
    }
}

void PerformanceMonitoring::onCreated(unsigned short classId, unsigned short instance)
{
    for (const omci::PmView view : {omci::PmView::Continuous, omci::PmView::Current, omci::PmView::History}) {
        clear(classId, instance, view);
    }
}

void PerformanceMonitoring::clear(unsigned short classId, unsigned short instance, omci::PmView view)
{
    const auto entity = pmEntity(classId, instance);
    if (!entity) {
        return;
    }
    const auto found = m_Measuring.find(entity->source);
    if (found == m_Measuring.end()) {
        return;
    }
    for (const std::size_t place : entity->places) {
        found->second.clear(view, place, place == PmEntity::kNotCounted ? 0 : 1);
    }
    m_Crossings.clear(classId, instance);
}

void PerformanceMonitoring::clearFamily(unsigned short family)
{
    for (auto& [source, counted] : m_Measuring) {
        if (source.family == family) {
            counted = omci::IntervalCounters(counted.size());
        }
    }
}

void PerformanceMonitoring::followTheMib(const std::vector<PmEntity>& entities)
{
    std::set<PmSource> wanted;
    for (const PmEntity& entity : entities) {
        wanted.insert(entity.source);
    }
    for (auto entry = m_Measuring.begin(); entry != m_Measuring.end();) {
        entry = wanted.count(entry->first) == 0 ? m_Measuring.erase(entry) : std::next(entry);
    }
    for (const PmSource& source : wanted) {
        measuring(source);
    }
}

void PerformanceMonitoring::step(Duration stretch, std::uint64_t intervalsEnded)
{
    if (m_HasTraffic) {
        const std::vector<PmEntity> entities = allPmEntities();
        followTheMib(entities);
        count(entities, m_TrafficTime, m_TrafficTime + stretch);
        m_TrafficTime += stretch;
        // What several intervals counted together crosses the threshold of none.
        for (const PmEntity& entity : intervalsEnded > 1 ? std::vector<PmEntity>() : entities) {
            checkThresholds(entity);
        }
    }
    if (intervalsEnded != 0) {
        for (auto& entry : m_Measuring) {
            entry.second.endInterval();
        }
        Interval::setIntervalCounter(static_cast<unsigned char>(Interval::getIntervalCounter() + intervalsEnded));
        m_Crossings.endInterval();
    }
}

bool PerformanceMonitoring::carriesTraffic(const std::vector<PmEntity>& entities, const PmSource& source) const
{
    const auto isDead = [this](unsigned short uni) { return isLocked(uni) || !m_Surroundings.isLinkUp(uni); };
    if (source.family == kUniFamily) {
        return !isDead(source.instance);
    }
    // Both entities of a pair look at the same parent, so that the first one speaks for them.
    const auto entity = std::find_if(entities.begin(), entities.end(), [&source](const PmEntity& candidate) {
        return !(candidate.source < source) && !(source < candidate.source);
    });
    const auto block = entity == entities.end() ? std::nullopt : controlBlockOf(*entity);
    return !block || block->parentClass() != kClassPptpEthernetUni || !isDead(block->parentInstance());
}

void PerformanceMonitoring::count(const std::vector<PmEntity>& entities, Duration from, Duration to)
{
    for (auto& [source, counted] : m_Measuring) {
        if (!carriesTraffic(entities, source)) {
            continue;
        }
        counters::Values amounts = trafficUntil(source, to);
        const counters::Values before = trafficUntil(source, from);
        for (const PmEntity& entity : entities) {
            const auto block = entity.source.family == source.family && entity.source.instance == source.instance
                                   ? controlBlockOf(entity)
                                   : std::nullopt;
            for (unsigned counter = 1; block && counter <= entity.places.size(); ++counter) {
                if (!block->counts(counter)) {
                    const std::size_t place = entity.places[counter - 1];
                    amounts[place] = before[place];
                }
            }
        }
        for (std::size_t place = 0; place < counted.size(); ++place) {
            counted.add(place, amounts[place] - before[place]);
        }
    }
}

void PerformanceMonitoring::checkThresholds(const PmEntity& entity)
{
    const auto block = controlBlockOf(entity);
    const auto view = block && block->isContinuous() ? omci::PmView::Continuous : omci::PmView::Current;
    auto counted = measured(entity.source, view);
    if (!counted) {
        counted = m_Surroundings.told(entity.source);
    }
    if (counted) {
        m_Crossings.check(entity.classId, entity.instance, entity.valuesOf(*counted));
    }
}
