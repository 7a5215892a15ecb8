// The identity of one unit.
#include "CoreTest.h"
#include "IniFile.h"
#include "OmciMeIpHostConfigDataIf.h"

namespace {

using Core = OmciManagedEntitiesCore;

constexpr const char* kFactoryFile = "/opt/addons/etc/factoryinfo.ini";

class Factory : public CoreTest
{
protected:
    Factory() { removeFile(kFactoryFile); }
    ~Factory() override { removeFile(kFactoryFile); }

    int updateOnuG(const std::string& contents)
    {
        writeFile(kFactoryFile, contents);
        Core core;
        core.setFactoryConfigurationFile(kFactoryFile);
        log.clear();
        return core.updateOnuGME();
    }

    int identify(const std::string& serialNumber, const std::string& version = "V1",
                 const std::string& mac = std::string("\x02\x00\x5E\x10\x20\x30", 6))
    {
        std::string arguments[] = {serialNumber, version, mac};
        log.clear();
        return Core().updateBoardSpecificParameters(arguments[0].data(), arguments[1].data(), arguments[2].data());
    }
};

TEST_F(Factory, PartNumberBecomesTheVersionOfOnuG)
{
    startUp();
    EXPECT_EQ(updateOnuG("partNo = 9100452F1V\n"), 0);
    EXPECT_EQ(updates(), Texts{"256; 0; 0x4000 = 9100452F1V"});
    EXPECT_EQ(get(256, 0, 0x4000), (Bytes{'9', '1', '0', '0', '4', '5', '2', 'F', '1', 'V', 0, 0, 0, 0}));
}

TEST_F(Factory, KeysAreReadWithoutRegardToCase)
{
    startUp();
    EXPECT_EQ(updateOnuG("PARTNO=X1\n"), 0);
    EXPECT_EQ(updates(), Texts{"256; 0; 0x4000 = X1"});
}

TEST_F(Factory, OnlyTheSectionWithoutANameIsRead)
{
    startUp();
    EXPECT_EQ(updateOnuG("[other]\npartNo=X1\n"), 0);
    EXPECT_EQ(updates(), Texts{"256; 0; 0x4000 = "});
}

TEST_F(Factory, LastOfTwoValuesCounts)
{
    startUp();
    EXPECT_EQ(updateOnuG("partNo=X1\npartNo=X2\n"), 0);
    EXPECT_EQ(updates(), Texts{"256; 0; 0x4000 = X2"});
}

TEST_F(Factory, ByteOrderMarkIsNoPartOfTheFirstKey)
{
    startUp();
    EXPECT_EQ(updateOnuG("\xEF\xBB\xBFpartNo=X1\n"), 0);
    EXPECT_EQ(updates(), Texts{"256; 0; 0x4000 = X1"});
}

TEST_F(Factory, ValueOfSeveralLinesIsOneValue)
{
    writeFile(kFactoryFile, "partNo=<<<END\none\ntwo\nEND\n");
    const auto file = nrvk::IniFile::load(Sandbox::realPath(kFactoryFile));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->text("partNo"), "one\ntwo");
}

TEST_F(Factory, FileThatIsMissingLeavesTheVersionAlone)
{
    startUp();
    const Bytes before = get(256, 0, 0x4000);
    Core core;
    core.setFactoryConfigurationFile("/opt/addons/etc/nowhere.ini");
    EXPECT_EQ(core.updateOnuGME(), -1);
    EXPECT_TRUE(log.has(3, "Can't load file(/opt/addons/etc/nowhere.ini)"));
    EXPECT_EQ(get(256, 0, 0x4000), before);
}

TEST_F(Factory, DirectoryInPlaceOfTheFileCantBeLoaded)
{
    startUp();
    std::filesystem::create_directories(Sandbox::realPath(kFactoryFile));
    Core core;
    core.setFactoryConfigurationFile(kFactoryFile);
    log.clear();
    EXPECT_EQ(core.updateOnuGME(), -1);
    EXPECT_TRUE(log.has(3, std::string("Can't load file(") + kFactoryFile + ")"));
    EXPECT_TRUE(updates().empty());
}

