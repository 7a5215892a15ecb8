#ifndef SIMULATOR_ONU_H
#define SIMULATOR_ONU_H

#include <memory>
#include <optional>
#include <string>

#include "BoardFile.h"
#include "BoardHal.h"
#include "LibraryStatics.h"
#include "OmciManagedEntitiesCore.h"
#include "OnuClock.h"
#include "board/BoardScripts.h"
#include "hardware/SimulatedHardware.h"
#include "host/Dispatcher.h"
#include "host/Notifier.h"
#include "pm/PerformanceMonitoring.h"

/// The library with its host around it: brought up, restarted, and reached through here. One thread uses it.
class Onu
{
public:
    struct Setup
    {
        Board board;
        std::string mic;  ///< of a form that Mic::parse takes
        std::optional<unsigned int> fifoDepth;
        double timeScale = 1;
        PerformanceMonitoring::Duration pmInterval = omci::IntervalClock::kStandardLength;
        bool hasTraffic = false;
        bool baselineOnly = false;  ///< Extended messages are dropped, and the OMCC version says so.
    };

    /// `sink` takes the frames that the ONU sends unasked, on any thread. Nothing runs before start.
    Onu(Setup setup, HardwareRecorder& recorder, omci::Notifier::Sink sink);
    ~Onu();
    Onu(const Onu&) = delete;
    Onu& operator=(const Onu&) = delete;

    /// Builds the start-up MIB, to the first moment at which the OLT may talk.
    void start();
    /// What a reboot does: all instances, adapters and edits of the start-up table go, and the ONU starts anew, from
    /// the image slot that is to boot.
    void restart();

    omci::Dispatcher& dispatcher() { return m_Dispatcher; }
    omci::Notifier& notifier() { return m_Notifier; }
    SimulatedHardware& hardware() { return m_Hardware; }
    OnuClock& clock() { return m_Clock; }
    BoardScripts& boardScripts() { return m_BoardScripts; }
    OmciManagedEntitiesCore& core() { return *m_Core; }
    PerformanceMonitoring& performanceMonitoring() { return m_PerformanceMonitoring; }

    /// Whether the registrar holds the hardware interface; it does from the start.
    void connectHardware(bool isConnected);

    bool isHardwareConnected() const;

private:
    void connectHardwareToHost();
    /// The time that the synchronize time request under way holds; nothing, with a log line, when that is no date.
    std::optional<std::time_t> requestedTime() const;
    void applyIdentity();
    /// Ends what other threads do on the ONU's behalf.
    void endWriting();
    void tearDown();
    PerformanceMonitoring::Surroundings surroundings();

    Setup m_Setup;
    LibraryStatics m_Statics;
    BoardHal m_Hal;
    OnuClock m_Clock;
    BoardScripts m_BoardScripts;
    SimulatedHardware m_Hardware;
    omci::Notifier m_Notifier;
    omci::Dispatcher m_Dispatcher;
    PerformanceMonitoring m_PerformanceMonitoring;
    std::unique_ptr<OmciManagedEntitiesCore> m_Core;
};

#endif
