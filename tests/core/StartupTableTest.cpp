// The start-up table becomes the records of the MIB.
#include "CoreTest.h"

namespace {

using Core = OmciManagedEntitiesCore;
using Values = std::map<unsigned int, Bytes>;

class StartupTable : public CoreTest
{
protected:
    static std::vector<StartupConfigManagedEntity> records(const Core& core)
    {
        std::vector<StartupConfigManagedEntity> found;
        core.getManagedEntitiesCore(found);
        return found;
    }

    /// The bytes of attribute 1 of a row whose attribute 1 has this kind and text.
    static Values build(EnumStartupValueKind kind, const std::string& text)
    {
        DefaultConfigManagedEntity row{};
        row.classId = 263;
        row.attributeKinds[0] = kind;
        text.copy(reinterpret_cast<char*>(row.attributeValues[0]), sizeof row.attributeValues[0]);
        Values values;
        Core().buildAttributeValueMap(row, 0x0401, values);
        return values;
    }
};

TEST_F(StartupTable, HasARecordForEachRowInItsOrder)
{
    Core core;
    const auto found = records(core);
    ASSERT_EQ(found.size(), 88U);
    EXPECT_EQ(core.getDefaultConfigManagedEntitySize(), 88);
    for (std::size_t row = 0; row < found.size(); ++row) {
        EXPECT_EQ(found[row].classId, Core::defaultConfigManagedEntity[row].classId);
    }
    EXPECT_TRUE(log.has(6, "Number of managed entities supported(88)"));
}

TEST_F(StartupTable, CountOfZeroGivesAClassWithoutInstances)
{
    const StartupConfigManagedEntity record = records(Core())[8];
    EXPECT_EQ(record.classId, 425);
    EXPECT_TRUE(record.instances.empty());
    EXPECT_TRUE(record.attributeValues.empty());
}

TEST_F(StartupTable, InstancesComeInTheOrderOfTheirIndex)
{
    EXPECT_EQ(records(Core())[1].instances, (std::list<unsigned short>{257, 258, 259, 260}));
}

TEST_F(StartupTable, Onu3GHasTheFunctionsOfOnu2G)
{
    const StartupConfigManagedEntity record = records(Core())[76];
    EXPECT_EQ(record.classId, 65422);
    EXPECT_EQ(record.instances, std::list<unsigned short>{0});
    EXPECT_EQ(record.attributeValues.at(0x4000), Bytes{0xB3}) << "the OMCC version's mask is the restart reason's";
}

TEST_F(StartupTable, NumbersComeOutMostSignificantByteFirst)
{
    EXPECT_EQ(build(STARTUP_VALUE_1_BYTE, "300").at(0x04018000), Bytes{44});
    EXPECT_EQ(build(STARTUP_VALUE_2_BYTES, "65535").at(0x04018000), (Bytes{0xFF, 0xFF}));
    EXPECT_EQ(build(STARTUP_VALUE_4_BYTES, "16777223").at(0x04018000), (Bytes{1, 0, 0, 7}));
    EXPECT_EQ(build(STARTUP_VALUE_8_BYTES, "1").at(0x04018000), (Bytes{0, 0, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(build(STARTUP_VALUE_8_BYTES, "-1").at(0x04018000), Bytes(8, 0xFF));
}

TEST_F(StartupTable, HexadecimalTextOfANumberIsZero)
{
    EXPECT_EQ(build(STARTUP_VALUE_2_BYTES, "0xFFFF").at(0x04018000), (Bytes{0, 0}));
}

TEST_F(StartupTable, OctetsAreTheFirst25BytesOfTheField)
{
    Bytes expected(25);
    std::string("NRVK").copy(reinterpret_cast<char*>(expected.data()), 4);
    EXPECT_EQ(build(STARTUP_VALUE_OCTETS, "NRVK").at(0x04018000), expected);
    EXPECT_EQ(build(STARTUP_VALUE_OCTETS, std::string(26, 'x')).at(0x04018000), Bytes(25, 'x'));
}

TEST_F(StartupTable, OtherKindsGiveNoEntry)
{
    EXPECT_TRUE(build(STARTUP_VALUE_NONE, "1").empty());
    EXPECT_TRUE(build(static_cast<EnumStartupValueKind>(6), "1").empty());
}

TEST_F(StartupTable, EntryThatIsThereStays)
{
    Values values{{0x04018000, Bytes{9}}};
    DefaultConfigManagedEntity row{};
    row.attributeKinds[0] = STARTUP_VALUE_1_BYTE;
    row.attributeKinds[15] = STARTUP_VALUE_1_BYTE;
    Core().buildAttributeValueMap(row, 0x0401, values);
    EXPECT_EQ(values, (Values{{0x04018000, Bytes{9}}, {0x04010001, Bytes{0}}}));
    EXPECT_TRUE(log.has(6, "Managed entity(0; 1025) to build"));
    EXPECT_TRUE(log.has(6, "Attribute value map size(2)"));
}

TEST_F(StartupTable, OneClassAndInstanceIsAddedToThePicture)
{
    Core core;
    registrar().setSupportedManagedEntities(records(core));
    StartupConfigManagedEntity record;
    record.classId = 1;
    EXPECT_EQ(core.getDefaultConfigManagedEntity(267, 0x0101, record), 0);
    EXPECT_EQ(record.classId, 0);
    EXPECT_TRUE(record.instances.empty());
    EXPECT_TRUE(record.attributeValues.empty());
    EXPECT_EQ(stored(267, 0x0101, 0x2000), Bytes(4));
    EXPECT_TRUE(log.has(6, "Managed entity(267; 257) to add"));
}

TEST_F(StartupTable, ClassOutsideItIsNotSupported)
{
    StartupConfigManagedEntity record;
    record.classId = 1;
    record.instances = {1};
    EXPECT_EQ(Core().getDefaultConfigManagedEntity(65402, 1024, record), -1);
    EXPECT_EQ(record.classId, 0);
    EXPECT_TRUE(record.instances.empty());
    EXPECT_TRUE(log.has(4, "Managed entity(65402; 1024) not supported"));
}

TEST_F(StartupTable, ClearedRecordIsEmpty)
{
    StartupConfigManagedEntity record{5, {257}, {{1, {2}}}};
    Core().clearOmciManagedEntitiesAndInstances(record);
    EXPECT_EQ(record.classId, 0);
    EXPECT_TRUE(record.instances.empty() && record.attributeValues.empty());
}

TEST_F(StartupTable, EditsOutliveTheCoreThatMadeThem)
{
    Core().findAndUpdate(262, 2);
    EXPECT_EQ(records(Core())[47].instances, (std::list<unsigned short>{256, 257}));
}

TEST_F(StartupTable, CountOfAClassWithoutNumberingMakesNothing)
{
    Core().findAndUpdate(171, 1);
    EXPECT_TRUE(records(Core())[9].instances.empty());
}

TEST_F(StartupTable, ConstructionTakesTheBoardsAbstractionObject)
{
    FakeHal hal;
    HALFactory::getInstance()->setHal(&hal);
    Core();
    EXPECT_EQ(nrvkHalPtr, static_cast<void*>(&hal));
}

TEST_F(StartupTable, FactoryFileIsKept)
{
    Core("/opt/addons/etc/factory.ini");
    EXPECT_EQ(Core::m_FactoryConfigurationFile, "/opt/addons/etc/factory.ini");
    Core(std::string());
    EXPECT_EQ(Core::m_FactoryConfigurationFile, "/opt/addons/etc/factory.ini") << "an empty name changes nothing";
}

TEST_F(StartupTable, EachFileSetterHasItsOwnStatic)
{
    Core core;
    core.setBootInfoConfigurationFile("boot");
    core.setFactoryConfigurationFile("factory");
    core.setSoftwareVersionConfigurationFile("images");
    EXPECT_EQ(Core::m_BootInfoConfigurationFile, "boot");
    EXPECT_EQ(Core::m_FactoryConfigurationFile, "factory");
    EXPECT_EQ(Core::m_AppInfoConfigurationFile, "images");
    for (const char* file : {"boot", "factory", "images"}) {
        EXPECT_TRUE(log.has(6, std::string("Configuration file(") + file + ")"));
    }
}

struct InstanceRule
{
    const char* name;
    unsigned short (*function)(unsigned char);
    unsigned short first;
    unsigned short last;  ///< of index 255
};

class InstanceIds : public CoreTest, public ::testing::WithParamInterface<InstanceRule>
{};

TEST_P(InstanceIds, FollowTheIndex)
{
    EXPECT_EQ(GetParam().function(0), GetParam().first);
    EXPECT_EQ(GetParam().function(255), GetParam().last);
    EXPECT_TRUE(log.has(6, "Index(255)"));
}

INSTANTIATE_TEST_SUITE_P(
    All, InstanceIds,
    ::testing::Values(
        InstanceRule{"OltG", Core::instanceOltG, 0, 0}, InstanceRule{"OntSystem", Core::instanceOntSystem, 0, 0},
        InstanceRule{"OntFeature", Core::instanceOntFeature, 0, 0}, InstanceRule{"OnuG", Core::instanceOnuG, 0, 0},
        InstanceRule{"Onu2G", Core::instanceOnu2G, 0, 0}, InstanceRule{"OnuData", Core::instanceOnuData, 0, 0},
        InstanceRule{"OnuRemoteDebug", Core::instanceOnuRemoteDebug, 0, 0},
        InstanceRule{"EnhancedSecurityControl", Core::instanceEnhancedSecurityControl, 0, 0},
        InstanceRule{"PowerShedding", Core::instancePowerShedding, 0, 0},
        InstanceRule{"OnuDynamicPowerManagement", Core::instanceOnuDynamicPowerManagement, 0, 0},
        InstanceRule{"IpHostConfigData", Core::instanceIpHostConfigData, 0, 255},
        InstanceRule{"VoipConfigData", Core::instanceVoipConfigData, 0, 255},
        InstanceRule{"SoftwareImage", Core::instanceSoftwareImage, 0, 255},
        InstanceRule{"TCont", Core::instanceTCont, 256, 511},
        InstanceRule{"CardHolder", Core::instanceCardHolder, 257, 512},
        InstanceRule{"CircuitPack", Core::instanceCircuitPack, 257, 512},
        InstanceRule{"PptpEthernet", Core::instancePptpEthernet, 257, 512},
        InstanceRule{"UniG", Core::instanceUniG, 257, 512}, InstanceRule{"Veip", Core::instanceVEIP, 513, 768},
        InstanceRule{"PptpPotsUni", Core::instancePptpPotsUni, 769, 1024},
        InstanceRule{"VoipLineStatus", Core::instanceVoipLineStatus, 769, 1024},
        InstanceRule{"AniG", Core::instanceAniG, 1025, 1280},
        InstanceRule{"PptpVideo", Core::instancePptpVideo, 1025, 1280},
        InstanceRule{"PptpVideoAni", Core::instancePptpVideoAni, 1281, 1536},
        InstanceRule{"TwdmChannel", Core::instanceTWDMChannel, 1024, 1279},
        InstanceRule{"TwdmSystemProfile", Core::instanceTWDMSystemProfile, 1024, 1279},
        InstanceRule{"TrafficScheduler", Core::instanceTrafficScheduler, 0x8000, 0x80FF}),
    [](const auto& rule) { return std::string(rule.param.name); });

TEST_F(StartupTable, QueuesNumberUpstreamWithTheTopBitAndDownstreamFromZero)
{
    Core::TOTAL_UPSTREAM_PRIORITY_QUEUES = 64;
    EXPECT_EQ(Core::instancePriorityQueue(0), 0x8000);
    EXPECT_EQ(Core::instancePriorityQueue(63), 0x803F);
    EXPECT_EQ(Core::instancePriorityQueue(64), 0);
    EXPECT_EQ(Core::instancePriorityQueue(255), 191);
}

TEST_F(StartupTable, StatusPortalSitsOnAnEthernetPortTheIpHostOrTheAni)
{
    EXPECT_EQ(Core::instanceFlexibleConfigurationStatusPortal(0), 257);
    EXPECT_EQ(Core::instanceFlexibleConfigurationStatusPortal(1), 1025);
    EXPECT_EQ(Core::instanceFlexibleConfigurationStatusPortal(2), 2);
    EXPECT_EQ(Core::instanceFlexibleConfigurationStatusPortal(3), 1025);
    Core::NUMBER_OF_ETHERNET_UNI_SUPPORTED = 4;
    EXPECT_EQ(Core::instanceFlexibleConfigurationStatusPortal(2), 259);
}

}  // namespace
