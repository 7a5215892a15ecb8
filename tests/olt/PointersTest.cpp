#include "model/Pointers.h"

#include <gtest/gtest.h>

#include "graph/MibGraph.h"
#include "model/MibCheck.h"
#include "model/Value.h"

namespace olt {

namespace {

const Catalogue& catalogue()
{
    return Catalogue::builtIn();
}

/// Adds an entity with the values of some attributes, the others at their defaults.
void add(Mib& mib, std::uint16_t id, std::uint16_t instance,
         const std::vector<std::pair<const char*, unsigned>>& values = {})
{
    const auto& entity = catalogue().ofNumber(id);
    for (const auto& attribute : entity.attributes)
        mib.add(entity, instance, attribute.mask, attribute.defaultValue.data(), attribute.defaultValue.size());
    for (const auto& [name, value] : values) {
        const auto& attribute = entity.attribute(name);
        const Bytes octets = bigEndianBytes(value, attribute.size);
        mib.add(entity, instance, attribute.mask, octets.data(), octets.size());
    }
}

/// One Ethernet UNI over a bridge and a mapper to one GEM port and a T-CONT.
Mib service()
{
    Mib mib;
    add(mib, 11, 0x101);
    add(mib, 45, 1);
    add(mib, 47, 1, {{"BridgeIdPointer", 1}, {"TpType", 1}, {"TpPointer", 0x101}});
    add(mib, 47, 2, {{"BridgeIdPointer", 1}, {"TpType", 3}, {"TpPointer", 1}});
    add(mib, 84, 2);
    add(mib, 130, 1, {{"InterworkTpPointerForPBitPriority0", 5}, {"InterworkTpPointerForPBitPriority7", 5}});
    add(mib, 266, 5, {{"GemPortNetworkCtpConnPointer", 5}, {"InterworkingOption", 5}, {"ServiceProfilePointer", 1}});
    add(mib, 268, 5, {{"PortId", 1024}, {"TcontPointer", 0x8000}, {"Direction", 3}});
    add(mib, 262, 0x8000, {{"AllocId", 1024}});
    return mib;
}

std::vector<std::string> findings(const Mib& mib)
{
    std::vector<std::string> texts;
    for (const auto& finding : checkMib(mib, catalogue()).findings)
        texts.push_back(std::to_string(finding.entity.first) + "/" + std::to_string(finding.entity.second) + ": " +
                        finding.text);
    return texts;
}

using Texts = std::vector<std::string>;

TEST(PointerTable, NamesAttributesAndClassesThatExist)
{
    for (const auto& rule : pointerRules()) {
        const auto* const entity = catalogue().find(rule.entityClass);
        ASSERT_TRUE(entity) << rule.entityClass;
        if (rule.attribute) {
            const auto& attribute = entity->attribute(rule.attribute);
            EXPECT_EQ(attribute.name, rule.attribute);
            EXPECT_EQ(attribute.size, rule.kind == PointerKind::RelatedPort ? 4U : 2U) << rule.attribute;
        }
        if (rule.selector) {
            EXPECT_EQ(entity->attribute(rule.selector).name, rule.selector);
        }
        ASSERT_FALSE(rule.targets.empty());
        for (const auto& targets : rule.targets) {
            EXPECT_EQ(targets.selected == kAlways, rule.selector == nullptr) << rule.entityClass;
            for (const auto target : targets.classes)
                EXPECT_TRUE(catalogue().find(target)) << target;
        }
    }
}

TEST(MibCheck, SoundServiceHasNoFinding)
{
    EXPECT_EQ(findings(service()), Texts{});
}

TEST(MibCheck, PointerToMissingEntity)
{
    Mib mib = service();
    add(mib, 47, 3, {{"BridgeIdPointer", 9}, {"TpType", 1}, {"TpPointer", 0x102}});
    add(mib, 84, 7);
    EXPECT_EQ(findings(mib),
              (Texts{"47/3: BridgeIdPointer names MacBridgeServiceProfile (45) instance 9, which doesn't exist",
                     "47/3: TpPointer names PptpEthernetUni (11) instance 258, which doesn't exist",
                     "84/7: belongs to MacBridgePortConfigurationData (47) instance 7, which doesn't exist"}));
}

TEST(MibCheck, NoPointerIsNoFinding)
{
    Mib mib = service();
    add(mib, 130, 2);  // Eight p-bits at 65535.
    add(mib, 47, 3, {{"BridgeIdPointer", 1}, {"TpType", 0}, {"TpPointer", 77}});
    add(mib, 268, 6, {{"PortId", 4000}, {"Direction", 2}});
    EXPECT_EQ(findings(mib), Texts{});
}

TEST(MibCheck, ClassesLeftOutOfUploadsAreCountedNotBlamed)
{
    Mib mib;
    add(mib, 45, 1);
    add(mib, 47, 2, {{"BridgeIdPointer", 1}, {"TpType", 3}, {"TpPointer", 1}});
    const auto check = checkMib(mib, catalogue());
    EXPECT_TRUE(check.findings.empty());
    EXPECT_EQ(check.unchecked, 1U);
    add(mib, 130, 2);  // Now the MIB has mappers, so that a missing one is missing.
    EXPECT_EQ(findings(mib).size(), 1U);
}

TEST(MibCheck, UpstreamNeedsATContWithAllocId)
{
    Mib mib = service();
    add(mib, 268, 6, {{"PortId", 1025}, {"Direction", 1}});
    add(mib, 268, 7, {{"PortId", 1026}, {"Direction", 1}, {"TcontPointer", 0x8001}});
    add(mib, 262, 0x8001);
    EXPECT_EQ(findings(mib), (Texts{"268/6: carries upstream traffic, but TcontPointer names no T-CONT",
                                    "268/7: carries upstream traffic over TCont (262) instance 32769, which has no "
                                    "alloc-ID"}));
}

TEST(MibCheck, PortIdTwiceInOneDirection)
{
    Mib mib = service();
    add(mib, 268, 6, {{"PortId", 1024}, {"Direction", 2}});
    EXPECT_EQ(findings(mib), Texts{"268/6: port-ID 1024 is used by another GEM port of the same direction"});
}

TEST(MibCheck, MapperThatDoesNotLeadBack)
{
    Mib mib = service();
    add(mib, 268, 6, {{"PortId", 1030}, {"Direction", 2}});
    add(mib, 266, 6, {{"GemPortNetworkCtpConnPointer", 6}, {"InterworkingOption", 5}, {"ServiceProfilePointer", 1}});
    EXPECT_EQ(findings(mib), Texts{"266/6: ServiceProfilePointer names MapperServiceProfile802_1P (130) instance 1, "
                                   "none of whose p-bits leads here"});
}

TEST(MibGraph, RoadFromUniToTCont)
{
    Texts lines;
    const auto graph = graphOf(service(), catalogue());
    for (const auto& line : toTree(graph))
        lines.push_back(line.branches + (line.label.empty() ? "" : line.label + ": ") + line.node->title);
    EXPECT_EQ(lines, (Texts{"Bridge 1", "|- Bridge port 1", "|  `- Ethernet UNI 257", "`- Bridge port 2",
                            "   |- VLAN filter 2", "   `- Mapper 1", "      `- p-bits 0, 7: GEM interworking TP 5",
                            "         `- GEM port 5", "            `- T-CONT 32768"}));
}

TEST(MibGraph, DanglingPointersAndIdleUnis)
{
    Mib mib = service();
    add(mib, 11, 0x102);
    add(mib, 47, 3, {{"BridgeIdPointer", 1}, {"TpType", 1}, {"TpPointer", 0x103}});
    const auto graph = graphOf(mib, catalogue());
    EXPECT_EQ(graph.unconnected, Texts{"Ethernet UNI 258"});
    Texts missing;
    for (const auto& node : graph.nodes) {
        if (node.state == NodeState::Missing)
            missing.push_back(node.title);
    }
    EXPECT_EQ(missing, Texts{"Ethernet UNI 259"});
    EXPECT_NE(toSvg(graph).find("#c62828"), std::string::npos);
    EXPECT_EQ(toSvg(graphOf(service(), catalogue())).find("#c62828"), std::string::npos);
}

TEST(MibGraph, CircleOfSchedulersEnds)
{
    Mib mib = service();
    add(mib, 277, 3, {{"TrafficSchedulerPointer", 1}});
    add(mib, 278, 1, {{"TrafficSchedulerPointer", 2}});
    add(mib, 278, 2, {{"TrafficSchedulerPointer", 1}});
    add(mib, 268, 5,
        {{"PortId", 1024}, {"TcontPointer", 0x8000}, {"Direction", 3}, {"PriorityQueuePointerDownstream", 3}});
    const auto graph = graphOf(mib, catalogue());
    EXPECT_FALSE(toTree(graph).empty());
    EXPECT_FALSE(toSvg(graph).empty());
}

TEST(MibGraph, EmptyMib)
{
    const auto graph = graphOf(Mib(), catalogue());
    EXPECT_TRUE(graph.nodes.empty());
    EXPECT_EQ(toSvg(graph).rfind("<svg", 0), 0U);
    EXPECT_EQ(toDot(graph).rfind("digraph", 0), 0U);
}

}  // namespace

}  // namespace olt
