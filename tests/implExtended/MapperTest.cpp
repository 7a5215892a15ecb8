#include "DataPathTest.h"
#include "MapperServiceProfileAccess.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "implExtended/OmciMeMapperServiceProfile802_1PImplExtended.h"

namespace {

constexpr unsigned short kMapper = 7;
constexpr unsigned short kNoTp = 65535;
constexpr unsigned short kDscpMapping = 0x20;

unsigned short maskOf(unsigned int pbit)
{
    return static_cast<unsigned short>(0x4000U >> pbit);
}

class Mapper : public DataPathTest
{
protected:
    Mapper() { EXPECT_EQ(create(130, kMapper), 0); }

    static OmciMeMapperServiceProfile802_1PIf& mapper()
    {
        return *OmciMeMapperServiceProfile802_1PIf::getManagedEntityInstance(kMapper);
    }
    static unsigned short old(unsigned short pbit) { return nrvk::getOldInterworkingTpForPbit(mapper(), pbit); }
    static int setPointer(unsigned int pbit, unsigned short tp) { return set(130, kMapper, maskOf(pbit), tp); }
    static int apply() { return adapter(130).applyConfigurationToHardwareForSet(kMapper); }

    /// The pointer has this value, and is no change any more.
    void establish(unsigned int pbit, unsigned short tp)
    {
        setPointer(pbit, tp);
        apply();
        takeCalls();
    }

    const Calls provisioned{"provisionMapper(7)"};
    const Calls removed{"removeMapperInterworkingTps(7, 65535)"};
};

TEST_F(Mapper, PointerFromNoTpToATpProvisions)
{
    for (unsigned short pbit = 0; pbit < 8; ++pbit) {
        during = [&](const std::string&) {
            EXPECT_EQ(old(pbit), kNoTp);
            EXPECT_EQ(getNumber(130, kMapper, maskOf(pbit)), 5U);
        };
        EXPECT_EQ(setPointer(pbit, 5), 0);
        EXPECT_EQ(takeCalls(), Calls{});
        EXPECT_EQ(apply(), 0);
        EXPECT_EQ(takeCalls(), provisioned) << pbit;
    }
}

TEST_F(Mapper, PointerFromOneTpToAnotherRemoves)
{
    establish(3, 5);
    during = [](const std::string&) { EXPECT_EQ(old(3), 5); };
    EXPECT_EQ(setPointer(3, 7), 0);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, PointerBackToNoTpRemoves)
{
    establish(0, 5);
    EXPECT_EQ(setPointer(0, kNoTp), 0);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, OneAddedPointerAmongMovedOnesProvisions)
{
    establish(0, 5);
    establish(1, 6);
    setPointer(0, kNoTp);
    setPointer(1, 8);
    setPointer(2, 9);
    during = [](const std::string&) {
        EXPECT_EQ(old(0), 5);
        EXPECT_EQ(old(1), 6);
        EXPECT_EQ(old(2), kNoTp);
    };
    apply();
    EXPECT_EQ(takeCalls(), provisioned);
}

TEST_F(Mapper, SetThatTouchesNoPointerRemoves)
{
    EXPECT_EQ(set(130, kMapper, 0x40, 1), 0);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, PointerSetToTheValueItHasRemoves)
{
    setPointer(4, kNoTp);
    apply();
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, FirstOldValueOfTwoSetsStays)
{
    establish(3, 5);
    setPointer(3, 7);
    setPointer(3, 8);
    during = [](const std::string&) { EXPECT_EQ(old(3), 5); };
    apply();
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, PointerThatLeavesAndReturnsBeforeTheApplyHasNotChanged)
{
    setPointer(3, 7);
    setPointer(3, kNoTp);
    apply();
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, UntouchedPbitReadsZeroDuringAnApply)
{
    establish(6, 5);
    setPointer(3, 7);
    during = [](const std::string&) { EXPECT_EQ(old(6), 0); };
    apply();
    EXPECT_EQ(takeCalls(), provisioned);
}

TEST_F(Mapper, OldPointersAreForgottenAfterTheApply)
{
    establish(3, 5);
    for (unsigned short pbit = 0; pbit < 8; ++pbit) {
        EXPECT_EQ(old(pbit), kNoTp);
    }
}

TEST_F(Mapper, PbitAboveSevenHadNoTp)
{
    setPointer(0, 5);
    EXPECT_EQ(old(8), kNoTp);
    EXPECT_EQ(old(65535), kNoTp);
}

TEST_F(Mapper, PointerToTpZeroIsAnAddedPointer)
{
    setPointer(2, 0);
    apply();
    EXPECT_EQ(takeCalls(), provisioned);
}

TEST_F(Mapper, DscpMappingProvisionsWhateverThePointers)
{
    establish(0, 5);
    std::vector<unsigned char> mapping(24);
    for (std::size_t i = 0; i < mapping.size(); ++i) {
        mapping.assign(24, 0);
        mapping[i] = 1;
        EXPECT_EQ(set(130, kMapper, kDscpMapping, mapping), 0);
        setPointer(0, static_cast<unsigned short>(6 + i));
        EXPECT_EQ(apply(), 0);
        EXPECT_EQ(takeCalls(), provisioned) << "byte " << i;
    }
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, EmptyDscpMappingProvisionsNothingEvenWithAnAddedPointer)
{
    setPointer(3, 5);
    EXPECT_EQ(set(130, kMapper, kDscpMapping, std::vector<unsigned char>(24)), 0);
    log.clear();
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_TRUE(log.has(6, "Empty DSCPtoPbit string received. Ignore provisioning."));
    EXPECT_EQ(old(3), kNoTp);
    // The pointer is no longer an added one.
    setPointer(3, 6);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(takeCalls(), removed);
}

TEST_F(Mapper, EachPointerLogsItsOwnDigitAndTheThreeValues)
{
    for (unsigned int pbit = 0; pbit < 8; ++pbit) {
        log.clear();
        setPointer(pbit, static_cast<unsigned short>(100 + pbit));
        const std::string digit = std::to_string(pbit);
        const std::string value = std::to_string(100 + pbit);
        EXPECT_TRUE(log.has(6, "InterworkTpPointerForPBitPriority" + digit + "(" + value + ")"));
        EXPECT_TRUE(log.has(6, "Interworking pointers(old-65535; new-" + value + "; default-65535)"));
    }
}

TEST_F(Mapper, EraseRemovesTheServiceUnderTheMappersOwnNumber)
{
    EXPECT_EQ(mapper().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeBridgePortService(7)"});
}

TEST_F(Mapper, EraseOfABridgePortFindsNoOldPointers)
{
    establish(3, 5);
    auto& port = bridgePort(2, 3, kMapper);
    during = [](const std::string& operation) {
        if (operation == "removeMapperInterworkingTps") {
            EXPECT_EQ(old(3), kNoTp);
        }
    };
    EXPECT_EQ(port.eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), (Calls{"removeBridgePortService(2)", "removeMapperInterworkingTps(7, 65535)"}));
}

TEST_F(Mapper, WithoutHardwareAnApplyIsLoggedAndForgotten)
{
    setPointer(3, 5);
    removeHardware();
    log.clear();
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(old(3), kNoTp);
    EXPECT_EQ(mapper().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

}  // namespace
