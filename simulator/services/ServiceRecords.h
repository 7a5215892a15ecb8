#ifndef SIMULATOR_SERVICES_SERVICE_RECORDS_H
#define SIMULATOR_SERVICES_SERVICE_RECORDS_H

#include <array>
#include <map>
#include <optional>
#include <vector>

#include "OmciMeExtendedVlanTaggingOperationConfigurationDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "VlanRecords.h"

/// Entities of the layer-2 data path as the hardware layer reads them at the moment it is told of them. A pointer that
/// leads nowhere stays in its record as the number that it is; whoever follows it finds nothing there.
namespace services {

using VlanRules = std::vector<RecVlanTagFilData>;

/// No TP, G.988 9.3.10.
inline constexpr unsigned short kNoTp = 65535;

/// TP type of a bridge port, G.988 9.3.4.
enum TpType : unsigned char
{
    TP_TYPE_UNI = 1,
    TP_TYPE_MAPPER = 3,
    TP_TYPE_IP_HOST = 4,
    TP_TYPE_GEM = 5,
    TP_TYPE_MULTICAST_GEM = 6,
    TP_TYPE_VEIP = 11,
};

/// TP type of a mapper that serves a port without a bridge between them, G.988 9.3.10.
enum MapperTpType : unsigned char
{
    MAPPER_OF_UNI = 1,
    MAPPER_OF_VEIP = 7,
};

/// Association type of extended VLAN tagging, G.988 9.3.13.
enum AssociationType : unsigned char
{
    ON_BRIDGE_PORT = 0,
    ON_MAPPER = 1,
    ON_UNI = 2,
    ON_IP_HOST = 3,
    ON_GEM = 5,
    ON_MULTICAST_GEM = 6,
    ON_VEIP = 10,
};

/// A GEM port network CTP (G.988 9.2.3) with the T-CONT that carries it.
struct GemPort
{
    unsigned short portId = 0;
    unsigned char direction = 0;  ///< 1 upstream, 2 downstream, 3 both
    unsigned short tCont = 0;     ///< instance; of use upstream only
    bool isTContThere = false;
    std::optional<unsigned short> allocId;  ///< none while the T-CONT is unassigned
};

/// A unicast or multicast GEM interworking TP (G.988 9.2.4, 9.2.5).
struct GemService
{
    unsigned short gemPort = 0;  ///< instance of the GEM port network CTP
    std::optional<GemPort> gem;  ///< none when that pointer leads nowhere
    bool isUnlocked = true;
};

struct Mapper
{
    std::array<unsigned short, 8> tps{};  ///< GEM interworking TP of each p-bit
    unsigned char unmarkedFrameOption = 0;
    unsigned char defaultPBit = 0;
    unsigned char tpType = 0;
    unsigned short tpPointer = kNoTp;
};

struct VlanFilter
{
    unsigned char forwardOperation = 0;
    std::vector<unsigned short> tcis;
};

struct BridgePort
{
    unsigned short bridge = 0;
    bool isBridgeThere = false;
    unsigned char tpType = 0;
    unsigned short tpPointer = 0;
    std::optional<VlanFilter> filter;
    VlanRules rules;
};

/// An Ethernet UNI or a VEIP.
struct SubscriberPort
{
    bool isUnlocked = false;
    bool isProvisioned = false;
    VlanRules rules;
};

/// Everything that the hardware layer has been told of, by instance.
struct Records
{
    std::map<unsigned short, SubscriberPort> unis;
    std::map<unsigned short, SubscriberPort> veips;
    std::map<unsigned short, BridgePort> ports;
    std::map<unsigned short, Mapper> mappers;
    std::map<unsigned short, GemService> gems;
    std::map<unsigned short, GemService> multicastGems;
};

using Tagging = OmciMeExtendedVlanTaggingOperationConfigurationDataIf;
/// The extended VLAN tagging entities that are associated with an entity, in order of instance.
std::vector<const Tagging*> findTaggings(AssociationType associationType, unsigned short pointer);
/// All their rules.
VlanRules readVlanRules(AssociationType associationType, unsigned short pointer);
BridgePort readBridgePort(const OmciMeMacBridgePortConfigurationDataIf& port);
Mapper readMapper(const OmciMeMapperServiceProfile802_1PIf& mapper);
/// The service of an interworking TP, by the GEM port network CTP that it points at.
GemService readGemService(unsigned short gemPort);

}  // namespace services

#endif
