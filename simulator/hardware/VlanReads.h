#ifndef SIMULATOR_HARDWARE_VLAN_READS_H
#define SIMULATOR_HARDWARE_VLAN_READS_H

#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "hardware/HardwareCall.h"

/// What a data path does that is asked to serve a port: where an extended VLAN tagging entity with rules stands on it,
/// it reads all rows, asks for the newest one and for its classification, and has its EVC provisioned (request true).
/// @{
void readVlanRules(HardwareCall& written, const OmciMePptpEthernetUniIf& uni);
/// An entity on the port, or on the IP host behind it.
void readVlanRules(HardwareCall& written, const OmciMeMacBridgePortConfigurationDataIf& port);
/// @}

#endif
