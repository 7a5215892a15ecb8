// Status that the host's managers report at run time.
#include <future>

#include "CoreTest.h"
#include "OmciMeIpHostConfigDataIf.h"

namespace {

using Core = OmciManagedEntitiesCore;

class Status : public CoreTest
{
protected:
    Status() { startUp({8, 1, 0, 0, 0, 8, 2, 2}); }

    /// A PPTP Ethernet UNI as the host makes it.
    void makeEthernetUni(unsigned short instance)
    {
        registrar().createManagedEntityInstance(11, instance);
        StartupConfigManagedEntity record;
        core.getDefaultConfigManagedEntity(11, instance, record);
    }

    void makeTwdmChannels()
    {
        addClass(65402, {1024, 1025, 1026, 1027}, 4);
        adapter(65402);
        for (const unsigned short instance : {1024, 1025, 1026, 1027}) {
            registrar().createManagedEntityInstance(65402, instance);
        }
        log.clear();
    }

    Core core;
};

struct LinkRule
{
    unsigned short speed;
    unsigned char mode;
    unsigned char code;
};

TEST_F(Status, LinkBecomesOperationalStateAndConfigurationIndication)
{
    makeEthernetUni(257);
    const LinkRule rules[] = {{10, 0, 17},  {10, 1, 1},   {100, 0, 18},  {100, 1, 2},  {1000, 0, 19}, {1000, 1, 3},
                              {2500, 0, 0}, {2500, 1, 5}, {5000, 0, 0},  {5000, 1, 6}, {10000, 0, 0}, {10000, 1, 4},
                              {0, 0, 0},    {0, 1, 0},    {40000, 1, 0}, {1000, 2, 0}};
    for (const LinkRule& rule : rules) {
        log.clear();
        EXPECT_EQ(core.updatePptpEthernetUniMEOperStateSpeedMode(257, 1, rule.speed, rule.mode), 0);
        EXPECT_EQ(updates(), (Texts{"11; 257; 0x400 = 1", "11; 257; 0x200 = " + std::to_string(rule.code)}))
            << rule.speed << " mode " << static_cast<int>(rule.mode);
    }
    EXPECT_EQ(stored(11, 257, 0x400), Bytes{1});
}

TEST_F(Status, LinkOfAnUnknownPortFails)
{
    log.clear();
    EXPECT_EQ(core.updatePptpEthernetUniMEOperStateSpeedMode(300, 0, 1000, 1), -1);
    EXPECT_TRUE(log.has(6, "Instance(300); Operational state(0); Speed(1000); Mode(1)"));
    EXPECT_TRUE(log.has(4, "Failed to update one or more attributes"));
    EXPECT_EQ(updates().size(), 2U);
}

TEST_F(Status, SfpTypeGoesToFiveAttributesOfThreeClasses)
{
    makeEthernetUni(257);
    log.clear();
    EXPECT_EQ(core.updatePptpEthernetUniMESensedTypeAndMaxFrameSize(257, 49, 9000), 0);
    EXPECT_EQ(updates(), (Texts{"11; 257; 0x4000 = 49", "11; 257; 0x8000 = 49", "11; 257; 0x100 = 9000",
                                "6; 257; 0x8000 = 49", "5; 257; 0x4000 = 49", "5; 257; 0x8000 = 49"}));
    EXPECT_TRUE(log.has(6, "Instance(257); SFP type(49)"));
    EXPECT_EQ(stored(11, 257, 0x100), (Bytes{0x23, 0x28}));
    EXPECT_EQ(getNumber(6, 257, 0x8000), 49U);
    EXPECT_EQ(getNumber(5, 257, 0x4000), 49U);
    EXPECT_EQ(getNumber(5, 257, 0x8000), 49U);
}

TEST_F(Status, SfpTypeGivesTheResultOfTheLastWrite)
{
    EXPECT_EQ(core.updatePptpEthernetUniMESensedTypeAndMaxFrameSize(300, 49, 1518), 0) << "no such port, but a slot";
    Core().findAndUpdate(5, 0);
    std::vector<StartupConfigManagedEntity> picture;
    Core().getManagedEntitiesCore(picture);
    registrar().setSupportedManagedEntities(picture);
    EXPECT_EQ(core.updatePptpEthernetUniMESensedTypeAndMaxFrameSize(257, 49, 1518), -1);
}

TEST_F(Status, VoipLineStatusWritesFiveAttributes)
{
    VoipLineStatusData data{};
    data.VoipCodecUsed = 0x0102;
    data.VoipVoiceServerStatus = 3;
    data.VoipPortSessionType = 4;
    data.VoipCall_1_PacketPeriod = 5;
    data.VoipCall_2_PacketPeriod = 6;
    data.VoipLineState = 7;
    data.EmergencyCallStatus = 8;
    log.clear();
    EXPECT_EQ(core.updateVoipLineStatus(770, data), 0);
    EXPECT_EQ(updates(), (Texts{"141; 770; 0x8000 = 258", "141; 770; 0x4000 = 3", "141; 770; 0x2000 = 4",
                                "141; 770; 0x100 = 7", "141; 770; 0x80 = 8"}));
    EXPECT_EQ(stored(141, 770, 0x8000), (Bytes{1, 2}));
    EXPECT_TRUE(log.has(6, "Managed entity instance(770)"));
    EXPECT_EQ(core.updateVoipLineStatus(771, data), -1);
}

const pptpPotsUniGetAttr kPots = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0x0B0C, 13, 14};

