#ifndef SIMULATOR_HARDWARE_HARDWARE_SETTINGS_H
#define SIMULATOR_HARDWARE_HARDWARE_SETTINGS_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "Json.h"

/// What the simulated hardware answers, as the control socket sets it.
struct HardwareSettings
{
    struct Uni
    {
        unsigned char operationalState = 0;  ///< 0 enabled, 1 disabled
        unsigned int speed = 1000;           ///< Mbit/s
        unsigned char duplex = 1;            ///< 0 half, 1 full
    };
    /// Levels in 0.002 dB, two's complement.
    struct Ani
    {
        unsigned short receivedLevel = 0xD8F0;     ///< -20 dBm
        unsigned short transmittedLevel = 0x03E8;  ///< 2 dBm
    };

    /// By instance; those not named have the values above.
    std::map<unsigned short, Uni> unis;
    std::map<unsigned short, Ani> anis;
    /// Counters by family and instance; see setCounters.
    std::map<unsigned short, std::map<unsigned short, Json>> counters;
    bool answersRefresh = true;
    bool isImageValid = true;
    std::string statusMessage;
    std::vector<unsigned char> debugReply;
    /// Operations that throw when called.
    std::set<std::string> throwing;
    /// How long the hardware takes for an answer.
    unsigned int delayMilliseconds = 0;

    Uni uni(unsigned short instance) const;
    Ani ani(unsigned short instance) const;

    /// Keeps the counters of a class: a checked record, or an array of two. GEM ports go by port id.
    void setCounters(unsigned short classId, unsigned short instance, const Json& record);
    /// Null when none were ever set.
    Json countersOf(unsigned short classId, unsigned short instance) const;

    /// Takes over the members of a request. BadRequest, with nothing changed, when one is wrong.
    void apply(const Json& request);
};

#endif
