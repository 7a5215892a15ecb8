// Run-time updates: the picture and the live instance change together.
#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeOnuGIf.h"

namespace {

using Bytes = std::vector<unsigned char>;

class Update : public LibraryTest
{
protected:
    Update() { startUp(); }

    static OmciManagedEntityRegistrar& registrar() { return *OmciManagedEntityRegistrar::getInstance(); }

    static Bytes stored(unsigned short classId, unsigned int key)
    {
        std::vector<StartupConfigManagedEntity> picture;
        registrar().getConfigManagedEntityVector(picture);
        for (const StartupConfigManagedEntity& entity : picture) {
            if (entity.classId == classId) {
                return entity.attributeValues.at(key);
            }
        }
        return {};
    }
};

TEST_F(Update, EachTypeIsStoredInItsWidth)
{
    EXPECT_EQ(registrar().updateManagedEntity<unsigned char>(263, 1025, 0x8000, 7), 0);
    EXPECT_EQ(stored(263, 0x04018000), (Bytes{7}));
    EXPECT_EQ(registrar().updateManagedEntity<unsigned short>(263, 1025, 0x0040, 0xABCD), 0);
    EXPECT_EQ(stored(263, 0x04010040), (Bytes{0xAB, 0xCD}));
    EXPECT_EQ(getNumber(263, 1025, 0x0040), 0xABCDU);
    EXPECT_EQ(registrar().updateManagedEntity<unsigned int>(257, 0, 0x0040, 0x01020304), 0);
    EXPECT_EQ(stored(257, 0x00000040), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(registrar().updateManagedEntity<unsigned long long>(257, 0, 0x0040, 0x0102030405060708ULL), 0);
    EXPECT_EQ(stored(257, 0x00000040), (Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(getNumber(257, 0, 0x0040), 0x01020304U) << "the attribute takes its width from the front";
    EXPECT_EQ(registrar().updateManagedEntity<bool>(256, 0, 0x0100, true), 0);
    EXPECT_EQ(stored(256, 0x00000100), (Bytes{1}));
}

TEST_F(Update, ShortTextIsFilledUpToTheStoredLength)
{
    const std::size_t length = stored(256, 0x00004000).size();
    EXPECT_EQ(registrar().updateManagedEntity<std::string>(256, 0, 0x4000, "9100452F1V"), 0);
    Bytes expected(length);
    std::string("9100452F1V").copy(reinterpret_cast<char*>(expected.data()), 10);
    EXPECT_EQ(stored(256, 0x00004000), expected);
    EXPECT_STREQ(reinterpret_cast<const char*>(OmciMeOnuGIf::getManagedEntityInstance(0)->getVersion(OMCI_ACTION_GET)),
                 "9100452F1V");
}

TEST_F(Update, LongTextMakesTheStoredValueLonger)
{
    EXPECT_EQ(registrar().updateManagedEntity<std::string>(256, 0, 0x4000, std::string(40, 'x')), 0);
    EXPECT_EQ(stored(256, 0x00004000).size(), 40U);
}

TEST_F(Update, LogsValueAndOutcome)
{
    registrar().updateManagedEntity<unsigned char>(263, 1025, 0x8000, 7);
    EXPECT_TRUE(log.has(6, "Managed entity(263; 1025; 0x8000); Value(7)"));
    EXPECT_TRUE(log.has(6, "Updating with (7)"));
    EXPECT_TRUE(log.has(6, "Result(0)"));
}

TEST_F(Update, AttributeWithoutAnEntryFails)
{
    EXPECT_EQ(registrar().updateManagedEntity<unsigned int>(131, 0, 0x8000, 1), -1);
    EXPECT_TRUE(log.has(4, "Key(32768) not found"));
    EXPECT_TRUE(log.has(6, "Result(-1)"));
    EXPECT_TRUE(log.has(3, "Failed to update managed entity(131; 0; 0x8000)"));
}

TEST_F(Update, KeyOfAHighInstanceIsLoggedAsASignedNumber)
{
    EXPECT_EQ(registrar().updateManagedEntity<std::string>(277, 0xFFFF, 0x8000, "x"), -1);
    EXPECT_TRUE(log.has(4, "Key(-32768) not found"));
}

TEST_F(Update, ClassWithoutARecordFails)
{
    EXPECT_EQ(registrar().updateManagedEntity<unsigned char>(65402, 1024, 0x8000, 1), -1);
    EXPECT_TRUE(log.has(6, "Number of managed entities supported(88)"));
    EXPECT_TRUE(log.texts(3).empty() || !log.has(3, "Failed to update managed entity(65402; 1024; 0x8000)"));
}

TEST_F(Update, FailedWriteToTheLiveInstanceIsOnlyLogged)
{
    registrar().deleteManagedEntityInstance(263, 1025);
    EXPECT_EQ(registrar().updateManagedEntity<unsigned char>(263, 1025, 0x8000, 3), 0);
    EXPECT_TRUE(log.has(3, "setManagedEntityAttribute(263; 1025; 0x8000) failed(-1)"));
    EXPECT_EQ(stored(263, 0x04018000), (Bytes{3}));
}

TEST_F(Update, ReachesTheOltAsAnAttributeValueChange)
{
    EXPECT_CALL(hardware, sendAttributeValueChange(::testing::_)).Times(1);
    registrar().updateManagedEntity<unsigned char>(256, 0, 0x0100, 1);  // OperationalState reports changes
}

}  // namespace