TEST_F(Status, PotsAttributesAreWrittenInMaskOrder)
{
    log.clear();
    EXPECT_EQ(core.updatePptpPotsUniAttributes(769, kPots), 0);
    EXPECT_EQ(updates(),
              (Texts{"53; 769; 0x8000 = 1", "53; 769; 0x4000 = 2", "53; 769; 0x2000 = 3", "53; 769; 0x1000 = 4",
                     "53; 769; 0x800 = 5", "53; 769; 0x400 = 6", "53; 769; 0x200 = 7", "53; 769; 0x100 = 8",
                     "53; 769; 0x20 = 2828", "53; 769; 0x10 = 13", "53; 769; 0x8 = 14"}));
    EXPECT_EQ(stored(53, 769, 0x4000), Bytes{2}) << "one byte for a two-byte attribute";
    EXPECT_EQ(stored(53, 769, 0x20), (Bytes{0x0B, 0x0C}));
    EXPECT_TRUE(log.has(6, "Managed entity instance(769)"));
    EXPECT_EQ(core.updatePptpPotsUniAttributes(800, kPots), 0) << "results are not looked at";
}

TEST_F(Status, PotsCallAttributesAreStateAndHook)
{
    log.clear();
    EXPECT_EQ(core.updatePptpPotsUniCallAttributes(769, kPots), 0);
    EXPECT_EQ(updates(), (Texts{"53; 769; 0x80 = 9", "53; 769; 0x40 = 10"}));
    EXPECT_TRUE(log.has(6, "Managed entity instance(769)"));
    EXPECT_EQ(core.updatePptpPotsUniCallAttributes(800, kPots), 0);
}

