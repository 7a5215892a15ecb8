// Set, Get and update allocate nothing once warm.
#include "AllocationCounter.h"
#include "LibraryTest.h"
#include "Logger.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"

namespace {

class Allocation : public LibraryTest
{
protected:
    Allocation()
    {
        startUp();
        // As in a product: lines are dropped by their level, not captured.
        Logger::getInstance(150)->setObserver(nullptr, nullptr);
        Logger::getInstance(150)->setLevel(2);
    }

    template <typename Road>
    static std::size_t countOf(Road road)
    {
        road();  // warm
        const std::size_t before = allocationsOfThisThread();
        road();
        return allocationsOfThisThread() - before;
    }
};

TEST_F(Allocation, SetAndGetAllocateNothing)
{
    const std::vector<std::pair<unsigned short, unsigned short>> subjects = {
        {2, 0x8000}, {263, 0x2000}, {257, 0x0040}, {242, 0x8000}, {5, 0x1000}, {256, 0x0400}};
    for (const auto& [classId, mask] : subjects) {
        const OmciMe& me = adapter(classId);
        const attributeDefinition definition = definitionOf(classId, mask);
        unsigned short instance = 0;
        ASSERT_EQ(me.getFirstManagedEntityInstance(&instance), 0);
        unsigned char buffer[64] = {};
        EXPECT_EQ(countOf([&] { me.setAttribute(instance, &definition, buffer); }), 0U) << classId;
        EXPECT_EQ(countOf([&] { me.getAttribute(instance, &definition, buffer, OMCI_ACTION_GET); }), 0U) << classId;
        EXPECT_EQ(countOf([&] { me.applyConfigurationToHardwareForSet(instance); }), 0U) << classId;
    }
}

TEST_F(Allocation, RefusalsAllocateNothing)
{
    const OmciMe& me = adapter(263);
    attributeDefinition definition = definitionOf(263, 0x2000);
    unsigned char buffer[64] = {};
    EXPECT_EQ(countOf([&] { me.setAttribute(9, &definition, buffer); }), 0U);
    definition.attributeMask = 0x0003;
    EXPECT_EQ(countOf([&] { me.setAttribute(1025, &definition, buffer); }), 0U);
}

TEST_F(Allocation, UpdateAllocatesTheChangeMessageOnly)
{
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    EXPECT_EQ(countOf([&] { registrar->updateManagedEntity<unsigned int>(257, 0, 0x0040, 5); }), 1U);
    EXPECT_EQ(countOf([&] { registrar->updateManagedEntity<unsigned char>(263, 1025, 0x8000, 5); }), 1U);
    EXPECT_EQ(countOf([&] { registrar->updateManagedEntity<unsigned int>(257, 0, 0x0001, 5); }), 0U) << "no entry";
}

TEST_F(Allocation, FeedAllocatesTheChangeMessageOfEachCounterOnly)
{
    OmciManagedEntitiesCore core;
    for (const unsigned short classId : {334, 425}) {
        ASSERT_EQ(create(classId, 0x0101), 0);
        ASSERT_EQ(create(classId, 0x0181), 0);
        EthernetFrameExtendedCounters counters{};
        const auto feed = [&] {
            ++counters.octets;
            core.updateEthernetFrameExtendedPM(classId, 0x0101, counters, counters);
        };
        EXPECT_EQ(countOf(feed), 2U * 14U) << classId;
        EXPECT_EQ(getNumber(classId, 0x0181, 0x1000), 2U) << "the feed arrived";
    }
}

TEST_F(Allocation, FeedOfAPortsDirectionsAllocatesNothing)
{
    ASSERT_EQ(create(47, 5), 0);
    auto* port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(5);
    port->setTpType(1);
    port->setTpPointer(257);
    ASSERT_EQ(create(322, 5), 0);
    ASSERT_EQ(create(321, 5), 0);
    OmciManagedEntitiesCore core;
    const EthernetFrameExtendedCounters counters{};
    EXPECT_EQ(countOf([&] { core.updateEthernetFramePM(24, 257, counters, counters); }), 0U);
}

}  // namespace
