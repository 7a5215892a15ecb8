#include "DataPathTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciMePptpVideoAniIf.h"
#include "OmciMePptpVideoUniIf.h"
#include "OmciMeVirtualEthernetInterfacePointIf.h"
#include "implExtended/EthernetConfigInd.h"
#include "implExtended/OmciMePptpEthernetUniImplExtended.h"

namespace {

using ::testing::InSequence;
using ::testing::Return;

constexpr unsigned short kUni = 0x101;
constexpr unsigned char kUnlocked = 0;
constexpr unsigned char kLocked = 1;

class EthernetUni : public DataPathTest
{
protected:
    static constexpr unsigned short kAdministrativeState = 0x800;
    static constexpr unsigned short kOperationalState = 0x400;
    static constexpr unsigned short kConfigInd = 0x200;
    static constexpr unsigned short kAutodetectionConfig = 0x2000;

    EthernetUni() : uni(ethernetUni(kUni)) {}

    void linkToBridgePort() { knownPorts[{1, kUni}] = &bridgePort(2, 1, kUni); }
    static int setState(unsigned char state) { return set(11, kUni, kAdministrativeState, state); }
    /// What is stored, past the live getters.
    unsigned char storedOperationalState() const
    {
        return uni.OmciMePptpEthernetUniImpl::getOperationalState(OMCI_ACTION_GET);
    }
    unsigned char storedConfigInd() const { return uni.OmciMePptpEthernetUniImpl::getConfigInd(OMCI_ACTION_GET); }
    unsigned char storedState() const { return uni.getAdministrativeState(OMCI_ACTION_GET); }

