// Set, Get and update allocate nothing once warm.
#include <list>

#include "AllocationCounter.h"
#include "LibraryTest.h"
#include "Logger.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "host/QuietHardware.h"

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

    /// All attributes of a list of each class of the default MIB, on its first instance; classes of the OLT get one.
    template <typename Visit>
    static void forEachAttribute(int (OmciMe::*listOperation)(std::list<attributeDefinition>*) const, Visit visit)
    {
        for (const OmciMe* me = OmciMeFactory::getInstance()->getFirstManagedEntity(); me != nullptr;
             me = OmciMeFactory::getInstance()->getNextManagedEntity(me->getManagedEntityClassId())) {
            unsigned short instance = 1;
            if (me->getFirstManagedEntityInstance(&instance) != 0 &&
                me->createManagedEntityInstance(instance, true) != 0) {
                continue;
            }
            std::list<attributeDefinition> list;
            (me->*listOperation)(&list);
            for (const attributeDefinition& definition : list) {
                visit(*me, instance, definition);
            }
        }
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

/// What a Set may take from the heap, and why.
bool mayAllocate(unsigned short classId, const attributeDefinition& definition)
{
    // A row is appended, of VLAN tagging too, which is defined as octets. The vendor of the OLT changes the identity of
    // the IP hosts, through the start-up table.
    return definition.isTableAttribute != 0 || (classId == 171 && definition.attributeMask == 0x0400) ||
           (classId == 131 && definition.attributeMask == 0x8000);
}

TEST_F(Allocation, GetOfEveryAttributeAllocatesNothing)
{
    omci::QuietHardware quiet;
    for (OmciHardwareIfc* hardwareLayer :
         {static_cast<OmciHardwareIfc*>(&quiet), static_cast<OmciHardwareIfc*>(nullptr)}) {
        OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(hardwareLayer);
        forEachAttribute(&OmciMe::getAttributesListForGet, [&](const OmciMe& me, unsigned short instance,
                                                               const attributeDefinition& definition) {
            unsigned char buffer[2048] = {};
            EXPECT_EQ(countOf([&] { me.getAttribute(instance, &definition, buffer, OMCI_ACTION_GET); }), 0U)
                << me.getManagedEntityClassId() << ' ' << std::hex << definition.attributeMask
                << (hardwareLayer != nullptr ? "" : " without hardware");
        });
    }
}

TEST_F(Allocation, SetOfEveryAttributeAllocatesNothing)
{
    omci::QuietHardware quiet;
    for (OmciHardwareIfc* hardwareLayer :
         {static_cast<OmciHardwareIfc*>(&quiet), static_cast<OmciHardwareIfc*>(nullptr)}) {
        OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(hardwareLayer);
        forEachAttribute(&OmciMe::getAttributesListForSet,
                         [&](const OmciMe& me, unsigned short instance, const attributeDefinition& definition) {
                             if (mayAllocate(me.getManagedEntityClassId(), definition)) {
                                 return;
                             }
                             unsigned char value[2048] = {};
                             me.getAttribute(instance, &definition, value, OMCI_ACTION_GET);
                             EXPECT_EQ(countOf([&] {
                                           me.setAttribute(instance, &definition, value);
                                           me.applyConfigurationToHardwareForSet(instance);
                                       }),
                                       0U)
                                 << me.getManagedEntityClassId() << ' ' << std::hex << definition.attributeMask
                                 << (hardwareLayer != nullptr ? "" : " without hardware");
                         });
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
