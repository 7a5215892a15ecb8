// Ethernet OAM: the MEP, its companion and the entities that only store.
#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeDot1agMEPIf.h"
#include "OmciMeDot1agMEPstatusIf.h"

using ::testing::_;
using ::testing::NotNull;
using ::testing::Return;

namespace {

constexpr unsigned short kMep = 302;
constexpr unsigned short kMepStatus = 303;
constexpr unsigned short kLayer2EntityPointer = 0x8000;
constexpr unsigned short kLayer2Type = 0x4000;

class Dot1agMep : public LibraryTest
{
protected:
    static constexpr unsigned short kInstance = 0xFFFF;

    void SetUp() override
    {
        adapter(kMepStatus);
        ASSERT_EQ(create(kMep, kInstance), 0);
        log.clear();
    }

    static OmciMeDot1agMEPstatusIf* status() { return OmciMeDot1agMEPstatusIf::getManagedEntityInstance(kInstance); }
};

TEST_F(Dot1agMep, BringsItsStatusAlongAndTakesItAway)
{
    ASSERT_NE(status(), nullptr);
    EXPECT_TRUE(status()->isCreatedByOlt());
    EXPECT_EQ(adapter(kMep).deleteManagedEntityInstance(kInstance, true), 0);
    EXPECT_EQ(status(), nullptr);
    EXPECT_TRUE(log.texts(3).empty());
}

TEST_F(Dot1agMep, StatusThatHasGoneBeforeIsLoggedAtTheDelete)
{
    ASSERT_TRUE(OmciMeDot1agMEPstatusIf::deleteManagedEntityInstance(kInstance, true));
    EXPECT_EQ(adapter(kMep).deleteManagedEntityInstance(kInstance, true), 0);
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Failed to delete MepStatus instance(65535)"});
    EXPECT_EQ(OmciMeDot1agMEPIf::getManagedEntityInstance(kInstance), nullptr);
}

TEST_F(Dot1agMep, StatusOfTheOnusOwnMakingOutlivesTheMep)
{
    ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(kMepStatus, 1), 0);
    ASSERT_EQ(create(kMep, 1), 0);
    EXPECT_EQ(adapter(kMep).deleteManagedEntityInstance(1, true), 0);
    EXPECT_NE(OmciMeDot1agMEPstatusIf::getManagedEntityInstance(1), nullptr);
}

TEST_F(Dot1agMep, ResolvedLayer2EntityIsStoredInSilence)
{
    EXPECT_CALL(hardware, resolveDot1agLayer2Entity(0x0101, 0, NotNull())).WillOnce(Return(4));
    EXPECT_CALL(hardware, resolveDot1agLayer2Entity(0x0101, 1, NotNull())).WillOnce(Return(0));
    EXPECT_EQ(set(kMep, kInstance, kLayer2EntityPointer, 0x0101), 0);
    EXPECT_EQ(set(kMep, kInstance, kLayer2Type, 1), 0);
    EXPECT_TRUE(log.texts(3).empty());
    EXPECT_EQ(getNumber(kMep, kInstance, kLayer2EntityPointer), 0x0101U);
    EXPECT_EQ(getNumber(kMep, kInstance, kLayer2Type), 1U);
}

TEST_F(Dot1agMep, UnresolvedLayer2EntityIsLoggedInTwoFormatsAndKept)
{
    EXPECT_CALL(hardware, resolveDot1agLayer2Entity(_, _, _)).Times(2).WillRepeatedly(Return(5));
    EXPECT_EQ(set(kMep, kInstance, kLayer2EntityPointer, 0x0ABC), 0);
    EXPECT_EQ(set(kMep, kInstance, kLayer2Type, 1), 0);
    EXPECT_EQ(log.texts(3), (std::vector<std::string>{"Failed to get LogPortNo/MbspPointer for L2Ptr (abc)",
                                                      "Failed to get LogPortNo/MbspPointer for L2Ptr (2748)"}));
    EXPECT_EQ(getNumber(kMep, kInstance, kLayer2EntityPointer), 0x0ABCU);
    EXPECT_EQ(getNumber(kMep, kInstance, kLayer2Type), 1U);
}

