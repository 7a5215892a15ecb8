// POTS ports, VoIP line status and VoIP config data.
#include <array>
#include <cstring>

#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMePptpPotsUniIf.h"
#include "OmciMeVoipConfigDataIf.h"
#include "OmciMeVoipLineStatusIf.h"

using ::testing::_;
using ::testing::Mock;

namespace {

constexpr unsigned short kPotsUni = 53;
constexpr unsigned short kVoipConfigData = 138;
constexpr unsigned short kVoipLineStatus = 141;

unsigned int inMemoryOrder(const std::array<unsigned char, 4>& bytes)
{
    unsigned int word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    return word;
}

class PotsPort : public LibraryTest
{
protected:
    static constexpr unsigned short kPort = 0x0101;
    static constexpr unsigned short kAdministrativeState = 0x8000;
    static constexpr unsigned short kArc = 0x2000;
    static constexpr unsigned short kImpedence = 0x0800;
    static constexpr unsigned short kTransmissionPath = 0x0400;
    static constexpr unsigned short kRxGain = 0x0200;
    static constexpr unsigned short kTxGain = 0x0100;
    static constexpr unsigned short kOperationalState = 0x0080;
    static constexpr unsigned short kHookState = 0x0040;
    static constexpr unsigned short kNominalFeedVoltage = 0x0010;

    void SetUp() override
    {
        adapter(kPotsUni);
        port = OmciMePptpPotsUniIf::createManagedEntityInstance(kPort, false);
    }

    static int apply(unsigned short instance = kPort)
    {
        return adapter(kPotsUni).applyConfigurationToHardwareForSet(instance);
    }

    OmciMePptpPotsUniIf* port = nullptr;
};

TEST_F(PotsPort, ShadowedValuesGoToTheHardwareInMemoryOrder)
{
    set(kPotsUni, kPort, kAdministrativeState, 1);
    set(kPotsUni, kPort, kImpedence, 2);
    set(kPotsUni, kPort, kTransmissionPath, 3);
    set(kPotsUni, kPort, kRxGain, 0xF4);
    set(kPotsUni, kPort, kTxGain, 0xF5);
    EXPECT_CALL(hardware, applyPotsUni(kPort, inMemoryOrder({1, 2, 3, 0xF4}), 0xF5)).Times(1);
    EXPECT_EQ(apply(), 0);
}

TEST_F(PotsPort, EachShadowedAttributeAloneCausesTheCall)
{
    struct Row
    {
        unsigned short mask;
        std::array<unsigned char, 4> word;
        unsigned char txGain;
    };
    const Row rows[] = {{kAdministrativeState, {2, 0, 0, 0}, 0},
                        {kImpedence, {0, 2, 0, 0}, 0},
                        {kTransmissionPath, {0, 0, 2, 0}, 0},
                        {kRxGain, {0, 0, 0, 2}, 0},
                        {kTxGain, {0, 0, 0, 0}, 2}};
    unsigned short instance = 0x0200;
    for (const Row& row : rows) {
        ++instance;
        OmciMePptpPotsUniIf::createManagedEntityInstance(instance, false);
        EXPECT_CALL(hardware, applyPotsUni(instance, inMemoryOrder(row.word), row.txGain)).Times(1);
        EXPECT_EQ(set(kPotsUni, instance, row.mask, 2), 0);
        EXPECT_EQ(apply(instance), 0);
    }
}

TEST_F(PotsPort, SecondIdenticalSetCausesNoCall)
{
    EXPECT_CALL(hardware, applyPotsUni(kPort, _, _)).Times(1);
    set(kPotsUni, kPort, kImpedence, 3);
    EXPECT_EQ(apply(), 0);
    EXPECT_FALSE(log.has(7, "RPC call is not required "));
    set(kPotsUni, kPort, kImpedence, 3);
    EXPECT_EQ(apply(), 0);
    EXPECT_TRUE(log.has(7, "RPC call is not required "));
}

TEST_F(PotsPort, FreshEntityNeedsNoCall)
{
    EXPECT_CALL(hardware, applyPotsUni(_, _, _)).Times(0);
    EXPECT_EQ(apply(), 0);
    EXPECT_TRUE(log.has(7, "RPC call is not required "));
}

TEST_F(PotsPort, SetOfAnotherAttributeCausesNoCall)
{
    EXPECT_CALL(hardware, applyPotsUni(_, _, _)).Times(0);
    EXPECT_EQ(set(kPotsUni, kPort, kArc, 1), 0);
    EXPECT_EQ(apply(), 0);
}

TEST_F(PotsPort, RefusedValueCausesNoCall)
{
    EXPECT_CALL(hardware, applyPotsUni(_, _, _)).Times(0);
    EXPECT_EQ(set(kPotsUni, kPort, kImpedence, 5), -1);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(port->getImpedence(OMCI_ACTION_GET), 0);
}

TEST_F(PotsPort, ValueSetAndTakenBackInOneSetStillCausesTheCall)
{
    for (const unsigned short mask : {kAdministrativeState, kImpedence, kTransmissionPath, kRxGain, kTxGain}) {
        EXPECT_CALL(hardware, applyPotsUni(kPort, 0U, 0)).Times(1);
        set(kPotsUni, kPort, mask, 2);
        set(kPotsUni, kPort, mask, 0);
        EXPECT_EQ(apply(), 0);
        EXPECT_TRUE(Mock::VerifyAndClearExpectations(&hardware)) << std::hex << mask;
    }
}

TEST_F(PotsPort, ValueFromAStatusUpdateGoesOutWithTheNextSet)
{
    port->setImpedence(4);
    EXPECT_CALL(hardware, applyPotsUni(kPort, inMemoryOrder({0, 4, 0, 0}), 0)).Times(1);
    set(kPotsUni, kPort, kArc, 1);
    EXPECT_EQ(apply(), 0);
}

TEST_F(PotsPort, MissingHardwareIsLoggedAndAnsweredWithSuccess)
{
    removeHardware();
    set(kPotsUni, kPort, kTxGain, 9);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(getNumber(kPotsUni, kPort, kTxGain), 9U);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U) << "the shadow follows the store with no hardware as well";
}

