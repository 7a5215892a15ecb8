// Counters: what performance monitoring asks for.
#include "JsonValues.h"
#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"
#include "hardware/CounterReports.h"
#include "hardware/SimulatedHardware.h"
#include "pm/PerformanceMonitoring.h"

namespace {
constexpr unsigned short kClassEthernetPm = 24;
constexpr unsigned short kClassExtendedEthernetPm = 334;
constexpr unsigned short kClassExtendedEthernetPm64Bit = 425;
constexpr unsigned short kClassGalEthernetPm = 276;
constexpr unsigned short kClassFecPm = 312;
constexpr unsigned short kClassGemPortPm = 341;
constexpr unsigned short kClassTwdmPhyLodsPm = 65406;
constexpr unsigned short kClassTwdmXgemPm = 65407;
constexpr unsigned short kClassTwdmPloamPm = 65408;
constexpr unsigned short kClassTwdmTuningPm = 65411;
constexpr unsigned short kClassTwdmOmciPm = 65414;

using Interval = OmciMeEthernetFrameExtendedPMCommonImplExtended;

omci::PmView viewOf(unsigned int statsAction)
{
    return statsAction == 0   ? omci::PmView::Continuous
           : statsAction == 1 ? omci::PmView::Current
                              : omci::PmView::History;
}

omci::PmView viewOf(EnumOmciAction action)
{
    return action == OMCI_ACTION_GET ? omci::PmView::History : omci::PmView::Current;
}

/// What was reported last, by the entry that reported it: where the class and the instance stand among its arguments.
struct Report
{
    const char* entry;
    unsigned short classId;  ///< 0: the first argument
    std::size_t instanceIndex;
    std::size_t countersIndex;
};
constexpr Report kReports[] = {
    {"updateEthernetFrameExtendedPM", 0, 1, 2},
    {"updateVeipExtendedPM", 0, 1, 2},
    {"updateEthernetFramePM", kClassEthernetPm, 1, 2},
    {"updateGemPortNetworkCtpPM", kClassGemPortPm, 1, 2},
    {"updateGalEthPmHistData", kClassGalEthernetPm, 0, 1},
    {"updateTwdmFecStats", kClassFecPm, 0, 1},
    {"updateTwdmOmciStats", kClassTwdmOmciPm, 0, 1},
    {"updateTwdmPhyLodsStats", kClassTwdmPhyLodsPm, 0, 1},
    {"updateTwdmPloamStats", kClassTwdmPloamPm, 0, 1},
    {"updateTwdmTuningStats", kClassTwdmTuningPm, 0, 1},
    {"updateTwdmXgemStats", kClassTwdmXgemPm, 0, 1},
};
}  // namespace

void SimulatedHardware::remember(const std::string& entry, const Json& arguments)
{
    for (const Report& report : kReports) {
        if (entry == report.entry) {
            const auto classId = report.classId != 0 ? report.classId : arguments.at(0).get<unsigned short>();
            const auto instance = arguments.at(report.instanceIndex).get<unsigned short>();
            // The entries for Ethernet frames take the records of two directions.
            const bool isPair = arguments.size() == report.countersIndex + 2;
            const Json& first = arguments.at(report.countersIndex);
            {
                const std::lock_guard<std::mutex> lock(m_Mutex);
                m_Settings.setCounters(classId, instance, isPair ? Json::array({first, arguments.back()}) : first);
            }
            announceCounters(classId, instance);
        }
    }
    rememberLevels(entry, arguments);
    rememberLine(entry, arguments);
}

void SimulatedHardware::announceCounters(unsigned short classId, unsigned short instance)
{
    if (m_PerformanceMonitoring != nullptr) {
        m_PerformanceMonitoring->onTold({counterFamily(classId), counterInstance(classId, instance)});
    }
}

void SimulatedHardware::announceCounters(const Json& request)
{
    if (!request.contains("counters")) {
        return;
    }
    for (const auto& [classId, instances] : request["counters"].items()) {
        for (const auto& instance : instances.items()) {
            announceCounters(static_cast<unsigned short>(std::stoul(classId)),
                             static_cast<unsigned short>(std::stoul(instance.key())));
        }
    }
}

std::optional<counters::Values> SimulatedHardware::toldCountersOf(const PmSource& source) const
{
    const Json known = counters(source.family, source.instance);
    return known.is_null() ? std::nullopt : std::optional(toldCounters(source.family, known));
}

Json SimulatedHardware::counters(unsigned short classId, unsigned short instance) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Settings.countersOf(classId, instance);
}

std::optional<counters::Values> SimulatedHardware::measured(unsigned short classId, unsigned short instance,
                                                            omci::PmView view) const
{
    const PmSource source{counterFamily(classId), counterInstance(classId, instance)};
    return m_PerformanceMonitoring == nullptr ? std::nullopt : m_PerformanceMonitoring->measured(source, view);
}

template <typename Record>
Record SimulatedHardware::counterRecord(unsigned short classId, unsigned short instance, omci::PmView view) const
{
    Record record{};
    if (const auto counted = measured(classId, instance, view)) {
        std::size_t next = 0;
        counters::take(record, *counted, next, Interval::getIntervalCounter());
        return record;
    }
    const Json known = counters(classId, instance);
    if (!known.is_null()) {
        values::from(known, record, "counters");
    }
    return record;
}

