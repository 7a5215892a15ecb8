// The host's share of the start-up MIB, against stand-ins of the library's registrar and core that record what they are
// asked for.

#include "host/HostMib.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "FakeMe.h"
#include "ont_omci_managed_entity/OmciManagedEntitiesCore.h"
#include "ont_omci_managed_entity/OmciManagedEntityRegistrar.h"

namespace {

/// What the stand-ins saw, and what they answer.
struct Library
{
    std::vector<std::string> calls;
    std::set<unsigned short> refusedClasses;
    std::vector<std::unique_ptr<FakeMe>> adapters;
};

Library* g_Library = nullptr;

std::string entity(unsigned short classId, unsigned short instance)
{
    return std::to_string(classId) + " " + std::to_string(instance);
}

}  // namespace

OmciManagedEntityRegistrar::OmciManagedEntityRegistrar() = default;
OmciManagedEntityRegistrar::~OmciManagedEntityRegistrar() = default;

OmciManagedEntityRegistrar* OmciManagedEntityRegistrar::getInstance()
{
    static OmciManagedEntityRegistrar registrar;
    return &registrar;
}

int OmciManagedEntityRegistrar::registerManagedEntity(unsigned short classId)
{
    g_Library->calls.push_back("register " + std::to_string(classId));
    if (g_Library->refusedClasses.count(classId) != 0) {
        return -1;
    }
    g_Library->adapters.push_back(std::make_unique<FakeMe>(classId, std::vector<attributeDefinition>{}));
    return 0;
}

int OmciManagedEntityRegistrar::createManagedEntityInstance(unsigned short classId, unsigned short instance)
{
    g_Library->calls.push_back("create " + entity(classId, instance));
    return g_Library->refusedClasses.count(classId) != 0 ? -1 : 0;
}

int OmciManagedEntityRegistrar::deleteManagedEntityInstance(unsigned short classId, unsigned short instance)
{
    g_Library->calls.push_back("delete " + entity(classId, instance));
    return 0;
}

int OmciManagedEntityRegistrar::setManagedEntityAttribute(unsigned short classId, unsigned short instance,
                                                          unsigned short attributeMask,
                                                          std::vector<unsigned char> value)
{
    g_Library->calls.push_back("set " + entity(classId, instance) + " " + std::to_string(attributeMask) + " " +
                               toHex(value));
    return 0;
}

OmciManagedEntitiesCore::OmciManagedEntitiesCore() = default;
OmciManagedEntitiesCore::~OmciManagedEntitiesCore() = default;
void OmciManagedEntitiesCore::setBootInfoConfigurationFile(std::string)
{}
void OmciManagedEntitiesCore::setFactoryConfigurationFile(std::string)
{}
void OmciManagedEntitiesCore::setSoftwareVersionConfigurationFile(std::string)
{}

int OmciManagedEntitiesCore::getDefaultConfigManagedEntity(unsigned short classId, unsigned short instance,
                                                           StartupConfigManagedEntity&)
{
    g_Library->calls.push_back("default " + entity(classId, instance));
    return classId == 297 ? -1 : 0;
}

DefaultConfigManagedEntity OmciManagedEntitiesCore::defaultConfigManagedEntity[88];

void OmciManagedEntitiesCore::buildAttributeValueMap(DefaultConfigManagedEntity row, unsigned short instance,
                                                     std::map<unsigned int, std::vector<unsigned char>>& values)
{
    const unsigned int key = static_cast<unsigned int>(instance) << 16;
    values[key | 0x8000] = {row.instanceCount};
    values[key | 0x0001] = {0x05, 0xEE};
}

unsigned short OmciManagedEntitiesCore::instancePptpEthernet(unsigned char index)
{
    return static_cast<unsigned short>(257 + index);
}

unsigned short OmciManagedEntitiesCore::instancePptpVideo(unsigned char index)
{
    return static_cast<unsigned short>(1025 + index);
}

unsigned short OmciManagedEntitiesCore::instancePptpVideoAni(unsigned char index)
{
    return static_cast<unsigned short>(1281 + index);
}

namespace {

class HostMibTest : public testing::Test
{
protected:
    HostMibTest()
    {
        g_Library = &library;
        OmciManagedEntitiesCore::defaultConfigManagedEntity[40].classId = 11;
        OmciManagedEntitiesCore::defaultConfigManagedEntity[40].instanceCount = 0x2F;
    }
    ~HostMibTest() override { g_Library = nullptr; }

    Library library;
    OmciManagedEntitiesCore core;
    omci::HostMib mib{*OmciManagedEntityRegistrar::getInstance(), core};
};

}  // namespace

TEST_F(HostMibTest, AnInstanceIsCreatedEnteredAndWritten)
{
    const FakeMe me(11, {});
    EXPECT_EQ(0, mib.createInstance(11, 258));
    const std::vector<std::string> expected{"create 11 258", "default 11 258", "set 11 258 1 05ee",
                                            "set 11 258 32768 2f"};
    EXPECT_EQ(expected, library.calls);
}

TEST_F(HostMibTest, AClassWithoutAnAdapterIsRegisteredFirst)
{
    EXPECT_EQ(0, mib.createInstance(297, 1));
    const std::vector<std::string> expected{"register 297", "create 297 1", "default 297 1"};
    EXPECT_EQ(expected, library.calls);
}

TEST_F(HostMibTest, WhatTheRegistrarRefusesIsNotEntered)
{
    library.refusedClasses = {268};
    EXPECT_EQ(-1, mib.createInstance(268, 1));
    EXPECT_EQ(std::vector<std::string>{"register 268"}, library.calls);
    const FakeMe me(268, {});
    EXPECT_EQ(-1, mib.createInstance(268, 1));
    EXPECT_EQ("create 268 1", library.calls.back());
}

TEST_F(HostMibTest, PortsAreMadeByTheBoardsCounts)
{
    const FakeMe ethernet(11, {});
    EXPECT_EQ(0U, mib.createEthernetUnis(2));
    EXPECT_EQ(0U, mib.createVideoUnis(1));
    EXPECT_EQ(0U, mib.createVideoAnis(1));
    for (const char* call : {"create 11 257", "create 11 258", "create 82 1025", "create 90 1281"}) {
        EXPECT_EQ(1, std::count(library.calls.begin(), library.calls.end(), call)) << call;
    }
    library.refusedClasses = {11};
    EXPECT_EQ(3U, mib.createEthernetUnis(3));
}

TEST_F(HostMibTest, ClassesWithoutAStartupRowAreRegisteredOnce)
{
    const FakeMe known(89, {});
    mib.registerRemainingClasses();
    EXPECT_EQ(26U, library.calls.size());
    EXPECT_EQ(0, std::count(library.calls.begin(), library.calls.end(), "register 89"));
    EXPECT_EQ(1, std::count(library.calls.begin(), library.calls.end(), "register 65421"));
    mib.registerRemainingClasses();
    EXPECT_EQ(26U, library.calls.size());
}

TEST_F(HostMibTest, DeletingGoesThroughTheRegistrar)
{
    EXPECT_EQ(0, mib.deleteInstance(11, 257));
    EXPECT_EQ(std::vector<std::string>{"delete 11 257"}, library.calls);
}