TEST_F(PotsPort, NominalFeedVoltageIsAnsweredWithSuccessAndKeepsItsValue)
{
    EXPECT_CALL(hardware, applyPotsUni(_, _, _)).Times(0);
    const unsigned long long before = getNumber(kPotsUni, kPort, kNominalFeedVoltage);
    EXPECT_EQ(set(kPotsUni, kPort, kNominalFeedVoltage, 48), 0);
    EXPECT_TRUE(log.has(6, "nominalFeedVoltage (48)"));
    EXPECT_EQ(getNumber(kPotsUni, kPort, kNominalFeedVoltage), before);
    EXPECT_EQ(apply(), 0);
}

TEST_F(PotsPort, OperationalStateIsRefreshedBeforeItIsRead)
{
    EXPECT_CALL(hardware, refreshPotsUni(OMCI_ACTION_GET_CURRENT_DATA, kPort)).WillOnce([this] {
        port->setOperationalState(0);
        return 0;
    });
    EXPECT_EQ(getNumber(kPotsUni, kPort, kOperationalState, OMCI_ACTION_GET_CURRENT_DATA), 0U);
}

TEST_F(PotsPort, HookStateIsRefreshedBeforeItIsRead)
{
    EXPECT_CALL(hardware, refreshPotsUni(OMCI_ACTION_GET, kPort)).WillOnce([this] {
        port->setHookState(1);
        return 0;
    });
    EXPECT_EQ(getNumber(kPotsUni, kPort, kHookState), 1U);
}

TEST_F(PotsPort, UnansweredRefreshReadsTheLastValue)
{
    port->setHookState(1);
    EXPECT_EQ(getNumber(kPotsUni, kPort, kHookState), 1U);
    EXPECT_EQ(getNumber(kPotsUni, kPort, kOperationalState), 1U) << "the default";
}