TEST_F(Factory, Onu2GHasTheHardwareRevisionAndABlankEquipmentId)
{
    startUp();
    log.clear();
    EXPECT_EQ(Core().updateOnu2GME(), 0);
    EXPECT_EQ(updates(), (Texts{"257; 0; 0x2000 = A", "257; 0; 0x8000 =  "}));
    EXPECT_EQ(get(257, 0, 0x2000), (Bytes{'A', 0}));
    Bytes blank(20);
    blank[0] = ' ';
    EXPECT_EQ(get(257, 0, 0x8000), blank);
}

TEST_F(Factory, EquipmentIdIsEmptyWhereOnu2GIsNotSupported)
{
    startUp();
    for (DefaultConfigManagedEntity& row : Core::defaultConfigManagedEntity) {
        row.classId = row.classId == 257 ? 0 : row.classId;
    }
    log.clear();
    EXPECT_EQ(Core().updateOnu2GME(), 0);
    EXPECT_EQ(updates().back(), "257; 0; 0x8000 = ");
}

TEST_F(Factory, SerialNumberReachesCircuitPacksAndOnuG)
{
    startUp();
    EXPECT_EQ(identify("4E52564B12345678", "V1.2"), 0);
    const Bytes serialNumber = {0x4E, 0x52, 0x56, 0x4B, 0x12, 0x34, 0x56, 0x78};
    for (const unsigned short pack : {257, 258, 259, 260}) {
        EXPECT_EQ(get(6, pack, 0x2000), serialNumber) << pack;
        EXPECT_EQ(get(6, pack, 0x800), (Bytes{'N', 'R', 'V', 'K'})) << pack;
        EXPECT_EQ(get(6, pack, 0x1000), (Bytes{'V', '1', '.', '2', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0})) << pack;
    }
    EXPECT_EQ(get(256, 0, 0x2000), serialNumber);
    EXPECT_EQ(get(256, 0, 0x4000), (Bytes{'V', '1', '.', '2', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(log.has(3, "Serial number from IPC(4E52564B12345678), sNumber copied to "
                           "byte-stream(4e52564b12345678)"));
}

TEST_F(Factory, IdentityIsWrittenPackByPack)
{
    startUp({8, 1, 0, 0, 0, 8, 2, 0});
    Core().findAndUpdate(6, 1);
    identify("4142434445464748", "V1");
    const Texts written = updates();
    ASSERT_EQ(written.size(), 14U);
    EXPECT_EQ(Texts(written.begin(), written.begin() + 4), (Texts{"6; 257; 0x2000 = ABCDEFGH", "6; 257; 0x800 = NRVK",
                                                                  "6; 257; 0x1000 = V1", "6; 258; 0x2000 = ABCDEFGH"}));
    EXPECT_EQ(Texts(written.end() - 2, written.end()), (Texts{"256; 0; 0x4000 = V1", "256; 0; 0x2000 = ABCDEFGH"}));
}

TEST_F(Factory, ZeroByteCutsTheSerialNumber)
{
    startUp();
    identify("4E52004B12345678");
    EXPECT_EQ(get(256, 0, 0x2000), (Bytes{0x4E, 0x52, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Factory, FirstEightBytesOfALongSerialNumberCount)
{
    startUp();
    identify("4E52564B123456789ABC");
    EXPECT_EQ(get(256, 0, 0x2000), (Bytes{0x4E, 0x52, 0x56, 0x4B, 0x12, 0x34, 0x56, 0x78}));
}

TEST_F(Factory, OddSerialNumberEndsInAByteOfOneDigit)
{
    startUp();
    identify("4E5");
    EXPECT_EQ(get(256, 0, 0x2000), (Bytes{0x4E, 0x05, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Factory, DigitsAreReadAsStrtoulDoes)
{
    startUp();
    identify("4Ezz4G");
    EXPECT_EQ(get(256, 0, 0x2000), (Bytes{0x4E, 0, 0, 0, 0, 0, 0, 0})) << "zz is zero, and cuts";
    identify("4G-1");
    EXPECT_EQ(get(256, 0, 0x2000), (Bytes{0x04, 0xFF, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Factory, EmptySerialNumberIsZero)
{
    startUp();
    EXPECT_EQ(identify(""), 0);
    EXPECT_EQ(get(256, 0, 0x2000), Bytes(8));
}

TEST_F(Factory, VersionIsCutToItsAttribute)
{
    startUp();
    identify("4E52564B12345678", "0123456789ABCDEFGHIJ");
    EXPECT_EQ(get(256, 0, 0x4000), (Bytes{'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D'}));
    EXPECT_EQ(stored(256, 0, 0x4000).size(), 25U);
}

TEST_F(Factory, MacAddressIsSixRawBytesOfTheFirstIpHost)
{
    startUp();
    identify("4E52564B12345678", "V1", "ABCDEFGH");
    EXPECT_EQ(get(134, 0, 0x4000), (Bytes{'A', 'B', 'C', 'D', 'E', 'F'}));
    EXPECT_NE(get(134, 1, 0x4000), (Bytes{'A', 'B', 'C', 'D', 'E', 'F'}));
    EXPECT_EQ(stored(134, 0, 0x4000)[0], ' ') << "the picture is left alone";
    EXPECT_TRUE(log.has(4, "Base Mac address from IPC(ABCDEF), Mac address copied to "
                           "byte-stream(41:42:43:44:45:46)"));
}

TEST_F(Factory, MacAddressMayHoldZeros)
{
    startUp();
    identify("4E52564B12345678", "V1", std::string("\0\x01\0\x02\0\x03", 6));
    EXPECT_EQ(get(134, 0, 0x4000), (Bytes{0, 1, 0, 2, 0, 3}));
}

TEST_F(Factory, IdentityBeforeAnyInstanceOnlyLogs)
{
    EXPECT_EQ(identify("4E52564B12345678"), 0);
    EXPECT_TRUE(updates().empty());
}

TEST_F(Factory, NullIdentityIsRefused)
{
    startUp();
    char text[] = "4E52564B12345678";
    for (int missing = 0; missing < 3; ++missing) {
        log.clear();
        EXPECT_EQ(Core().updateBoardSpecificParameters(missing == 0 ? nullptr : text, missing == 1 ? nullptr : text,
                                                       missing == 2 ? nullptr : text),
                  -1);
        EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
        EXPECT_TRUE(updates().empty());
    }
}

TEST_F(Factory, CarryNeverReachesTheMakersPartOfAMacAddress)
{
    Core core;
    EXPECT_EQ(core.incrementMacAddress("00:11:22:ff:ff:ff", "", 1), std::string("\x00\x11\x22\x00\x00\x00", 6));
    EXPECT_EQ(core.incrementMacAddress("00:11:22:00:00:00", "", -1), std::string("\x00\x11\x22\xff\xff\xff", 6));
}

TEST_F(Factory, MacAddressIsIncrementedOverThreeBytes)
{
    Core core;
    EXPECT_EQ(core.incrementMacAddress("02:00:5E:00:FF:FF", "", 2), std::string("\x02\x00\x5E\x01\x00\x01", 6));
    EXPECT_EQ(core.incrementMacAddress("02:00:5E:00:FF:FF", "", 0), std::string("\x02\x00\x5E\x00\xFF\xFF", 6));
    EXPECT_EQ(core.incrementMacAddress("1:2:3:4:5:6", "", 0), std::string("\1\2\3\4\5\6"));
}

TEST_F(Factory, ScratchOfAnIncrementIsEmptiedFirst)
{
    EXPECT_EQ(Core().incrementMacAddress("1:2:3:4:5:6", "a long text that was there before", 0),
              std::string("\1\2\3\4\5\6"));
}

TEST_F(Factory, BrokenMacAddressEndsInZeros)
{
    EXPECT_EQ(Core().incrementMacAddress("12:34", "", 0), std::string("\x12\x34\0\0\0\0", 6));
    EXPECT_EQ(Core().incrementMacAddress("", "", 0), std::string(6, '\0'));
}

TEST_F(Factory, IpHostsTakeTheBoardsAddresses)
{
    FakeHal hal;
    HALFactory::getInstance()->setHal(&hal);
    startUp();
    log.clear();
    EXPECT_EQ(Core().updateIpHostConfigDataMEs(), 0);
    EXPECT_EQ(get(134, 0, 0x4000), (Bytes{0, 0x11, 0x22, 0xAA, 0xBB, 0xCC}));
    EXPECT_EQ(get(134, 1, 0x4000), (Bytes{0, 0x11, 0x22, 0x33, 0x44, 0x55}));
    EXPECT_TRUE(log.has(6, "MAC address(00:11:22:33:44:55)"));
}

TEST_F(Factory, PrimaryAddressFollowsTheHostTo514)
{
    FakeHal hal;
    HALFactory::getInstance()->setHal(&hal);
    startUp();
    Core core;
    StartupConfigManagedEntity record;
    for (const unsigned short instance : {513, 514, 515}) {
        registrar().createManagedEntityInstance(134, instance);
        core.getDefaultConfigManagedEntity(134, instance, record);
    }
    EXPECT_EQ(core.updateIpHostConfigDataMEs(), 0);
    EXPECT_EQ(get(134, 513, 0x4000).back(), 0xCC);
    EXPECT_EQ(get(134, 514, 0x4000).back(), 0x55);
    EXPECT_EQ(get(134, 515, 0x4000).back(), 0xCC);
}

TEST_F(Factory, WithoutABoardIpHostsKeepTheirAddresses)
{
    startUp();
    log.clear();
    EXPECT_EQ(Core().updateIpHostConfigDataMEs(), 0);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    EXPECT_TRUE(updates().empty());
}

TEST_F(Factory, IpHostClassThatIsNotRegisteredIsSkipped)
{
    FakeHal hal;
    HALFactory::getInstance()->setHal(&hal);
    Core core;
    log.clear();
    EXPECT_EQ(core.updateIpHostConfigDataMEs(), 0);
    EXPECT_TRUE(log.has(6, "MAC address()"));
    EXPECT_TRUE(updates().empty());
}

class BridgeVariant : public Factory
{
protected:
    /// The text of mask 0x4000 after the update, from "old".
    std::string updated(const std::string& path)
    {
        Core::AttributeValues values{};
        std::snprintf(reinterpret_cast<char*>(values[1]), sizeof values[1], "old");
        Core::updateVerizonOpenOmci(0, values, path);
        return text(values, 0x4000);
    }

    static unsigned char veips()
    {
        for (const DefaultConfigManagedEntity& row : Core::defaultConfigManagedEntity) {
            if (row.classId == 329) {
                return row.instanceCount;
            }
        }
        return 0xFF;
    }
};

TEST_F(BridgeVariant, HasNoVirtualEthernetInterfacePoint)
{
    writeFile(kFactoryFile, "partNo=9100452F2V\n");
    EXPECT_EQ(updated(kFactoryFile), "4");
    EXPECT_EQ(veips(), 0);
}

TEST_F(BridgeVariant, OtherPartNumbersChangeNothing)
{
    writeFile(kFactoryFile, "partNo=9100452F1V\n");
    EXPECT_EQ(updated(kFactoryFile), "old");
    EXPECT_EQ(veips(), 1);
}

TEST_F(BridgeVariant, FileThatIsMissingChangesNothing)
{
    EXPECT_EQ(updated(kFactoryFile), "old");
    EXPECT_EQ(veips(), 1);
    EXPECT_TRUE(log.has(3, std::string("Can't load file(") + kFactoryFile + ")"));
}

}  // namespace
