// Building adapters and instances by class, and writing values to them.
#include "HALFactory.h"
#include "LibraryTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeCardholderIf.h"
#include "OmciMeFactory.h"
#include "OmciMeOnuDataIf.h"
#include "OmciMeProtectionDataIf.h"

namespace {

using ::testing::_;

class Registrar : public LibraryTest
{
protected:
    static OmciManagedEntityRegistrar& registrar() { return *OmciManagedEntityRegistrar::getInstance(); }
};

TEST_F(Registrar, IsMadeAtTheFirstCallAndAfterDeletion)
{
    OmciManagedEntityRegistrar::deleteInstance();
    log.clear();
    OmciManagedEntityRegistrar* made = OmciManagedEntityRegistrar::getInstance();
    EXPECT_EQ(OmciManagedEntityRegistrar::getInstance(), made);
    EXPECT_THAT(log.texts(6), ::testing::ElementsAre(::testing::StartsWith("this(0x")));
    EXPECT_EQ(made->getOmciHardwareIfc(), nullptr);
}

TEST_F(Registrar, DeletingItTwiceIsHarmless)
{
    OmciManagedEntityRegistrar::deleteInstance();
    OmciManagedEntityRegistrar::deleteInstance();
}

TEST_F(Registrar, UnknownClassIsNotSupported)
{
    EXPECT_EQ(registrar().registerManagedEntity(3), -1);
    EXPECT_EQ(registrar().registerManagedEntity(65405), -1);
    EXPECT_TRUE(log.has(3, "Managed entity class(3) not supported"));
}

TEST_F(Registrar, UnregisteredClassLeavesTheFactory)
{
    OmciMe* me = &adapter(2);
    EXPECT_EQ(registrar().unregisterManagedEntity(2), 0);
    EXPECT_EQ(OmciMeFactory::getInstance()->getManagedEntity(2), nullptr);
    delete me;
}

TEST_F(Registrar, CreatesAsTheOnusOwn)
{
    EXPECT_EQ(registrar().createManagedEntityInstance(5, 257), 0);
    EXPECT_FALSE(OmciMeCardholderIf::getManagedEntityInstance(257)->isCreatedByOlt());
    EXPECT_EQ(registrar().deleteManagedEntityInstance(5, 257), 0);
    EXPECT_EQ(registrar().deleteManagedEntityInstance(5, 257), -1);
    EXPECT_TRUE(log.has(3, "Delete managed entity(5; 257) failed"));
}

TEST_F(Registrar, OnuMakesNoGemPort)
{
    EXPECT_EQ(registrar().createManagedEntityInstance(268, 1), -1);
    EXPECT_EQ(registrar().deleteManagedEntityInstance(268, 1), -1);
    EXPECT_EQ(log.count(3, "Managed entity class(268) not supported"), 2U);
}

TEST_F(Registrar, DeleteLeavesTheOltsInstance)
{
    OmciMeProtectionDataIf::createManagedEntityInstance(4, true);
    EXPECT_EQ(registrar().deleteManagedEntityInstance(279, 4), 0);
    EXPECT_NE(OmciMeProtectionDataIf::getManagedEntityInstance(4), nullptr);
}

TEST_F(Registrar, WritesBytesThroughTheAdapter)
{
    adapter(2);
    registrar().createManagedEntityInstance(2, 0);
    EXPECT_EQ(registrar().setManagedEntityAttribute(2, 0, 0x8000, {42}), 0);
    EXPECT_EQ(OmciMeOnuDataIf::getManagedEntityInstance(0)->getMibDataSync(OMCI_ACTION_GET), 42);
    EXPECT_TRUE(log.has(6, "Managed entity(2; 0); Attribute mask(0x8000); Attribute value size(1)"));
}

TEST_F(Registrar, WriteToAnUnregisteredClassFails)
{
    EXPECT_EQ(registrar().setManagedEntityAttribute(2, 0, 0x8000, {1}), -1);
    EXPECT_TRUE(log.has(3, "Managed entity class(2) not found"));
}

TEST_F(Registrar, WriteOfAnUnknownAttributeFails)
{
    adapter(2);
    EXPECT_EQ(registrar().setManagedEntityAttribute(2, 0, 0x0001, {1}), -1);
    EXPECT_THAT(log.texts(3), ::testing::Contains(::testing::StartsWith("getAttributeSize(2; 0x1) failed(")));
}

TEST_F(Registrar, WriteToAMissingInstanceFails)
{
    adapter(2);
    EXPECT_EQ(registrar().setManagedEntityAttribute(2, 9, 0x8000, {1}), -1);
    EXPECT_TRUE(log.has(3, "setAttribute(9; 0x8000) for ME(2) failed(-1)"));
}

TEST_F(Registrar, ShortValueIsFilledUpWithZeros)
{
    adapter(279);
    create(279, 1);
    EXPECT_EQ(registrar().setManagedEntityAttribute(279, 1, 0x8000, {0x12}), 0);
    EXPECT_EQ(OmciMeProtectionDataIf::getManagedEntityInstance(1)->getWorkingAniGPointer(OMCI_ACTION_GET), 0x1200);
    EXPECT_EQ(registrar().setManagedEntityAttribute(279, 1, 0x8000, {}), 0);
    EXPECT_EQ(OmciMeProtectionDataIf::getManagedEntityInstance(1)->getWorkingAniGPointer(OMCI_ACTION_GET), 0);
}

TEST_F(Registrar, LongValueIsCut)
{
    adapter(2);
    registrar().createManagedEntityInstance(2, 0);
    EXPECT_EQ(registrar().setManagedEntityAttribute(2, 0, 0x8000, std::vector<unsigned char>(5000, 7)), 0);
    EXPECT_EQ(OmciMeOnuDataIf::getManagedEntityInstance(0)->getMibDataSync(OMCI_ACTION_GET), 7);
}

TEST_F(Registrar, AttributeThatReportsChangesIsSent)
{
    adapter(5);
    registrar().createManagedEntityInstance(5, 257);
    EXPECT_CALL(hardware, sendAttributeValueChange(_)).Times(1);
    EXPECT_EQ(registrar().setManagedEntityAttribute(5, 257, 0x8000, {47}), 0);  // ActualPluginUnitType reports changes
    EXPECT_EQ(registrar().setManagedEntityAttribute(5, 257, 0x4000, {47}), 0);  // ExpectedPluginUnitType does not
}

TEST_F(Registrar, ChangeWithoutHardwareIsNotSent)
{
    adapter(5);
    registrar().createManagedEntityInstance(5, 257);
    removeHardware();
    EXPECT_EQ(registrar().setManagedEntityAttribute(5, 257, 0x8000, {47}), 0);
}

}  // namespace
