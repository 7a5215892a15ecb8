// The store of instances: who owns what, walks, deletes and the effect of a MIB reset.
#include "LibraryTest.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeProtectionDataIf.h"

namespace {

using Store = OmciMeProtectionDataIf;

class InstanceStore : public LibraryTest
{};

TEST_F(InstanceStore, CreatingAnExistingInstanceLeavesItAsItWas)
{
    Store* first = Store::createManagedEntityInstance(7, true);
    first->setProtectionType(2);
    log.clear();
    EXPECT_EQ(Store::createManagedEntityInstance(7, false), first);
    EXPECT_EQ(first->getProtectionType(OMCI_ACTION_GET), 2);
    EXPECT_TRUE(first->isCreatedByOlt());
    EXPECT_THAT(log.texts(6), ::testing::Contains(::testing::EndsWith("already exists")));
}

TEST_F(InstanceStore, EmptyStoreHasNoFirstAndNoNext)
{
    EXPECT_EQ(Store::getFirstManagedEntityInstance(), nullptr);
    EXPECT_TRUE(log.has(6, "Empty map"));
    EXPECT_EQ(Store::getNextManagedEntityInstance(0), nullptr);
    EXPECT_TRUE(log.has(6, "Reached end of map"));
    EXPECT_EQ(Store::getManagedEntityInstance(1), nullptr);
    EXPECT_TRUE(log.has(6, "Instance(1) not found"));
}

TEST_F(InstanceStore, WalkIsInAscendingOrder)
{
    for (const unsigned short instance : {0xFFFF, 0, 300, 2}) {
        Store::createManagedEntityInstance(instance, true);
    }
    std::vector<unsigned short> walked;
    for (Store* object = Store::getFirstManagedEntityInstance(); object != nullptr;
         object = Store::getNextManagedEntityInstance(object->getManagedEntityInstance())) {
        walked.push_back(object->getManagedEntityInstance());
    }
    EXPECT_EQ(walked, (std::vector<unsigned short>{0, 2, 300, 0xFFFF}));
    EXPECT_EQ(Store::getNextManagedEntityInstance(0xFFFF), nullptr) << "nothing above the last id";
}

TEST_F(InstanceStore, NextOfADeletedIdIsTheNextHigher)
{
    for (const unsigned short instance : {1, 2, 3}) {
        Store::createManagedEntityInstance(instance, true);
    }
    EXPECT_TRUE(Store::deleteManagedEntityInstance(2, true));
    EXPECT_EQ(Store::getNextManagedEntityInstance(2)->getManagedEntityInstance(), 3);
}

TEST_F(InstanceStore, DeleteOfWhatIsNotThereFails)
{
    EXPECT_FALSE(Store::deleteManagedEntityInstance(9, true));
    EXPECT_TRUE(log.has(6, "Instance(9) not found"));
}

TEST_F(InstanceStore, NeitherSideDeletesTheOthersInstances)
{
    Store::createManagedEntityInstance(1, false);
    Store::createManagedEntityInstance(2, true);
    EXPECT_TRUE(Store::deleteManagedEntityInstance(1, true));
    EXPECT_TRUE(Store::deleteManagedEntityInstance(2, false));
    EXPECT_NE(Store::getManagedEntityInstance(1), nullptr);
    EXPECT_NE(Store::getManagedEntityInstance(2), nullptr);
}

TEST_F(InstanceStore, ResetDropsTheOltsInstancesAndResetsTheOnusOwn)
{
    Store* own = Store::createManagedEntityInstance(1, false);
    Store::createManagedEntityInstance(2, true);
    Store::createManagedEntityInstance(3, true);
    own->setWaitToRestoreTime(99);
    own->updateAlarmsBitmap(5, true);
    Store::eraseAllManagedEntityInstance();
    ASSERT_EQ(Store::getFirstManagedEntityInstance(), own);
    EXPECT_EQ(Store::getNextManagedEntityInstance(1), nullptr);
    EXPECT_EQ(own->getWaitToRestoreTime(OMCI_ACTION_GET), 3);
    std::bitset<223> alarms;
    own->getAlarmsBitmap(alarms);
    EXPECT_TRUE(alarms.none());
}

TEST_F(InstanceStore, ClassesHaveStoresOfTheirOwn)
{
    Store::createManagedEntityInstance(1, true);
    EXPECT_EQ(OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(1), nullptr);
}

}  // namespace
