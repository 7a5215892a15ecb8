#ifndef SIMULATOR_HARDWARE_PHONE_LINES_H
#define SIMULATOR_HARDWARE_PHONE_LINES_H

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "StatusRecords.h"
#include "hardware/PhoneLine.h"
#include "hardware/PotsSettings.h"

/// The voice stack of the simulated ONU: the lines that it was told to serve, as the MIB stood at the last provisioning
/// call, and what their phones do. What it was told it serves once `serve` says so. On the OMCI thread.
class PhoneLines
{
public:
    using Ports = std::map<unsigned short, PotsSettings>;

    /// The lines, as the library has them.
    struct Lines
    {
        /// By voice CTP.
        std::map<unsigned short, PhoneLine> byVoiceCtp;
        std::set<unsigned short> removedAgents;
        /// Ports that had a line once: without one they say so.
        std::set<unsigned short> servedPorts;
    };

    /// @name What the library tells
    /// @{
    /// Reads the line anew.
    const PhoneLine& provision(const OmciMeVoipVoiceCTPIf& voiceCtp);
    /// Reads the lines of an agent anew, and yields their voice CTPs.
    Json provisionAgent(unsigned short agent);
    /// A line without its user or media profile is none any more, one without its agent is not registered.
    void removeUser(unsigned short user);
    void removeMediaProfile(unsigned short profile);
    void removeAgent(unsigned short agent);
    void removeAll() { m_Told.byVoiceCtp.clear(); }
    /// @}
    /// Everything that it has been told up to now.
    const Lines& told() const { return m_Told; }
    /// From now on these are served.
    void serve(Lines lines) { m_Served = std::move(lines); }
    /// As at a reboot: nothing is known any more.
    void clear();

    /// @name What an update entry reported stands until the phone does something else
    /// @{
    void keepReportedStatus(unsigned short port) { m_ReportedStatus.insert(port); }
    void keepReportedHook(unsigned short port) { m_ReportedHook.insert(port); }
    void forgetReports(unsigned short port);
    /// @}

    /// The line status of a port. Nothing when the voice stack knows no more than was reported last.
    std::optional<VoipLineStatusData> status(unsigned short port, const Ports& ports) const;
    /// The line status of a port as it stands in the MIB.
    static VoipLineStatusData storedStatus(unsigned short port);
    /// The phone on a port; null when nobody said what it does.
    const PotsSettings* phone(unsigned short port, const Ports& ports) const;

    /// Every POTS port with its line, then the lines without a port of their own.
    Json describe(const Ports& ports) const;

private:
    const PhoneLine* lineOn(unsigned short port) const;
    bool isRegistered(const PhoneLine& line) const;
    VoipLineStatusData measure(const PhoneLine* line, const PotsSettings& phone) const;
    Json describePort(unsigned short port, const Ports& ports) const;
    Json describeLine(const PhoneLine& line) const;

    Lines m_Told;
    Lines m_Served;
    std::set<unsigned short> m_ReportedStatus;
    std::set<unsigned short> m_ReportedHook;
};

#endif
