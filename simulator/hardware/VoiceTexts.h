#ifndef SIMULATOR_HARDWARE_VOICE_TEXTS_H
#define SIMULATOR_HARDWARE_VOICE_TEXTS_H

#include <string>

#include "Json.h"
#include "OmciMeAuthenticationSecurityMethodIf.h"
#include "OmciMeLargeStringIf.h"
#include "OmciMeNetworkDialPlanTableIf.h"

/// Octets as text, up to the first zero; null is empty.
std::string textOf(const unsigned char* octets, std::size_t size);

/// The parts of a large string (G.988 9.12.5) in one.
std::string textOf(const OmciMeLargeStringIf& string);

/// User name and realm of an authentication security method (9.12.4), and whether a password is set.
Json describeCredentials(const OmciMeAuthenticationSecurityMethodIf& method);

/// Format, time-outs in milliseconds and tokens of a network dial plan table (9.9.10).
Json describeDialPlan(const OmciMeNetworkDialPlanTableIf& dialPlan);

#endif