TEST_F(Status, VoipConfigDataIsWrittenInMaskOrder)
{
    log.clear();
    EXPECT_EQ(core.updateVoipConfigData(0, {1, 2, 0x01020304, 4, 0x0506, 6, 7}), 0);
    EXPECT_EQ(updates(),
              (Texts{"138; 0; 0x8000 = 1", "138; 0; 0x4000 = 2", "138; 0; 0x2000 = 16909060", "138; 0; 0x1000 = 4",
                     "138; 0; 0x800 = 1286", "138; 0; 0x400 = 6", "138; 0; 0x200 = 7"}));
    EXPECT_EQ(stored(138, 0, 0x2000), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(stored(138, 0, 0x800), (Bytes{5, 6}));
    EXPECT_TRUE(log.has(6, "Managed entity instance(0)"));
    EXPECT_EQ(core.updateVoipConfigData(1, {}), 0);
}

TEST_F(Status, StatusPortalTakesItsOperationalState)
{
    EXPECT_EQ(core.updateFlexibleConfigurationStatusPortalOperState(257, 1), -1) << "no such class in the picture";
    addClass(65420, {257});
    log.clear();
    EXPECT_EQ(core.updateFlexibleConfigurationStatusPortalOperState(257, 1), 0);
    EXPECT_EQ(updates(), Texts{"65420; 257; 0x800 = 1"});
    EXPECT_TRUE(log.has(6, "Instance(257); Operational state(1)"));
}

TEST_F(Status, UpstreamWavelengthIsOfItsChannelOnly)
{
    makeTwdmChannels();
    EXPECT_EQ(core.updateTWDMUpstreamWaveLength(2), 0);
    EXPECT_EQ(updates(), Texts{"65402; 1026; 0x1000 = 2"});
    EXPECT_TRUE(log.has(6, "Upstream channel(2)"));
    EXPECT_EQ(stored(65402, 1026, 0x1000), Bytes{2});
}

TEST_F(Status, LastChannelHasItsInstance)
{
    makeTwdmChannels();
    core.updateTWDMUpstreamWaveLength(255);
    EXPECT_EQ(updates(), Texts{"65402; 1279; 0x1000 = 255"});
}

TEST_F(Status, OneDownstreamChannelIsOperational)
{
    makeTwdmChannels();
    EXPECT_EQ(core.updateTWDMDownstreamWaveLength(2), 0);
    EXPECT_EQ(updates(), (Texts{"65402; 1026; 0x2000 = 2", "65402; 1026; 0x8000 = 1", "65402; 1026; 0x4000 = 1",
                                "65402; 1024; 0x4000 = 0", "65402; 1025; 0x4000 = 0", "65402; 1027; 0x4000 = 0"}));
    EXPECT_TRUE(log.has(6, "Downstream channel(2)"));
    core.updateTWDMDownstreamWaveLength(1);
    EXPECT_EQ(stored(65402, 1026, 0x4000), Bytes{0});
    EXPECT_EQ(stored(65402, 1026, 0x8000), Bytes{1}) << "more than one may stay active";
    EXPECT_EQ(stored(65402, 1025, 0x4000), Bytes{1});
}

TEST_F(Status, DownstreamChannelOfAClassThatIsNotRegisteredSucceeds)
{
    log.clear();
    EXPECT_EQ(core.updateTWDMDownstreamWaveLength(2), 0);
    EXPECT_EQ(updates().size(), 3U);
}

TEST_F(Status, TwdmChannelIsWrittenAsItStands)
{
    makeTwdmChannels();
    EXPECT_EQ(core.updateTwdmChannel(1024, {1, 2, 3, 4}), 0);
    EXPECT_EQ(updates(), (Texts{"65402; 1024; 0x8000 = 1", "65402; 1024; 0x4000 = 2", "65402; 1024; 0x2000 = 3",
                                "65402; 1024; 0x1000 = 4"}));
    EXPECT_TRUE(log.has(6, "Managed entity instance(1024)"));
}

TEST_F(Status, CurrentAddressesGoToTheFirstIpHost)
{
    log.clear();
    EXPECT_EQ(core.updateIpHostConfigDataMEs_CurrentIpAddress("10.0.255.7", "255.255.0.0", "10.0.0.1"), 0);
    EXPECT_EQ(log.texts(4), (Texts{"Current IP address = 10.0.255.7", "Current Netmask    = 255.255.0.0",
                                   "Current Gateway    = 10.0.0.1"}));
    EXPECT_EQ(get(134, 0, 0x80), (Bytes{10, 0, 255, 7}));
    EXPECT_EQ(get(134, 0, 0x40), (Bytes{255, 255, 0, 0}));
    EXPECT_EQ(get(134, 0, 0x20), (Bytes{10, 0, 0, 1}));
}

TEST_F(Status, EmptyAddressLeavesTheOldOne)
{
    core.updateIpHostConfigDataMEs_CurrentIpAddress("10.0.0.7", "255.0.0.0", "10.0.0.1");
    log.clear();
    EXPECT_EQ(core.updateIpHostConfigDataMEs_CurrentIpAddress("", "", ""), 0);
    EXPECT_TRUE(updates().empty());
    EXPECT_TRUE(log.texts(3).empty());
    EXPECT_EQ(get(134, 0, 0x80), (Bytes{10, 0, 0, 7}));
}

TEST_F(Status, BrokenAddressesAreLoggedWithTheAddress)
{
    core.updateIpHostConfigDataMEs_CurrentIpAddress("10.0.0.7", "255.0.0.0", "10.0.0.1");
    log.clear();
    EXPECT_EQ(core.updateIpHostConfigDataMEs_CurrentIpAddress("10.0.0", "255.255", "gateway"), 0);
    EXPECT_EQ(log.texts(3),
              (Texts{"Invalid IP address = 10.0.0", "Invalid IP netmask = 10.0.0", "Invalid IP gateway = 10.0.0"}));
    EXPECT_TRUE(updates().empty());
    EXPECT_EQ(get(134, 0, 0x40), (Bytes{255, 0, 0, 0}));
}

TEST_F(Status, AddressAfterABrokenOneIsStillWritten)
{
    log.clear();
    core.updateIpHostConfigDataMEs_CurrentIpAddress("x", "255.0.0.0", "");
    EXPECT_EQ(get(134, 0, 0x40), (Bytes{255, 0, 0, 0}));
}

class HostSwap : public Status
{
protected:
    HostSwap() { HALFactory::getInstance()->setHal(&hal); }

    static Texts ipHosts()
    {
        Texts found;
        for (const OmciMeIpHostConfigDataIf* host = OmciMeIpHostConfigDataIf::getFirstManagedEntityInstance();
             host != nullptr;
             host = OmciMeIpHostConfigDataIf::getNextManagedEntityInstance(host->getManagedEntityInstance())) {
            found.push_back(std::to_string(host->getManagedEntityInstance()));
        }
        return found;
    }

    FakeHal hal;
};

TEST_F(HostSwap, OwnOltGivesTheHostsTheirIds)
{
    core.swapSubtendedHostInstanceId(true);
    EXPECT_TRUE(Core::m_IsNrvkOltConnected);
    EXPECT_EQ(ipHosts(), (Texts{"514", "515"}));
    EXPECT_EQ(get(134, 514, 0x4000), (Bytes{0, 0x11, 0x22, 0x33, 0x44, 0x55}));
    EXPECT_EQ(get(134, 515, 0x4000), (Bytes{0, 0x11, 0x22, 0xAA, 0xBB, 0xCC}));
    EXPECT_FALSE(OmciMeIpHostConfigDataIf::getManagedEntityInstance(515)->isCreatedByOlt());
}

TEST_F(HostSwap, OtherOltLeavesTheIdsAndWritesTheAddresses)
{
    core.swapSubtendedHostInstanceId(false);
    EXPECT_FALSE(Core::m_IsNrvkOltConnected);
    EXPECT_EQ(ipHosts(), (Texts{"0", "1"}));
    EXPECT_EQ(get(134, 1, 0x4000), (Bytes{0, 0x11, 0x22, 0x33, 0x44, 0x55}));
}

TEST_F(HostSwap, ThereIsNoWayBack)
{
    core.swapSubtendedHostInstanceId(true);
    core.swapSubtendedHostInstanceId(false);
    EXPECT_FALSE(Core::m_IsNrvkOltConnected);
    EXPECT_EQ(ipHosts(), (Texts{"514", "515"}));
}

TEST_F(HostSwap, SecondSwapTriesTheOldIdsAgain)
{
    core.swapSubtendedHostInstanceId(true);
    log.clear();
    core.swapSubtendedHostInstanceId(true);
    EXPECT_EQ(ipHosts(), (Texts{"514", "515"}));
    EXPECT_TRUE(log.has(3, "Delete managed entity(134; 0) failed"));
    EXPECT_TRUE(log.has(3, "Delete managed entity(134; 1) failed"));
    EXPECT_TRUE(log.has(4, "Managed entity(134; 515) already configured"));
}

TEST_F(HostSwap, WaitsForTheRegistrarsMutex)
{
    std::future<void> swapped;
    {
        const std::lock_guard<std::mutex> lock(registrar().getMutex());
        swapped = std::async(std::launch::async, [this] { core.swapSubtendedHostInstanceId(true); });
        EXPECT_EQ(swapped.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
        EXPECT_EQ(ipHosts(), (Texts{"0", "1"}));
    }
    swapped.get();
    EXPECT_EQ(ipHosts(), (Texts{"514", "515"}));
}

TEST_F(HostSwap, GivesTheMutexBack)
{
    core.swapSubtendedHostInstanceId(true);
    ASSERT_TRUE(registrar().getMutex().try_lock());
    registrar().getMutex().unlock();
}

TEST_F(Status, OpticalLevelsAreStoredAndPrinted)
{
    log.clear();
    {
        PrintedText printed;
        EXPECT_EQ(core.updateAniGOpticalSignalLevel(1025, 0xD8F0), 0);
        EXPECT_EQ(core.updateAniGTransmitOpticalLevel(1025, 1500), 0);
        EXPECT_EQ(printed.get(), "Instance(1025); RX Optical signal level(55536)"
                                 "Instance(1025); TX Optical signal level(1500)");
    }
    EXPECT_EQ(updates(), (Texts{"263; 1025; 0x40 = 55536", "263; 1025; 0x4 = 1500"}));
    EXPECT_TRUE(log.has(6, "Instance(1025); RX Optical signal level(55536)"));
    EXPECT_TRUE(log.has(6, "Instance(1025); TX Optical signal level(1500)"));
    EXPECT_EQ(getNumber(263, 1025, 0x40), 0xD8F0U);
    EXPECT_EQ(getNumber(263, 1025, 0x4), 1500U);
    EXPECT_EQ(core.updateAniGOpticalSignalLevel(1, 1), 0) << "results are not looked at";
}

}  // namespace