TEST_F(Dot1agMep, MissingHardwareIsLoggedAndTheValueStored)
{
    removeHardware();
    EXPECT_EQ(set(kMep, kInstance, kLayer2EntityPointer, 7), 0);
    EXPECT_EQ(set(kMep, kInstance, kLayer2Type, 1), 0);
    EXPECT_EQ(log.texts(3), std::vector<std::string>(2, "Detected NULL pointer"));
    EXPECT_EQ(getNumber(kMep, kInstance, kLayer2EntityPointer), 7U);
}

TEST_F(Dot1agMep, OtherAttributesReachNoHardware)
{
    EXPECT_CALL(hardware, resolveDot1agLayer2Entity(_, _, _)).Times(0);
    EXPECT_EQ(set(kMep, kInstance, 0x2000, 0x1234), 0);
    EXPECT_EQ(set(kMep, kInstance, 0x0004, 99), 0);
    EXPECT_EQ(getNumber(kMep, kInstance, 0x2000), 0x1234U);
    EXPECT_EQ(getNumber(kMep, kInstance, 0x0004), 99U);
}

TEST_F(Dot1agMep, StatusReadsAsZeroWhateverIsStored)
{
    struct Getter
    {
        unsigned short mask;
        const char* text;
    };
    constexpr Getter getters[] = {
        {0x4000, "Get FaultNotifGenState"},
        {0x2000, "Get HighestPrioDefect"},
        {0x1000, "Get CurrentDefect"},
        {0x200, "Get OosCcmCount"},
        {0x100, "Get CcmTxCount"},
        {0x80, "Get UnexpLtCount"},
        {0x40, "Get LbTxCount"},
        {0x20, "Get LbTransIdentifier"},
        {0x10, "Get LtTransIdentifier"},
    };
    for (const Getter& getter : getters) {
        EXPECT_EQ(set(kMepStatus, kInstance, getter.mask, 3), 0) << getter.text;
        log.clear();
        EXPECT_EQ(getNumber(kMepStatus, kInstance, getter.mask), 0U) << getter.text;
        EXPECT_TRUE(log.has(6, getter.text)) << getter.text;
    }
}

TEST_F(Dot1agMep, StatusTakesTheMacAddressOverAtEachRead)
{
    ASSERT_EQ(set(kMepStatus, kInstance, 0x8000, {1, 2, 3, 4, 5, 6}), 0);
    EXPECT_EQ(get(kMepStatus, kInstance, 0x8000), std::vector<unsigned char>(6));
    EXPECT_TRUE(log.has(6, "Get MepStausMacAddress on Inst ffff"));
}

TEST_F(Dot1agMep, EveryOamEntityAcceptsASetWithNothingToApply)
{
    OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(301, 1);
    ASSERT_EQ(create(299, 1), 0);
    ASSERT_EQ(create(300, 1), 0);
    for (const unsigned short classId : {299, 300, 301}) {
        EXPECT_EQ(adapter(classId).applyConfigurationToHardwareForSet(1), 0) << classId;
    }
    EXPECT_EQ(adapter(kMep).applyConfigurationToHardwareForSet(kInstance), 0);
    EXPECT_EQ(adapter(kMepStatus).applyConfigurationToHardwareForSet(kInstance), 0);
}

TEST_F(Dot1agMep, DefaultMdLevelTableCountsItsRows)
{
    OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(301, 1);
    EXPECT_EQ(set(301, 1, 0x800, std::vector<unsigned char>(29, 1)), 0);
    EXPECT_EQ(set(301, 1, 0x800, std::vector<unsigned char>(29, 2)), 0);
    EXPECT_EQ(getNumber(301, 1, 0x800), 2U);
}

}  // namespace