TEST_F(PotsPort, StatesReadWithoutHardwareAreTheStoredOnes)
{
    removeHardware();
    EXPECT_EQ(getNumber(kPotsUni, kPort, kOperationalState), 1U);
    EXPECT_EQ(getNumber(kPotsUni, kPort, kHookState), 0U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(PotsPort, LastInstanceIsAPortLikeAnyOther)
{
    OmciMePptpPotsUniIf::createManagedEntityInstance(0xFFFF, false);
    EXPECT_CALL(hardware, applyPotsUni(0xFFFF, inMemoryOrder({1, 0, 0, 0}), 0)).Times(1);
    set(kPotsUni, 0xFFFF, kAdministrativeState, 1);
    EXPECT_EQ(apply(0xFFFF), 0);
    EXPECT_EQ(apply(0xFFFE), -1) << "no such instance";
}

TEST_F(PotsPort, MibResetCallsNoHardware)
{
    set(kPotsUni, kPort, kImpedence, 3);
    EXPECT_CALL(hardware, applyPotsUni(_, _, _)).Times(0);
    adapter(kPotsUni).eraseAllManagedEntityInstances();
    EXPECT_EQ(getNumber(kPotsUni, kPort, kImpedence), 0U);
}

class VoipLineStatus : public LibraryTest
{
protected:
    static constexpr unsigned short kLine = 0x0101;

    void SetUp() override
    {
        adapter(kVoipLineStatus);
        line = OmciMeVoipLineStatusIf::createManagedEntityInstance(kLine, false);
    }

    OmciMeVoipLineStatusIf* line = nullptr;
};

TEST_F(VoipLineStatus, FiveAttributesAreRefreshedBeforeTheyAreRead)
{
    for (const EnumOmciAction action : {OMCI_ACTION_GET, OMCI_ACTION_GET_CURRENT_DATA}) {
        unsigned char answer = action == OMCI_ACTION_GET ? 10 : 20;
        EXPECT_CALL(hardware, refreshVoipLineStatus(action, kLine)).Times(5).WillRepeatedly([&] {
            ++answer;
            line->setVoipCodecUsed(static_cast<unsigned short>(0x0100 + answer));
            line->setVoipVoiceServerStatus(answer);
            line->setVoipPortSessionType(answer);
            line->setVoipLineState(answer);
            line->setEmergencyCallStatus(answer);
            return 0;
        });
        const unsigned int first = answer + 1U;
        EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x8000, action), 0x0100 + first);
        EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x4000, action), first + 1);
        EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x2000, action), first + 2);
        EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x0100, action), first + 3);
        EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x0080, action), first + 4);
        Mock::VerifyAndClearExpectations(&hardware);
    }
}

TEST_F(VoipLineStatus, WithoutHardwareTheStoredValuesAreRead)
{
    line->setVoipCodecUsed(8);
    removeHardware();
    EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x8000), 8U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(VoipLineStatus, Call1PacketPeriodReads0xFFFFWhateverIsStored)
{
    EXPECT_CALL(hardware, refreshVoipLineStatus(_, _)).Times(0);
    EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x1000), 0xFFFFU);
    EXPECT_EQ(line->setVoipCall_1_PacketPeriod(20), 0);
    EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x1000), 0xFFFFU);
    EXPECT_EQ(line->getVoipCall_1_PacketPeriod(OMCI_ACTION_GET_CURRENT_DATA), 0xFFFF);
}

TEST_F(VoipLineStatus, Call1DestinationIsNullAndReadsAsZerosWhateverIsStored)
{
    EXPECT_CALL(hardware, refreshVoipLineStatus(_, _)).Times(0);
    const std::vector<unsigned char> destination(25, 'x');
    EXPECT_EQ(line->setVoipCall_1_DestAddr(destination.data()), 0);
    EXPECT_EQ(line->getVoipCall_1_DestAddr(OMCI_ACTION_GET), nullptr);
    EXPECT_EQ(get(kVoipLineStatus, kLine, 0x0400), std::vector<unsigned char>(25, 0));
}

TEST_F(VoipLineStatus, Call2KeepsThePlainStore)
{
    EXPECT_CALL(hardware, refreshVoipLineStatus(_, _)).Times(0);
    const std::vector<unsigned char> destination(25, 'y');
    line->setVoipCall_2_PacketPeriod(30);
    line->setVoipCall_2_DestAddr(destination.data());
    EXPECT_EQ(getNumber(kVoipLineStatus, kLine, 0x0800), 30U);
    EXPECT_EQ(get(kVoipLineStatus, kLine, 0x0200), destination);
}

TEST_F(VoipLineStatus, HasNothingToApply)
{
    EXPECT_EQ(adapter(kVoipLineStatus).applyConfigurationToHardwareForSet(kLine), -1);
}

class VoipConfigData : public LibraryTest
{
protected:
    static constexpr unsigned short kInstance = 0;
    static constexpr unsigned short kSignallingProtocolUsed = 0x4000;
    static constexpr unsigned short kMethodUsed = 0x1000;
    static constexpr unsigned short kAddressPointer = 0x0800;
    static constexpr unsigned short kRetrieveProfile = 0x0200;

    void SetUp() override
    {
        adapter(kVoipConfigData);
        config = OmciMeVoipConfigDataIf::createManagedEntityInstance(kInstance, false);
    }

