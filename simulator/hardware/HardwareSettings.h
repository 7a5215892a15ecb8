#ifndef SIMULATOR_HARDWARE_HARDWARE_SETTINGS_H
#define SIMULATOR_HARDWARE_HARDWARE_SETTINGS_H

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Json.h"
#include "hardware/DhcpSettings.h"
#include "hardware/Optics.h"
#include "hardware/PotsSettings.h"
#include "host/MessageLayout.h"

/// What the simulated hardware answers, as the control socket sets it.
struct HardwareSettings
{
    struct Uni
    {
        unsigned char operationalState = 0;  ///< 0 enabled, 1 disabled
        unsigned int speed = 1000;           ///< Mbit/s
        unsigned char duplex = 1;            ///< 0 half, 1 full

        bool operator==(const Uni& other) const
        {
            return operationalState == other.operationalState && speed == other.speed && duplex == other.duplex;
        }
    };

    /// By instance; those not named have the values above.
    std::map<unsigned short, Uni> unis;
    /// Levels that no longer drift.
    std::map<unsigned short, optics::FixedLevels> anis;
    /// Phones by POTS port, DHCP servers by IP host; those not named: none, and one that gives DhcpSettings::forHost.
    std::map<unsigned short, PotsSettings> phones;
    std::map<unsigned short, DhcpSettings> dhcpServers;
    /// Counters by family and instance; see setCounters.
    std::map<unsigned short, std::map<unsigned short, Json>> counters;
    bool answersRefresh = true;
    bool isImageValid = true;
    /// Nothing: the self-test of ONU-G and ANI-G never reports.
    std::optional<omci::SelfTestOutcome> selfTest = omci::SelfTestOutcome::Passed;
    /// Nothing: what the portal's own service says.
    std::optional<std::string> statusMessage;
    /// Nothing: what the debug service answers.
    std::optional<std::vector<unsigned char>> debugReply;
    /// Operations that throw when called.
    std::set<std::string> throwing;
    /// How long after a call its work is done, where nobody waits for it.
    unsigned int delayMilliseconds = 0;
    static constexpr unsigned int kLongestDelay = 600000;

    Uni uni(unsigned short instance) const;
    optics::FixedLevels ani(unsigned short instance) const;

    /// Keeps the counters of a class: a checked record, or an array of two. GEM ports go by port id.
    void setCounters(unsigned short classId, unsigned short instance, const Json& record);
    /// Null when none were ever set.
    Json countersOf(unsigned short classId, unsigned short instance) const;

    /// Takes over the members of a request. BadRequest, with nothing changed, when one is wrong.
    void apply(const Json& request);
};

#endif