FrameCounters SimulatedHardware::frameRecords(unsigned short classId, unsigned short instance, omci::PmView view) const
{
    FrameCounters both;
    if (const auto counted = measured(classId, instance, view)) {
        std::size_t next = 0;
        counters::take(both.first, *counted, next, 0);
        counters::take(both.second, *counted, next, 0);
        return both;
    }
    const Json known = counters(classId, instance);
    return known.is_null() ? both : frameCounters(known, "counters");
}

OmciManagedEntitiesCore* SimulatedHardware::reportee() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Settings.answersRefresh ? m_Core : nullptr;
}

int SimulatedHardware::clearEthernetFrameExtendedPmCounters(unsigned short instance, unsigned int statsAction)
{
    const HardwareCall written = call("clearEthernetFrameExtendedPmCounters", {instance, statsAction});
    if (m_PerformanceMonitoring != nullptr) {
        // The call does not tell the class; an instance number is given to one of the two.
        for (const unsigned short classId : {kClassExtendedEthernetPm, kClassExtendedEthernetPm64Bit}) {
            m_PerformanceMonitoring->clear(classId, instance, viewOf(statsAction));
        }
    }
    return 0;
}

int SimulatedHardware::createPmInstance(unsigned short classId, unsigned short instance)
{
    const HardwareCall written = call("createPmInstance", {classId, instance});
    if (m_PerformanceMonitoring != nullptr) {
        m_PerformanceMonitoring->onCreated(classId, instance);
    }
    return 0;
}

int SimulatedHardware::deletePmInstance(unsigned short classId, unsigned short instance)
{
    const HardwareCall written = call("deletePmInstance", {classId, instance});
    return 0;
}

int SimulatedHardware::refreshGemPortCounters(unsigned short classId, unsigned short portId, unsigned int statsAction)
{
    const HardwareCall written = call("refreshGemPortCounters", {classId, portId, statsAction});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateGemPortNetworkCtpPM(0, portId,
                                        counterRecord<GemPortCounters>(kClassGemPortPm, portId, viewOf(statsAction)));
    }
    return 0;
}

int SimulatedHardware::resetFecCounters(unsigned short classId, unsigned int mode)
{
    const HardwareCall written = call("resetFecCounters", {classId, mode});
    if (m_PerformanceMonitoring != nullptr) {
        m_PerformanceMonitoring->clearFamily(kClassFecPm);
    }
    return 0;
}

int SimulatedHardware::refreshFecCounters(unsigned short instance, unsigned int statsAction)
{
    const HardwareCall written = call("refreshFecCounters", {instance, statsAction});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateTwdmFecStats(instance, counterRecord<TwdmFecCounters>(kClassFecPm, instance, viewOf(statsAction)));
    }
    return 0;
}

int SimulatedHardware::refreshTwdmOmciPm(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshTwdmOmciPm", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateTwdmOmciStats(instance,
                                  counterRecord<TwdmOmciCounters>(kClassTwdmOmciPm, instance, viewOf(action)));
    }
    return 0;
}

int SimulatedHardware::refreshTwdmPhyLodsPm(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshTwdmPhyLodsPm", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateTwdmPhyLodsStats(instance,
                                     counterRecord<TwdmPhyLodsCounters>(kClassTwdmPhyLodsPm, instance, viewOf(action)));
    }
    return 0;
}

int SimulatedHardware::refreshGalEthernetPm(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshGalEthernetPm", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateGalEthPmHistData(instance,
                                     counterRecord<GalEthPMHistData>(kClassGalEthernetPm, instance, viewOf(action)));
    }
    return 0;
}

int SimulatedHardware::refreshTwdmPloamPm(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshTwdmPloamPm", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateTwdmPloamStats(instance,
                                   counterRecord<TwdmPloamCounters>(kClassTwdmPloamPm, instance, viewOf(action)));
    }
    return 0;
}

int SimulatedHardware::refreshTwdmTuningPm(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshTwdmTuningPm", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateTwdmTuningStats(instance,
                                    counterRecord<TwdmTuningCounters>(kClassTwdmTuningPm, instance, viewOf(action)));
    }
    return 0;
}

int SimulatedHardware::refreshTwdmXgemPm(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshTwdmXgemPm", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateTwdmXgemStats(instance,
                                  counterRecord<TwdmXgemCounters>(kClassTwdmXgemPm, instance, viewOf(action)));
    }
    return 0;
}

int SimulatedHardware::refreshEthernetFrameCounters(unsigned short classId, unsigned short instance,
                                                    unsigned int statsAction, unsigned short parentClass,
                                                    unsigned short parentInstance)
{
    const HardwareCall written =
        call("refreshEthernetFrameCounters", {classId, instance, statsAction, parentClass, parentInstance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        const FrameCounters both = frameRecords(classId, instance, viewOf(statsAction));
        core->updateEthernetFrameExtendedPM(classId, instance, both.first, both.second);
    }
    return 0;
}

int SimulatedHardware::refreshEthernetFrameCounters64(unsigned short classId, unsigned short instance,
                                                      unsigned int statsAction, unsigned short parentClass,
                                                      unsigned short parentInstance)
{
    const HardwareCall written =
        call("refreshEthernetFrameCounters64", {classId, instance, statsAction, parentClass, parentInstance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        const FrameCounters both = frameRecords(classId, instance, viewOf(statsAction));
        core->updateVeipExtendedPM(classId, instance, both.first, both.second);
    }
    return 0;
}