    static int apply() { return adapter(kVoipConfigData).applyConfigurationToHardwareForSet(kInstance); }

    static unsigned int word1(unsigned char protocol, unsigned char method, unsigned short pointer)
    {
        std::array<unsigned char, 4> bytes = {protocol, method};
        std::memcpy(&bytes[2], &pointer, sizeof pointer);
        return inMemoryOrder(bytes);
    }

    OmciMeVoipConfigDataIf* config = nullptr;
};

TEST_F(VoipConfigData, ChangedValuesGoToTheHardwareInTwoWords)
{
    set(kVoipConfigData, kInstance, kSignallingProtocolUsed, 1);
    set(kVoipConfigData, kInstance, kMethodUsed, 2);
    set(kVoipConfigData, kInstance, kAddressPointer, 0x1234);
    config->setRetrieveProfile(7);
    EXPECT_CALL(hardware, applyVoipConfig(kInstance, word1(1, 2, 0x1234), inMemoryOrder({7, 0, 0, 0}))).Times(1);
    EXPECT_EQ(apply(), 0);
}

TEST_F(VoipConfigData, EachComparedAttributeAloneCausesTheCall)
{
    EXPECT_CALL(hardware, applyVoipConfig(kInstance, word1(255, 0, 65535), 0)).Times(1);
    set(kVoipConfigData, kInstance, kSignallingProtocolUsed, 255);
    EXPECT_EQ(apply(), 0);
    Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_CALL(hardware, applyVoipConfig(kInstance, word1(255, 4, 65535), 0)).Times(1);
    set(kVoipConfigData, kInstance, kMethodUsed, 4);
    EXPECT_EQ(apply(), 0);
    Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_CALL(hardware, applyVoipConfig(kInstance, word1(255, 4, 1), 0)).Times(1);
    set(kVoipConfigData, kInstance, kAddressPointer, 1);
    EXPECT_EQ(apply(), 0);
}

TEST_F(VoipConfigData, RetrieveProfileIsNoChangeOfItsOwnButGoesAlong)
{
    EXPECT_CALL(hardware, applyVoipConfig(_, _, _)).Times(0);
    set(kVoipConfigData, kInstance, kRetrieveProfile, 1);
    EXPECT_EQ(config->getRetrieveProfile(OMCI_ACTION_GET), 1);
    EXPECT_EQ(apply(), 0);
    EXPECT_TRUE(log.has(7, "RPC call is not required "));
    Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_CALL(hardware, applyVoipConfig(kInstance, word1(1, 0, 65535), inMemoryOrder({1, 0, 0, 0}))).Times(1);
    set(kVoipConfigData, kInstance, kSignallingProtocolUsed, 1);
    EXPECT_EQ(apply(), 0);
}

TEST_F(VoipConfigData, RepeatedSetCausesNoCall)
{
    EXPECT_CALL(hardware, applyVoipConfig(_, _, _)).Times(1);
    set(kVoipConfigData, kInstance, kSignallingProtocolUsed, 1);
    EXPECT_EQ(apply(), 0);
    set(kVoipConfigData, kInstance, kSignallingProtocolUsed, 1);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(log.count(7, "RPC call is not required "), 1U);
}

TEST_F(VoipConfigData, ValueSetAndTakenBackInOneSetStillCausesTheCall)
{
    for (const unsigned short mask : {kSignallingProtocolUsed, kMethodUsed, kAddressPointer}) {
        const unsigned long long before = getNumber(kVoipConfigData, kInstance, mask);
        EXPECT_CALL(hardware, applyVoipConfig(kInstance, word1(0, 0, 65535), 0)).Times(1);
        set(kVoipConfigData, kInstance, mask, 2);
        set(kVoipConfigData, kInstance, mask, before);
        EXPECT_EQ(apply(), 0);
        EXPECT_TRUE(Mock::VerifyAndClearExpectations(&hardware)) << std::hex << mask;
    }
}

TEST_F(VoipConfigData, MissingHardwareIsLoggedAndAnsweredWithSuccess)
{
    removeHardware();
    set(kVoipConfigData, kInstance, kMethodUsed, 1);
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(VoipConfigData, MibResetCallsNoHardware)
{
    EXPECT_CALL(hardware, applyVoipConfig(_, _, _)).Times(0);
    EXPECT_EQ(config->eraseConfigurationFromHardware(), 0);
}

}  // namespace
