// Verizon OpenOMCI's version rule, and the watchdog's capabilities.
#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"

namespace {

constexpr unsigned short kOpenOmci = 65400;
constexpr unsigned short kWatchdog = 65403;
constexpr unsigned short kSupported = 0x8000;
constexpr unsigned short kInUse = 0x2000;

class OpenOmciVersion : public LibraryTest
{
protected:
    void SetUp() override
    {
        adapter(kOpenOmci);
        ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(kOpenOmci, 0), 0);
        ASSERT_EQ(set(kOpenOmci, 0, kSupported, 0x0203), 0);
        log.clear();
    }
};

TEST_F(OpenOmciVersion, SupportedVersionIsAcceptedAndOneMoreRefused)
{
    EXPECT_EQ(set(kOpenOmci, 0, kInUse, 0x0203), 0);
    EXPECT_TRUE(log.texts(3).empty());
    EXPECT_EQ(set(kOpenOmci, 0, kInUse, 0x0204), -1);
    EXPECT_EQ(getNumber(kOpenOmci, 0, kInUse), 0x0203U) << "a refused version leaves the stored one";
    EXPECT_EQ(log.texts(3).front(), "Version not supported(512.4)") << "the major version stands unshifted";
}

TEST_F(OpenOmciVersion, OlderVersionIsAccepted)
{
    EXPECT_EQ(set(kOpenOmci, 0, kInUse, 0x01FF), 0);
    EXPECT_EQ(getNumber(kOpenOmci, 0, kInUse), 0x01FFU);
}

TEST_F(OpenOmciVersion, VersionsCompareUnsigned)
{
    EXPECT_EQ(set(kOpenOmci, 0, kInUse, 0x80000000), -1);
    EXPECT_EQ(set(kOpenOmci, 0, kSupported, 0xFFFFFFFF), 0);
    EXPECT_EQ(set(kOpenOmci, 0, kInUse, 0x80000000), 0);
    EXPECT_EQ(getNumber(kOpenOmci, 0, kInUse), 0x80000000U);
}

TEST_F(OpenOmciVersion, NothingIsAppliedAfterASet)
{
    EXPECT_EQ(adapter(kOpenOmci).applyConfigurationToHardwareForSet(0), -1);
}

TEST_F(LibraryTest, WatchdogCapabilitiesStayInTheStore)
{
    OmciMe& watchdog = adapter(kWatchdog);
    ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(kWatchdog, 1), 0);
    EXPECT_EQ(set(kWatchdog, 1, 0x800, 0x12345678), 0);
    EXPECT_EQ(getNumber(kWatchdog, 1, 0x800), 0x12345678U);
    EXPECT_EQ(watchdog.applyConfigurationToHardwareForSet(1), -1);
}

}  // namespace
