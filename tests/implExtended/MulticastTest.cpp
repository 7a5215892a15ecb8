#include "DataPathTest.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "implExtended/OmciMeMulticastGemInterworkingTpImplExtended.h"

namespace {

constexpr unsigned short kIpv4Table = 0x80;
constexpr unsigned short kIpv6Table = 0x40;

class MulticastGemInterworkingTp : public DataPathTest
{
protected:
    static void createWithAllAttributes()
    {
        ASSERT_EQ(create(281, 9), 0);
        for (const unsigned short mask : {0x8000, 0x4000, 0x2000, 0x1000, 0x200, 0x100}) {
            ASSERT_EQ(set(281, 9, mask, 1), 0);
        }
    }
    static OmciMeMulticastGemInterworkingTpIf& tp()
    {
        return *OmciMeMulticastGemInterworkingTpIf::getManagedEntityInstance(9);
    }
    static std::vector<unsigned char> row(unsigned char last)
    {
        std::vector<unsigned char> bytes(12, 0);
        bytes.back() = last;
        return bytes;
    }
};

TEST_F(MulticastGemInterworkingTp, FirstIpv4RowProvisionsAndCreateAloneDoesNot)
{
    createWithAllAttributes();
    EXPECT_TRUE(log.has(6, "No. of SetByCreateAttrubutes (6)"));
    EXPECT_EQ(takeCalls(), Calls{});
    during = [](const std::string&) { EXPECT_EQ(tp().getIpv4MulticastAddrTable(OMCI_ACTION_GET)[11], 42); };
    EXPECT_EQ(set(281, 9, kIpv4Table, row(42)), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionMulticastGemInterworkingTp(9)"});
}

TEST_F(MulticastGemInterworkingTp, SecondIpv4RowStoresOnly)
{
    createWithAllAttributes();
    set(281, 9, kIpv4Table, row(42));
    takeCalls();
    EXPECT_EQ(set(281, 9, kIpv4Table, row(43)), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_EQ(get(281, 9, kIpv4Table), row(43));
}

TEST_F(MulticastGemInterworkingTp, UncountedAttributesDoNotProvision)
{
    createWithAllAttributes();
    EXPECT_EQ(set(281, 9, kIpv6Table, std::vector<unsigned char>(24, 1)), 0);
    EXPECT_EQ(set(281, 9, 0x1000, 2), 0);
    EXPECT_EQ(set(281, 9, 0x100, 2), 0);
    EXPECT_EQ(adapter(281).applyConfigurationToHardwareForSet(9), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_EQ(set(281, 9, kIpv4Table, row(1)), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionMulticastGemInterworkingTp(9)"});
}

TEST_F(MulticastGemInterworkingTp, WithoutAnAdapterItNeverProvisions)
{
    OmciMeMulticastGemInterworkingTpImplExtended entity(9, true);
    EXPECT_TRUE(log.has(6, "No. of SetByCreateAttrubutes (0)"));
    // Past the wrap of the count.
    for (int i = 0; i < 65536 + 10; ++i) {
        entity.setInterworkingOption(1);
    }
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(MulticastGemInterworkingTp, CountIsLoggedWithoutThePointOfTheUnicastTwin)
{
    ASSERT_EQ(create(281, 9), 0);
    set(281, 9, 0x200, 1);
    char text[100];
    const void* entity = static_cast<OmciMeMulticastGemInterworkingTpImplExtended*>(&tp());
    std::snprintf(text, sizeof text, "this(%p), No of set_by_create attributes set so far(1)", entity);
    EXPECT_TRUE(log.has(6, text));
}

TEST_F(MulticastGemInterworkingTp, EraseRemovesIt)
{
    createWithAllAttributes();
    EXPECT_EQ(adapter(281).deleteManagedEntityInstance(9, true), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeMulticastGemInterworkingTp(9)"});
}

TEST_F(MulticastGemInterworkingTp, WithoutHardwareEachSkippedCallIsLogged)
{
    removeHardware();
    createWithAllAttributes();
    EXPECT_EQ(set(281, 9, kIpv4Table, row(1)), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(tp().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

class Multicast : public DataPathTest
{};

TEST_F(Multicast, AccessControlListKeepsTheLastRowAlone)
{
    ASSERT_EQ(create(309, 1), 0);
    for (const unsigned short mask : {0x200, 0x100}) {
        EXPECT_EQ(set(309, 1, mask, std::vector<unsigned char>(24, 0xAA)), 0);
        std::vector<unsigned char> second(24, 0);
        second[0] = 1;
        second[23] = 2;
        EXPECT_EQ(set(309, 1, mask, second), 0);
        EXPECT_EQ(get(309, 1, mask), second);
    }
}

TEST_F(Multicast, ProfileAndSubscriberAreStoresOfTheHardwareLayer)
{
    for (const unsigned short classId : {309, 310}) {
        ASSERT_EQ(create(classId, 1), 0);
        EXPECT_EQ(set(classId, 1, 0x8000, 2), 0);
        EXPECT_EQ(getNumber(classId, 1, 0x8000), 2U);
        EXPECT_EQ(adapter(classId).applyConfigurationToHardwareForSet(1), 0);
        EXPECT_EQ(adapter(classId).deleteManagedEntityInstance(1, true), 0);
    }
    EXPECT_EQ(takeCalls(), Calls{});
}

}  // namespace
