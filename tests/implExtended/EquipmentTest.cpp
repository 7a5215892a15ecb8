// OLT-G and ONT system: what the OLT says of itself and of the time.
#include <cstring>
#include <ctime>

#include "HALFactory.h"
#include "LibraryTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeCardholderIf.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeONTSystemIf.h"
#include "OmciMeOltGIf.h"

namespace {

using Bytes = std::vector<unsigned char>;
using ::testing::Invoke;
using ::testing::Return;

constexpr unsigned int kBlanks = 0x20202020;
constexpr unsigned int kOwnOlt = 0x4E525652;
constexpr unsigned int kOtherOlt = 0x41424344;

class OltG : public LibraryTest
{
protected:
    OltG() { startUp(); }

    static bool hasIpHost(unsigned short instance)
    {
        return OmciMeIpHostConfigDataIf::getManagedEntityInstance(instance) != nullptr;
    }
};

TEST_F(OltG, OwnVendorSwapsTheIpHosts)
{
    EXPECT_CALL(hardware, notifyOltVendorId()).WillOnce(Invoke([] {
        EXPECT_EQ(getNumber(131, 0, 0x8000), kOwnOlt) << "told after the store";
        EXPECT_TRUE(hasIpHost(514)) << "told after the swap";
        return -1;
    }));
    EXPECT_EQ(set(131, 0, 0x8000, kOwnOlt), 0);
    EXPECT_TRUE(OmciManagedEntitiesCore::m_IsNrvkOltConnected);
    EXPECT_TRUE(hasIpHost(515));
    EXPECT_FALSE(hasIpHost(0));
    EXPECT_FALSE(hasIpHost(1));
}

TEST_F(OltG, OtherVendorLeavesTheIpHosts)
{
    OmciManagedEntitiesCore::m_IsNrvkOltConnected = true;
    EXPECT_CALL(hardware, notifyOltVendorId()).Times(1);
    EXPECT_EQ(set(131, 0, 0x8000, kOtherOlt), 0);
    EXPECT_FALSE(OmciManagedEntitiesCore::m_IsNrvkOltConnected);
    EXPECT_TRUE(hasIpHost(0));
    EXPECT_TRUE(hasIpHost(1));
}

TEST_F(OltG, BlankVendorLeavesTheIpHostsAsTheyAre)
{
    OmciManagedEntitiesCore::m_IsNrvkOltConnected = true;
    EXPECT_CALL(hardware, notifyOltVendorId()).Times(1);
    log.clear();
    EXPECT_EQ(set(131, 0, 0x8000, kBlanks), 0);
    EXPECT_TRUE(OmciManagedEntitiesCore::m_IsNrvkOltConnected) << "no vendor is known yet";
    EXPECT_TRUE(hasIpHost(0));
    EXPECT_FALSE(log.has(3, "Detected NULL pointer")) << "and no address is asked for";
}

TEST_F(OltG, VendorIsStoredWithoutHardware)
{
    removeHardware();
    log.clear();
    EXPECT_EQ(set(131, 0, 0x8000, kBlanks), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(getNumber(131, 0, 0x8000), kBlanks);
}

TEST_F(OltG, TimeOfDayGoesOnInTheByteOrderOfTheWire)
{
    const Bytes value = {0x01, 0x02, 0x03, 0x04, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x21, 0x22, 0x23, 0x24};
    unsigned int superFrameCounter = 0;
    unsigned long long seconds = 0;
    unsigned int nanoseconds = 0;
    const unsigned char secondsInMemory[8] = {0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0, 0};
    std::memcpy(&superFrameCounter, value.data(), 4);
    std::memcpy(&seconds, secondsInMemory, 8);
    std::memcpy(&nanoseconds, value.data() + 10, 4);
    EXPECT_CALL(hardware, setOltTimeOfDay(superFrameCounter, seconds, nanoseconds)).WillOnce(Return(-1));
    EXPECT_EQ(set(131, 0, 0x1000, value), 0);
    EXPECT_EQ(get(131, 0, 0x1000), value);
    EXPECT_TRUE(log.has(6, "Sending PonMgr the required Tod info superFrameCounter:" +
                               std::to_string(static_cast<int>(superFrameCounter)) +
                               " noOfSeconds:" + std::to_string(seconds) +
                               " noOfNanoSeconds:" + std::to_string(static_cast<int>(nanoseconds)) + " "));
}

TEST_F(OltG, TimeOfDayIsStoredWithoutHardware)
{
    removeHardware();
    log.clear();
    const Bytes value(14, 7);
    EXPECT_EQ(set(131, 0, 0x1000, value), 0);
    EXPECT_EQ(get(131, 0, 0x1000), value);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(OltG, SetHasNothingToApply)
{
    EXPECT_EQ(adapter(131).applyConfigurationToHardwareForSet(0), -1);
}

TEST_F(OltG, StartUpTellsTheHardwareNothing)
{
    EXPECT_CALL(hardware, notifyOltVendorId()).Times(0);
    EXPECT_CALL(hardware, setOltTimeOfDay).Times(0);
    EXPECT_CALL(hardware, setOntTimeOfDay).Times(0);
    OmciManagedEntityRegistrar::getInstance()->initializeSupportedManagedEntitiesAndInstances();
}

class OntSystem : public LibraryTest
{
protected:
    static constexpr bool kTimeHas64Bits = sizeof(time_t) == 8;

    OntSystem() { startUp(); }

    static Bytes timeOfDay(unsigned int year, unsigned char month, unsigned char day, unsigned char hour,
                           unsigned char minute, unsigned char second)
    {
        return {
            static_cast<unsigned char>(year >> 8), static_cast<unsigned char>(year), month, day, hour, minute, second};
    }

    /// Sets the time and yields what the hardware was given.
    time_t given(const Bytes& value)
    {
        time_t seconds = 0;
        EXPECT_CALL(hardware, setOntTimeOfDay).WillOnce(Invoke([&seconds](const time_t* time) {
            seconds = *time;
            return -1;
        }));
        EXPECT_EQ(set(65300, 0, 0x8000, value), 0);
        return seconds;
    }
};

TEST_F(OntSystem, TimeOfDayIsLocalTime)
{
    const time_t seconds = given(timeOfDay(2024, 2, 29, 13, 45, 59));
    const std::tm* local = std::localtime(&seconds);
    EXPECT_EQ(local->tm_year, 124);
    EXPECT_EQ(local->tm_mon, 1);
    EXPECT_EQ(local->tm_mday, 29);
    EXPECT_EQ(local->tm_hour, 13);
    EXPECT_EQ(local->tm_min, 45);
    EXPECT_EQ(local->tm_sec, 59);
    EXPECT_EQ(get(65300, 0, 0x8000), timeOfDay(2024, 2, 29, 13, 45, 59));
    EXPECT_TRUE(log.has(6, "Time of day(07, E8, 02, 1D, 0D, 2D, 3B)"));
    EXPECT_TRUE(log.has(3, "Time of day (in Seconds) = " + std::to_string(static_cast<int>(seconds))));
}

TEST_F(OntSystem, TimeAfterJanuary2038IsGivenWhereTimeTHoldsItAndElseLeavesTheClock)
{
    const Bytes value = timeOfDay(2040, 6, 30, 23, 59, 58);
    if constexpr (kTimeHas64Bits) {
        const time_t seconds = given(value);
        const std::tm* local = std::localtime(&seconds);
        EXPECT_EQ(local->tm_year, 140);
        EXPECT_EQ(local->tm_sec, 58);
    } else {
        EXPECT_CALL(hardware, setOntTimeOfDay).Times(0);
        EXPECT_EQ(set(65300, 0, 0x8000, value), 0);
        EXPECT_TRUE(log.has(3, "Time of day is outside of what time_t holds, the clock stays as it is"));
    }
    EXPECT_EQ(get(65300, 0, 0x8000), value);
}

TEST_F(OntSystem, SecondBefore1970IsATimeLikeAnyOther)
{
    const time_t before = -1;
    const std::tm* local = std::localtime(&before);
    const auto part = [](int value) { return static_cast<unsigned char>(value); };
    EXPECT_EQ(given(timeOfDay(static_cast<unsigned int>(local->tm_year + 1900), part(local->tm_mon + 1),
                              part(local->tm_mday), part(local->tm_hour), part(local->tm_min), part(local->tm_sec))),
              before);
}

TEST_F(OntSystem, Year1900IsYearZero)
{
    if constexpr (!kTimeHas64Bits) {
        GTEST_SKIP() << "time_t begins in December 1901";
    }
    std::tm first{};
    first.tm_year = 0;
    first.tm_mon = 0;
    first.tm_mday = 1;
    EXPECT_EQ(given(timeOfDay(1900, 1, 1, 0, 0, 0)), std::mktime(&first));
}

TEST_F(OntSystem, TimeOfDayIsStoredWithoutHardware)
{
    removeHardware();
    log.clear();
    EXPECT_EQ(set(65300, 0, 0x8000, timeOfDay(2024, 1, 1, 0, 0, 0)), 0);
    EXPECT_EQ(get(65300, 0, 0x8000), timeOfDay(2024, 1, 1, 0, 0, 0));
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(OntSystem, SetHasNothingToApply)
{
    EXPECT_EQ(adapter(65300).applyConfigurationToHardwareForSet(0), -1);
}

TEST_F(OntSystem, EraseLeavesTheInstanceWithItsDefault)
{
    given(timeOfDay(2024, 1, 1, 0, 0, 0));
    adapter(65300).eraseAllManagedEntityInstances();
    EXPECT_EQ(get(65300, 0, 0x8000), Bytes(7));
}

class Cardholder : public LibraryTest
{};

TEST_F(Cardholder, AdapterStoresAReadOnlyAttributeWhichItsListRefuses)
{
    startUp();
    EXPECT_EQ(adapter(5).getSetAttributesMask() & 0x8000, 0);
    EXPECT_EQ(set(5, 257, 0x8000, 49), 0);
    EXPECT_EQ(getNumber(5, 257, 0x8000), 49U);
}

}  // namespace
