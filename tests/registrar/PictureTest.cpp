// The configured picture: brought to life, taken down, rewritten, extended, renamed.
#include "LibraryTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeOnuDataIf.h"

namespace {

StartupConfigManagedEntity record(unsigned short classId, std::list<unsigned short> instances,
                                  std::map<unsigned int, std::vector<unsigned char>> values)
{
    StartupConfigManagedEntity entity;
    entity.classId = classId;
    entity.instances = std::move(instances);
    entity.attributeValues = std::move(values);
    return entity;
}

class Picture : public LibraryTest
{
protected:
    static OmciManagedEntityRegistrar& registrar() { return *OmciManagedEntityRegistrar::getInstance(); }

    static StartupConfigManagedEntity recordOf(unsigned short classId)
    {
        std::vector<StartupConfigManagedEntity> picture;
        registrar().getConfigManagedEntityVector(picture);
        for (const StartupConfigManagedEntity& entity : picture) {
            if (entity.classId == classId) {
                return entity;
            }
        }
        return {};
    }

    static unsigned char dataSync(unsigned short instance)
    {
        return OmciMeOnuDataIf::getManagedEntityInstance(instance)->getMibDataSync(OMCI_ACTION_GET);
    }
};

TEST_F(Picture, DefaultMibComesToLife)
{
    startUp();
    std::vector<StartupConfigManagedEntity> picture;
    registrar().getConfigManagedEntityVector(picture);
    EXPECT_EQ(picture.size(), 88U);
    EXPECT_TRUE(log.has(6, "Managed entities registered(88)"));
    for (const StartupConfigManagedEntity& entity : picture) {
        const OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(entity.classId);
        ASSERT_NE(me, nullptr) << entity.classId;
        for (const unsigned short instance : entity.instances) {
            EXPECT_EQ(me->findManagedEntityInstance(instance), 0) << entity.classId;
        }
    }
}

TEST_F(Picture, TableValuesOverwriteTheClassDefaults)
{
    startUp();
    EXPECT_EQ(getNumber(263, 1025, 0x8000), 1U);
    EXPECT_EQ(getNumber(263, 1025, 0x4000), 8U);
    EXPECT_EQ(getNumber(257, 0, 0x4000), 0xB3U);
    EXPECT_EQ(getNumber(138, 0, 0x0800), 65535U);
}

TEST_F(Picture, ClassDefaultStandsWhereTheTableIsSilent)
{
    startUp();
    EXPECT_EQ(getNumber(257, 0, 0x0010), 3U) << "CurrentConnectivityMode";
    EXPECT_EQ(getNumber(131, 0, 0x8000), 0x20202020U) << "OltVendorId";
}

TEST_F(Picture, FailuresAreLoggedAndSkipped)
{
    registrar().setSupportedManagedEntities(
        {record(3, {1}, {}), record(268, {7}, {}), record(2, {0}, {{0x00000001, {5}}}), record(279, {}, {})});
    EXPECT_EQ(registrar().registerSupportedManagedEntities(), 0);
    EXPECT_TRUE(log.has(3, "registerManagedEntity() failed(-1)"));
    EXPECT_TRUE(log.has(3, "createManagedEntityInstance(3; 1) failed(-1)"));
    EXPECT_TRUE(log.has(3, "createManagedEntityInstance(268; 7) failed(-1)"));
    EXPECT_TRUE(log.has(3, "setManagedEntityAttribute(2; 0; 1) failed(-1)"));
    EXPECT_NE(OmciMeFactory::getInstance()->getManagedEntity(279), nullptr);
}

TEST_F(Picture, IsTakenDownAgain)
{
    startUp();
    create(279, 1);
    const std::vector<unsigned short> classes = {2, 5, 134, 263};
    std::vector<OmciMe*> adapters;
    OmciMeFactory* factory = OmciMeFactory::getInstance();
    for (OmciMe* me = factory->getFirstManagedEntity(); me != nullptr;
         me = factory->getNextManagedEntity(me->getManagedEntityClassId())) {
        if (me->getManagedEntityClassId() != 279) {
            adapters.push_back(me);
        }
    }
    EXPECT_EQ(registrar().unregisterSupportedManagedEntitiesAndInstances(), 0);
    EXPECT_EQ(OmciMeOnuDataIf::getFirstManagedEntityInstance(), nullptr);
    for (const unsigned short classId : classes) {
        EXPECT_EQ(factory->getManagedEntity(classId), nullptr) << classId;
    }
    for (OmciMe* me : adapters) {
        delete me;
    }
}

TEST_F(Picture, InitialisationRewritesTheStoredValues)
{
    startUp();
    set(263, 1025, 0x0400, 3ULL);
    EXPECT_EQ(registrar().initializeSupportedManagedEntitiesAndInstances(), 0);
    EXPECT_EQ(getNumber(263, 1025, 0x0400), 5U);
}

TEST_F(Picture, AddedInstanceChangesThePictureOnly)
{
    startUp();
    EXPECT_EQ(registrar().addManagedEntityInstance(record(2, {5}, {{0x00058000, {9}}})), 0);
    EXPECT_TRUE(log.has(6, "Managed entity(2; 5) to add"));
    EXPECT_EQ(OmciMeOnuDataIf::getManagedEntityInstance(5), nullptr);
    EXPECT_EQ(recordOf(2).instances, (std::list<unsigned short>{0, 5}));
    EXPECT_EQ(recordOf(2).attributeValues.at(0x00058000), (std::vector<unsigned char>{9}));
}

TEST_F(Picture, AddingAnInstanceAgainChangesNothing)
{
    startUp();
    EXPECT_EQ(registrar().addManagedEntityInstance(record(2, {0}, {{0x00008000, {9}}, {0x00004000, {1}}})), 0);
    EXPECT_TRUE(log.has(4, "Managed entity(2; 0) already configured"));
    EXPECT_EQ(recordOf(2).instances.size(), 1U);
    EXPECT_EQ(recordOf(2).attributeValues.count(0x00004000), 0U);
}

TEST_F(Picture, AddedKeysDontReplaceOlderOnes)
{
    registrar().setSupportedManagedEntities({record(2, {}, {{0x00058000, {1}}})});
    registrar().addManagedEntityInstance(record(2, {5}, {{0x00058000, {9}}}));
    EXPECT_EQ(recordOf(2).attributeValues.at(0x00058000), (std::vector<unsigned char>{1}));
}

TEST_F(Picture, AddingToAnUnknownClassOrNothingAtAllSucceeds)
{
    startUp();
    EXPECT_EQ(registrar().addManagedEntityInstance(record(3, {1}, {})), 0);
    EXPECT_EQ(registrar().addManagedEntityInstance(StartupConfigManagedEntity()), 0);
    EXPECT_TRUE(log.has(6, "Managed entity(0; 0) to add"));
}

TEST_F(Picture, UpdateNeedsTheSameInstances)
{
    startUp();
    EXPECT_EQ(registrar().updateSupportedManagedEntityAndInstance(record(2, {0, 1}, {{0x00008000, {9}}})), 0);
    EXPECT_EQ(dataSync(0), 0);
    EXPECT_EQ(registrar().updateSupportedManagedEntityAndInstance(record(2, {0}, {{0x00008000, {9}}})), 0);
    EXPECT_EQ(dataSync(0), 9);
    EXPECT_EQ(recordOf(2).attributeValues.size(), 1U);
}

TEST_F(Picture, RenamedInstanceTakesItsEntriesAndDropsTheOthers)
{
    startUp();
    registrar().updateManagedEntity<unsigned char>(134, 0, 0x8000, 5);
    EXPECT_EQ(registrar().swapManagedEntityInstanceId(134, 0, 515), 0);
    EXPECT_EQ(OmciMeIpHostConfigDataIf::getManagedEntityInstance(0), nullptr);
    ASSERT_NE(OmciMeIpHostConfigDataIf::getManagedEntityInstance(515), nullptr);
    EXPECT_EQ(getNumber(134, 515, 0x8000), 5U);
    EXPECT_EQ(recordOf(134).instances, (std::list<unsigned short>{515, 1}));
    for (const auto& [key, value] : recordOf(134).attributeValues) {
        EXPECT_EQ(key >> 16, 515U);
    }
}

TEST_F(Picture, RenamingAMissingObjectFails)
{
    registrar().setSupportedManagedEntities({record(134, {0}, {})});
    EXPECT_EQ(registrar().swapManagedEntityInstanceId(134, 0, 515), -1);
    EXPECT_TRUE(log.has(3, "deleteManagedEntityInstance(134; 0) failed(-1)"));
    EXPECT_EQ(registrar().swapManagedEntityInstanceId(134, 77, 515), 0) << "nothing to rename";
}

}  // namespace
