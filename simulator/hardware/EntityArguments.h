#ifndef SIMULATOR_HARDWARE_ENTITY_ARGUMENTS_H
#define SIMULATOR_HARDWARE_ENTITY_ARGUMENTS_H

#include "Json.h"
#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "OmciMeSipAgentConfigDataIf.h"
#include "OmciMeSipUserDataIf.h"
#include "OmciMeTContIf.h"
#include "OmciMeVirtualEthernetInterfacePointIf.h"
#include "OmciMeVoipMediaProfileIf.h"
#include "OmciMeVoipVoiceCTPIf.h"

/// The class numbers of entities that cross the hardware interface.
inline constexpr unsigned short kClassPptpEthernetUni = 11;
inline constexpr unsigned short kClassMacBridgePort = 47;
inline constexpr unsigned short kClassPptpVideoUni = 82;
inline constexpr unsigned short kClassPptpVideoAni = 90;
inline constexpr unsigned short kClassMapper = 130;
inline constexpr unsigned short kClassVoipVoiceCtp = 139;
inline constexpr unsigned short kClassVoipMediaProfile = 142;
inline constexpr unsigned short kClassSipAgent = 150;
inline constexpr unsigned short kClassSipUser = 153;
inline constexpr unsigned short kClassTCont = 262;
inline constexpr unsigned short kClassGemInterworkingTp = 266;
inline constexpr unsigned short kClassMulticastGemInterworkingTp = 281;
inline constexpr unsigned short kClassVeip = 329;

constexpr unsigned short classOf(const OmciMePptpEthernetUniIf*)
{
    return kClassPptpEthernetUni;
}
constexpr unsigned short classOf(const OmciMeMacBridgePortConfigurationDataIf*)
{
    return kClassMacBridgePort;
}
constexpr unsigned short classOf(const OmciMeMapperServiceProfile802_1PIf*)
{
    return kClassMapper;
}
constexpr unsigned short classOf(const OmciMeVoipVoiceCTPIf*)
{
    return kClassVoipVoiceCtp;
}
constexpr unsigned short classOf(const OmciMeVoipMediaProfileIf*)
{
    return kClassVoipMediaProfile;
}
constexpr unsigned short classOf(const OmciMeSipAgentConfigDataIf*)
{
    return kClassSipAgent;
}
constexpr unsigned short classOf(const OmciMeSipUserDataIf*)
{
    return kClassSipUser;
}
constexpr unsigned short classOf(const OmciMeTContIf*)
{
    return kClassTCont;
}
constexpr unsigned short classOf(const OmciMeGemInterworkingTpIf*)
{
    return kClassGemInterworkingTp;
}
constexpr unsigned short classOf(const OmciMeMulticastGemInterworkingTpIf*)
{
    return kClassMulticastGemInterworkingTp;
}
constexpr unsigned short classOf(const OmciMeVirtualEthernetInterfacePointIf*)
{
    return kClassVeip;
}

/// {"class":C,"instance":I}, or null.
template <typename Entity>
Json entity(const Entity* managedEntity)
{
    if (managedEntity == nullptr) {
        return nullptr;
    }
    return {{"class", classOf(managedEntity)}, {"instance", managedEntity->getManagedEntityInstance()}};
}

#endif