    OmciMePptpEthernetUniImplExtended& uni;

private:
    static OmciMePptpEthernetUniImplExtended& ethernetUni(unsigned short instance)
    {
        return static_cast<OmciMePptpEthernetUniImplExtended&>(DataPathTest::ethernetUni(instance));
    }
};

TEST_F(EthernetUni, UnlockEnablesThePortBeforeItsService)
{
    linkToBridgePort();
    during = [this](const std::string&) { EXPECT_EQ(storedState(), kUnlocked); };
    EXPECT_EQ(setState(kUnlocked), 0);
    EXPECT_EQ(takeCalls(),
              (Calls{"findMacBridgePortByTp(1, 257)", "setUniAdminState(257, 0)", "provisionUniService(257)"}));
}

TEST_F(EthernetUni, LockTakesTheServiceBeforeThePort)
{
    linkToBridgePort();
    setState(kUnlocked);
    takeCalls();
    uni.setOperationalState(0);
    uni.setConfigInd(3);
    during = [this](const std::string& operation) {
        EXPECT_EQ(storedState(), kLocked);
        if (operation != "findMacBridgePortByTp") {
            EXPECT_EQ(storedOperationalState(), 1);
            EXPECT_EQ(storedConfigInd(), 0);
        }
    };
    EXPECT_EQ(setState(kLocked), 0);
    EXPECT_EQ(takeCalls(),
              (Calls{"findMacBridgePortByTp(1, 257)", "removeUniService(257)", "setUniAdminState(257, 1)"}));
}

TEST_F(EthernetUni, AllOnesLocks)
{
    linkToBridgePort();
    setState(kUnlocked);
    takeCalls();
    EXPECT_EQ(setState(0xFF), 0);
    EXPECT_EQ(storedState(), kLocked);
    EXPECT_EQ(takeCalls(),
              (Calls{"findMacBridgePortByTp(1, 257)", "removeUniService(257)", "setUniAdminState(257, 1)"}));
    EXPECT_EQ(setState(0xFF), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(EthernetUni, EveryOtherStateIsRefused)
{
    linkToBridgePort();
    for (unsigned int state = 2; state < 0xFF; ++state) {
        EXPECT_EQ(setState(static_cast<unsigned char>(state)), -1);
        EXPECT_TRUE(log.has(3, "Invalid administrative state(" + std::to_string(state) + ")"));
    }
    EXPECT_EQ(storedState(), kLocked);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(EthernetUni, SameStateAgainCallsNothing)
{
    linkToBridgePort();
    EXPECT_EQ(setState(kLocked), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    setState(kUnlocked);
    takeCalls();
    EXPECT_EQ(setState(kUnlocked), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(EthernetUni, LockWithoutADataServiceReachesThePortAlone)
{
    setState(kUnlocked);
    uni.setOperationalState(0);
    uni.setConfigInd(3);
    takeCalls();
    log.clear();
    EXPECT_EQ(setState(kLocked), 0);
    EXPECT_EQ(takeCalls(), (Calls{"findMacBridgePortByTp(1, 257)", "setUniAdminState(257, 1)"}));
    EXPECT_TRUE(log.has(6, "Data service is not yet provisioned. Received request to update admin state to (1)"));
    EXPECT_EQ(storedState(), kLocked);
    EXPECT_EQ(storedOperationalState(), 0);
    EXPECT_EQ(storedConfigInd(), 3);
}

TEST_F(EthernetUni, UnlockWithoutADataServiceReachesThePortAlone)
{
    EXPECT_EQ(setState(kUnlocked), 0);
    EXPECT_EQ(takeCalls(), (Calls{"findMacBridgePortByTp(1, 257)", "setUniAdminState(257, 0)"}));
}

TEST_F(EthernetUni, WithoutHardwareTheStateIsStored)
{
    removeHardware();
    EXPECT_EQ(setState(kUnlocked), 0);
    EXPECT_EQ(storedState(), kUnlocked);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(uni.eraseConfigurationFromHardware(), 0);
}

TEST_F(EthernetUni, EraseLocksThePortInTheHardware)
{
    setState(kUnlocked);
    takeCalls();
    EXPECT_EQ(uni.eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{"setUniAdminState(257, 1)"});
    EXPECT_EQ(storedState(), kUnlocked);
    EXPECT_EQ(uni.applyConfigurationToHardwareForSet(), 0);
}

TEST_F(EthernetUni, OperationalStateIsReadLiveAndNotStored)
{
    EXPECT_CALL(hardware, getUniOperationalState(OMCI_ACTION_GET, kUni)).WillOnce(Return(0)).WillOnce(Return(77));
    EXPECT_CALL(hardware, getUniOperationalState(OMCI_ACTION_SET, kUni)).WillOnce(Return(1));
    EXPECT_EQ(getNumber(11, kUni, kOperationalState), 0U);
    EXPECT_TRUE(log.has(6, "getOperationalState 0x101"));
    EXPECT_TRUE(log.has(6, "OmciMePptpEthernetUniImplExtended: operationalState(0) \n"));
    EXPECT_EQ(getNumber(11, kUni, kOperationalState), 77U);
    EXPECT_EQ(getNumber(11, kUni, kOperationalState, OMCI_ACTION_SET), 1U);
    EXPECT_EQ(storedOperationalState(), 1);
}

TEST_F(EthernetUni, StoredOperationalStateIsLogged)
{
    EXPECT_EQ(uni.setOperationalState(0), 0);
    EXPECT_TRUE(log.has(6, "OperationalState(0)"));
    EXPECT_EQ(storedOperationalState(), 0);
}

TEST_F(EthernetUni, ConfigIndAsksForSpeedThenDuplex)
{
    {
        const InSequence order;
        EXPECT_CALL(hardware, getUniLinkSpeed(OMCI_ACTION_GET, kUni)).WillOnce(Return(2500));
        EXPECT_CALL(hardware, getUniDuplex(OMCI_ACTION_GET, kUni)).WillOnce(Return(1));
    }
    EXPECT_EQ(getNumber(11, kUni, kConfigInd), 5U);
    EXPECT_TRUE(log.has(6, "getConfigInd of ME Instance 0x101"));
    EXPECT_TRUE(log.has(6, "OmciMePptpEthernetUniImplExtended: configInd(5) \n"));
    EXPECT_EQ(storedConfigInd(), 0);
}

TEST_F(EthernetUni, WithoutHardwareLiveValuesReadZero)
{
    uni.setOperationalState(1);
    uni.setConfigInd(3);
    removeHardware();
    EXPECT_EQ(getNumber(11, kUni, kOperationalState), 0U);
    EXPECT_EQ(getNumber(11, kUni, kConfigInd), 0U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(EthernetUni, ConfigIndCodeFollowsSpeedAndDuplex)
{
    const struct
    {
        unsigned int speed;
        unsigned int half;
        unsigned int full;
    } rows[] = {
        {10, 0x11, 1}, {100, 0x12, 2}, {1000, 0x13, 3}, {2500, 0, 5},  {5000, 0, 6},       {10000, 0, 4},
        {0, 0, 0},     {11, 0, 0},     {40000, 0, 0},   {65546, 0, 0}, {0xFFFFFFFF, 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(nrvk::ethernetConfigInd(row.speed, 0), row.half) << row.speed;
        EXPECT_EQ(nrvk::ethernetConfigInd(row.speed, 1), row.full) << row.speed;
        EXPECT_EQ(nrvk::ethernetConfigInd(row.speed, 2), 0U) << row.speed;
        EXPECT_EQ(nrvk::ethernetConfigInd(row.speed, 255), 0U) << row.speed;
    }
}

TEST_F(EthernetUni, AutodetectionConfigTakesItsListAndNothingElse)
{
    for (unsigned int value = 0; value < 256; ++value) {
        const bool isValid = value <= 5 || (value >= 0x10 && value <= 0x14) || value == 0x20 || value == 0x30;
        const unsigned int before = uni.getAutodetectionConfig(OMCI_ACTION_GET);
        log.clear();
        EXPECT_EQ(set(11, kUni, kAutodetectionConfig, value), isValid ? 0 : -1) << value;
        EXPECT_EQ(uni.getAutodetectionConfig(OMCI_ACTION_GET), isValid ? value : before) << value;
        const std::string number = std::to_string(value);
        EXPECT_TRUE(log.has(6, "Auto detection config(" + number + ")"));
        EXPECT_EQ(log.has(3, "Invalid auto detection config(" + number + ")"), !isValid);
        const bool isPushed = isValid && value != before;
        EXPECT_EQ(takeCalls(), isPushed ? Calls{"setUniAutodetection(257, " + number + ")"} : Calls{});
    }
}

TEST_F(EthernetUni, SameAutodetectionConfigAgainCallsNothing)
{
    set(11, kUni, kAutodetectionConfig, 0x30);
    takeCalls();
    EXPECT_EQ(set(11, kUni, kAutodetectionConfig, 0x30), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(EthernetUni, WithoutHardwareAutodetectionConfigIsStored)
{
    removeHardware();
    EXPECT_EQ(set(11, kUni, kAutodetectionConfig, 4), 0);
    EXPECT_EQ(uni.getAutodetectionConfig(OMCI_ACTION_GET), 4);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(EthernetUni, PortsAreNumberedByIndex)
{
    using Core = OmciManagedEntitiesCore;
    EXPECT_EQ(Core::instancePptpEthernet(0), 0x101);
    EXPECT_EQ(Core::instanceUniG(3), 0x104);
    EXPECT_EQ(Core::instanceVEIP(0), 0x201);
    EXPECT_EQ(Core::instancePptpVideo(0), 0x401);
    EXPECT_EQ(Core::instancePptpVideoAni(0), 0x501);
}

class Veip : public DataPathTest
{
protected:
    static constexpr unsigned short kVeip = 0x201;

    Veip() : veip(own<OmciMeVirtualEthernetInterfacePointIf>(329, kVeip)) {}

    static int setState(unsigned char state) { return set(329, kVeip, 0x8000, state); }
    unsigned char operationalState() const { return veip.getOperationalState(OMCI_ACTION_GET); }

    OmciMeVirtualEthernetInterfacePointIf& veip;
};

TEST_F(Veip, UnlockProvisionsAndThenEnables)
{
    veip.setOperationalState(1);
    during = [this](const std::string&) {
        EXPECT_EQ(veip.getAdministrativeState(OMCI_ACTION_GET), kUnlocked);
        EXPECT_EQ(operationalState(), 1);
    };
    EXPECT_EQ(setState(kUnlocked), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionVeip(513)"});
    EXPECT_EQ(operationalState(), 0);
}

TEST_F(Veip, LockDisablesAndThenRemoves)
{
    during = [this](const std::string&) { EXPECT_EQ(operationalState(), 1); };
    EXPECT_EQ(setState(kLocked), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeVeip(513)"});
}

TEST_F(Veip, SameStateAgainIsPushedAgain)
{
    for (const unsigned char state : {kUnlocked, kLocked}) {
        setState(state);
        setState(state);
        const std::string call = state == kUnlocked ? "provisionVeip(513)" : "removeVeip(513)";
        EXPECT_EQ(takeCalls(), (Calls{call, call}));
    }
}

TEST_F(Veip, EveryStateButTheTwoIsRefused)
{
    for (unsigned int state = 2; state < 256; ++state) {
        EXPECT_EQ(setState(static_cast<unsigned char>(state)), -1);
        EXPECT_TRUE(log.has(3, "Invalid administrative state(" + std::to_string(state) + ")"));
    }
    EXPECT_EQ(veip.getAdministrativeState(OMCI_ACTION_GET), kLocked);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(Veip, WithoutHardwareAnUnlockLeavesTheOperationalState)
{
    removeHardware();
    veip.setOperationalState(1);
    EXPECT_EQ(setState(kUnlocked), 0);
    EXPECT_EQ(veip.getAdministrativeState(OMCI_ACTION_GET), kUnlocked);
    EXPECT_EQ(operationalState(), 1);
}

TEST_F(Veip, WithoutHardwareALockDisables)
{
    removeHardware();
    EXPECT_EQ(setState(kLocked), 0);
    EXPECT_EQ(operationalState(), 1);
}

TEST_F(Veip, EraseAndApplyHaveNoEffect)
{
    EXPECT_EQ(veip.eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(veip.applyConfigurationToHardwareForSet(), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

/// The rule of the pair, seen from either side.
class VideoPair : public DataPathTest
{
protected:
    static constexpr unsigned short kVideoUni = 0x401;
    static constexpr unsigned short kVideoAni = 0x501;

    struct Side
    {
        unsigned short classId;
        unsigned short instance;
        unsigned short twinClass;
        unsigned short twinInstance;
    };
    static constexpr Side kSides[] = {{82, kVideoUni, 90, kVideoAni}, {90, kVideoAni, 82, kVideoUni}};

    VideoPair()
    {
        own<OmciMePptpVideoUniIf>(82, kVideoUni);
        own<OmciMePptpVideoAniIf>(90, kVideoAni);
    }

    /// States that come without any call.
    void establish(const Side& side, unsigned char state, unsigned char twinState)
    {
        set(side.twinClass, side.twinInstance, 0x8000, twinState);
        set(side.classId, side.instance, 0x8000, state);
        takeCalls();
    }
    static std::string call(const Side& side, int state)
    {
        return "setVideoAdminState(" + std::to_string(side.instance) + ", " + std::to_string(state) + ")";
    }
    static unsigned long long operationalState(const Side& side)
    {
        return getNumber(side.classId, side.instance, 0x4000);
    }
};

TEST_F(VideoPair, UnlockBesideAnUnlockedTwinTurnsTheOutputOn)
{
    for (const Side& side : kSides) {
        establish(side, kLocked, kUnlocked);
        EXPECT_EQ(set(side.classId, side.instance, 0x8000, kUnlocked), 0);
        EXPECT_EQ(takeCalls(), Calls{call(side, 0)});
        EXPECT_EQ(operationalState(side), 0U);
    }
}

TEST_F(VideoPair, UnlockBesideALockedTwinKeepsTheOutputOffButReadsEnabled)
{
    for (const Side& side : kSides) {
        establish(side, kLocked, kLocked);
        EXPECT_EQ(operationalState(side), 1U);
        EXPECT_EQ(set(side.classId, side.instance, 0x8000, kUnlocked), 0);
        EXPECT_EQ(takeCalls(), Calls{call(side, 1)});
        EXPECT_EQ(operationalState(side), 0U);
    }
}

TEST_F(VideoPair, LockTurnsTheOutputOffWhateverTheTwin)
{
    for (const Side& side : kSides) {
        for (const unsigned char twin : {kUnlocked, kLocked}) {
            establish(side, kUnlocked, twin);
            EXPECT_EQ(set(side.classId, side.instance, 0x8000, kLocked), 0);
            EXPECT_EQ(takeCalls(), Calls{call(side, 1)});
            EXPECT_EQ(operationalState(side), 1U);
        }
    }
}

TEST_F(VideoPair, SameStateAgainCallsNothing)
{
    for (const Side& side : kSides) {
        EXPECT_EQ(set(side.classId, side.instance, 0x8000, kUnlocked), 0);
        EXPECT_EQ(takeCalls(), Calls{});
    }
}

TEST_F(VideoPair, EveryStateButTheTwoIsRefused)
{
    for (const Side& side : kSides) {
        for (unsigned int state = 2; state < 256; ++state) {
            EXPECT_EQ(set(side.classId, side.instance, 0x8000, state), -1);
            EXPECT_TRUE(log.has(3, "Invalid administrative state(" + std::to_string(state) + ")"));
        }
        EXPECT_EQ(getNumber(side.classId, side.instance, 0x8000), kUnlocked);
    }
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(VideoPair, MissingTwinCountsAsLocked)
{
    const Side& side = kSides[0];
    establish(side, kLocked, kUnlocked);
    ASSERT_TRUE(OmciMePptpVideoAniIf::deleteManagedEntityInstance(kVideoAni, false));
    takeCalls();
    EXPECT_EQ(set(82, kVideoUni, 0x8000, kUnlocked), 0);
    EXPECT_EQ(takeCalls(), Calls{call(side, 1)});
}

TEST_F(VideoPair, FirstTwinAloneDecides)
{
    const Side& side = kSides[0];
    establish(side, kLocked, kUnlocked);
    own<OmciMePptpVideoAniIf>(90, kVideoAni + 1).setAdministrativeState(kLocked);
    takeCalls();
    EXPECT_EQ(set(82, kVideoUni, 0x8000, kUnlocked), 0);
    EXPECT_EQ(takeCalls(), Calls{call(side, 0)});
}

TEST_F(VideoPair, WithoutHardwareTheStateIsStoredAndNothingElse)
{
    removeHardware();
    for (const Side& side : kSides) {
        log.clear();
        EXPECT_EQ(set(side.classId, side.instance, 0x8000, kLocked), 0);
        EXPECT_EQ(getNumber(side.classId, side.instance, 0x8000), kLocked);
        EXPECT_EQ(operationalState(side), 0U);
        EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    }
}

TEST_F(VideoPair, EraseTurnsTheOutputOff)
{
    EXPECT_EQ(OmciMePptpVideoUniIf::getFirstManagedEntityInstance()->eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(OmciMePptpVideoAniIf::getFirstManagedEntityInstance()->eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), (Calls{call(kSides[0], 1), call(kSides[1], 1)}));
    EXPECT_EQ(adapter(82).applyConfigurationToHardwareForSet(kVideoUni), 0);
    EXPECT_EQ(adapter(90).applyConfigurationToHardwareForSet(kVideoAni), 0);
}

}  // namespace
