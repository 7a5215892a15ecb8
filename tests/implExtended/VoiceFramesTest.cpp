// The checks of the voice entities as an OLT meets them: over frames, in both formats.
#include <list>
#include <tuple>

#include "FramesTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMeSipAgentConfigDataIf.h"
#include "VoiceChecks.h"

using ::testing::_;
using ::testing::DoAll;
using ::testing::Mock;
using ::testing::SetArgPointee;

namespace {

constexpr unsigned int kSuccess = 0;
constexpr unsigned int kProcessingError = 1;
constexpr unsigned int kNotSupported = 2;
constexpr unsigned int kParameterError = 3;
constexpr unsigned int kAttributesFailed = 9;

constexpr unsigned short kPotsUni = 53;
constexpr unsigned short kVoiceServiceProfile = 58;
constexpr unsigned short kIpHost = 134;
constexpr unsigned short kVoipConfigData = 138;
constexpr unsigned short kVoipVoiceCtp = 139;
constexpr unsigned short kVoipLineStatus = 141;
constexpr unsigned short kVoipMediaProfile = 142;
constexpr unsigned short kRtpProfile = 143;
constexpr unsigned short kDialPlan = 145;
constexpr unsigned short kSipAgent = 150;
constexpr unsigned short kFirstPotsPort = 0x0301;
constexpr BoardSpecificConfig kBoard = {8, 4, 0, 1, 1, 8, 4, 2};

std::string nameOf(omci::Format format)
{
    return format == omci::Format::Baseline ? "Baseline" : "Extended";
}

/// A value on each side of each limit, 0 and 255.
std::vector<int> valuesAtLimits(const VoiceCheck& check)
{
    std::vector<int> values = {0, 255};
    for (const auto& [low, high] : check.accepted) {
        for (const int value : {low - 1, low, high, high + 1}) {
            if (value >= 0 && value <= 255) {
                values.push_back(value);
            }
        }
    }
    return values;
}

class VoiceValidationFrames : public FramesTest,
                              public ::testing::WithParamInterface<std::tuple<VoiceCheck, omci::Format>>
{
protected:
    static constexpr unsigned short kInstance = 0x0107;

    VoiceValidationFrames() : FramesTest(std::get<1>(GetParam())) {}

    void SetUp() override { startUp(kBoard); }

    static const VoiceCheck& check() { return std::get<0>(GetParam()); }

    static void makeEntity()
    {
        ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(check().classId, kInstance),
                  0);
    }

    /// An attribute of the class that takes anything.
    static unsigned short uncheckedAttribute()
    {
        switch (check().classId) {
        case kPotsUni:
            return 0x2000;
        case kVoipConfigData:
            return 0x0800;
        case kVoipMediaProfile:
            return 0x0001;
        case kRtpProfile:
            return 0x8000;
        default:
            return 0x4000;
        }
    }

    /// All set-by-create values, good ones but for the attribute under test.
    static Bytes createValues(int value)
    {
        std::list<attributeDefinition> attributes;
        adapter(check().classId).getAttributesListForCreate(&attributes);
        Bytes values;
        for (const attributeDefinition& attribute : attributes) {
            Bytes octets(attribute.attributeSize);
            for (const VoiceCheck& other : voiceChecks) {
                if (other.classId == check().classId && other.mask == attribute.attributeMask) {
                    octets[0] = static_cast<unsigned char>(other.accepted.front().first);
                }
            }
            if (attribute.attributeMask == check().mask) {
                octets[0] = static_cast<unsigned char>(value);
            }
            values.insert(values.end(), octets.begin(), octets.end());
        }
        return values;
    }

    static bool isSetByCreate() { return (adapter(check().classId).getCreateAttributesMask() & check().mask) != 0; }
};

TEST_P(VoiceValidationFrames, EachValueIsStoredOrFailsTheSetWithItsMask)
{
    makeEntity();
    unsigned long long stored = numberByFrame(check().classId, kInstance, check().mask);
    for (int value = 0; value < 256; ++value) {
        const SetReply reply =
            setByFrame(check().classId, kInstance, check().mask, static_cast<unsigned long long>(value));
        if (check().accepts(value)) {
            EXPECT_EQ(reply.result, kSuccess) << value;
            stored = static_cast<unsigned long long>(value);
        } else {
            EXPECT_EQ(reply.result, kAttributesFailed) << value;
            EXPECT_EQ(reply.failed, check().mask) << value;
            EXPECT_EQ(reply.unsupported, 0U) << value;
        }
        EXPECT_EQ(numberByFrame(check().classId, kInstance, check().mask), stored) << value;
    }
}

TEST_P(VoiceValidationFrames, RefusedValueFailsAloneAmongOthers)
{
    makeEntity();
    const auto other = uncheckedAttribute();
    for (const int value : valuesAtLimits(check())) {
        if (check().accepts(value)) {
            continue;
        }
        const Bytes checked = {static_cast<unsigned char>(value)};
        const Bytes unchecked(definitionOf(check().classId, other).attributeSize,
                              static_cast<unsigned char>(0x5A ^ value));
        Bytes values = check().mask > other ? checked : unchecked;
        const Bytes& rest = check().mask > other ? unchecked : checked;
        values.insert(values.end(), rest.begin(), rest.end());
        const unsigned long long before = numberByFrame(check().classId, kInstance, check().mask);
        const unsigned long long sync = mibDataSync();
        const auto mask = static_cast<unsigned short>(check().mask | other);
        const SetReply reply = setByFrame(check().classId, kInstance, mask, values);
        EXPECT_EQ(reply.result, kAttributesFailed) << value;
        EXPECT_EQ(reply.failed, check().mask) << value;
        EXPECT_EQ(numberByFrame(check().classId, kInstance, check().mask), before) << value;
        EXPECT_EQ(getByFrame(check().classId, kInstance, other), unchecked) << value;
        EXPECT_EQ(mibDataSync(), sync) << value;
    }
}

TEST_P(VoiceValidationFrames, RefusedSetByCreateValueFailsTheCreateWithItsMask)
{
    if (!isSetByCreate()) {
        EXPECT_EQ(createByFrame(check().classId, kInstance), kNotSupported) << "the ONU's own";
        return;
    }
    const OmciMe& me = adapter(check().classId);
    for (const int value : valuesAtLimits(check())) {
        const Bytes reply = ask(omci::MessageType::Create, check().classId, kInstance, createValues(value));
        if (check().accepts(value)) {
            EXPECT_EQ(reply.at(0), kSuccess) << value;
            EXPECT_EQ(numberByFrame(check().classId, kInstance, check().mask), static_cast<unsigned>(value));
            EXPECT_EQ(deleteByFrame(check().classId, kInstance), kSuccess);
        } else {
            EXPECT_EQ(reply.at(0), kParameterError) << value;
            EXPECT_EQ(reply.at(1) << 8 | reply.at(2), check().mask) << value;
        }
        EXPECT_NE(me.findManagedEntityInstance(kInstance), 0) << value;
    }
}

INSTANTIATE_TEST_SUITE_P(Attributes, VoiceValidationFrames,
                         ::testing::Combine(::testing::ValuesIn(voiceChecks),
                                            ::testing::Values(omci::Format::Baseline, omci::Format::Extended)),
                         [](const auto& row) {
                             return std::get<0>(row.param).attribute + nameOf(std::get<1>(row.param));
                         });

/// Rules that a conversation shows, one after the other.
class VoiceFrames : public FramesTest, public ::testing::WithParamInterface<omci::Format>
{
protected:
    VoiceFrames() : FramesTest(GetParam()) {}

    void SetUp() override { startUp(kBoard); }

    void createAgent(unsigned short instance) { ASSERT_EQ(createByFrame(kSipAgent, instance, Bytes(24)), kSuccess); }
};

TEST_P(VoiceFrames, ImpedenceTakes4AndRefuses5)
{
    EXPECT_EQ(setByFrame(kPotsUni, kFirstPotsPort, 0x0800, 4ULL).result, kSuccess);
    EXPECT_EQ(setByFrame(kPotsUni, kFirstPotsPort, 0x0800, 5ULL).failed, 0x0800U);
    EXPECT_EQ(numberByFrame(kPotsUni, kFirstPotsPort, 0x0800), 4U);
}

TEST_P(VoiceFrames, SecondIdenticalSetOfImpedenceReachesNoHardware)
{
    EXPECT_CALL(hardware, applyPotsUni(kFirstPotsPort, _, _)).Times(1);
    EXPECT_EQ(setByFrame(kPotsUni, kFirstPotsPort, 0x0800, 3ULL).result, kSuccess);
    EXPECT_EQ(setByFrame(kPotsUni, kFirstPotsPort, 0x0800, 3ULL).result, kSuccess);
}

TEST_P(VoiceFrames, NominalFeedVoltageIsAnsweredWithSuccessAndReadsTheOldValue)
{
    const unsigned long long before = numberByFrame(kPotsUni, kFirstPotsPort, 0x0010);
    EXPECT_EQ(setByFrame(kPotsUni, kFirstPotsPort, 0x0010, before + 48).result, kSuccess);
    EXPECT_EQ(numberByFrame(kPotsUni, kFirstPotsPort, 0x0010), before);
}

TEST_P(VoiceFrames, SignallingProtocolRefuses4And254AndTakes255)
{
    EXPECT_EQ(setByFrame(kVoipConfigData, 0, 0x4000, 4ULL).failed, 0x4000U);
    EXPECT_EQ(setByFrame(kVoipConfigData, 0, 0x4000, 255ULL).result, kSuccess);
    EXPECT_EQ(setByFrame(kVoipConfigData, 0, 0x4000, 254ULL).failed, 0x4000U);
    EXPECT_EQ(numberByFrame(kVoipConfigData, 0, 0x4000), 255U);
}

TEST_P(VoiceFrames, SignallingCode7FailsTheSetAndIsProvisionedStill)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(_)).Times(1);
    ASSERT_EQ(createByFrame(kVoipVoiceCtp, 1, {0, 2, 3, 1, 0, 4, 1}), kSuccess);
    Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(_)).Times(1);
    const SetReply reply = setByFrame(kVoipVoiceCtp, 1, 0x1000, 7ULL);
    EXPECT_EQ(reply.result, kAttributesFailed);
    EXPECT_EQ(reply.failed, 0x1000U);
    EXPECT_EQ(numberByFrame(kVoipVoiceCtp, 1, 0x1000), 1U);
}

TEST_P(VoiceFrames, Call1PacketPeriodReads0xFFFFWhateverIsFed)
{
    VoipLineStatusData data{};
    data.VoipCall_1_PacketPeriod = 20;
    data.VoipLineState = 6;
    EXPECT_EQ(OmciManagedEntitiesCore().updateVoipLineStatus(kFirstPotsPort, data), 0);
    EXPECT_EQ(numberByFrame(kVoipLineStatus, kFirstPotsPort, 0x1000), 0xFFFFU);
    EXPECT_EQ(numberByFrame(kVoipLineStatus, kFirstPotsPort, 0x0100), 6U);
}

TEST_P(VoiceFrames, OneAgentOneChangeOneProvisioning)
{
    createAgent(3);
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(1);
    EXPECT_EQ(setByFrame(kSipAgent, 3, 0x8000, 7ULL).result, kSuccess);
    Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    EXPECT_EQ(setByFrame(kSipAgent, 3, 0x8000, 7ULL).result, kSuccess);
    EXPECT_TRUE(log.has(7, "Apply call for SipAgentInstance  other than first Instance should never happen  "
                           "Managed Entity Instance (3)"));
}

TEST_P(VoiceFrames, SecondAgentProvisionsTheFirstWhoseOwnChangesDoNot)
{
    createAgent(3);
    createAgent(4);
    auto* const first = OmciMeSipAgentConfigDataIf::getManagedEntityInstance(3);
    EXPECT_CALL(hardware, provisionSipAgent(first)).Times(1);
    EXPECT_EQ(setByFrame(kSipAgent, 4, 0x8000, 7ULL).result, kSuccess);
    EXPECT_EQ(setByFrame(kSipAgent, 3, 0x8000, 9ULL).result, kSuccess);
    EXPECT_CALL(hardware, removeSipAgent(_)).Times(0);
    EXPECT_EQ(deleteByFrame(kSipAgent, 4), kSuccess);
    Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_CALL(hardware, removeSipAgent(first)).Times(1);
    EXPECT_EQ(deleteByFrame(kSipAgent, 3), kSuccess);
}

TEST_P(VoiceFrames, SoftswitchAloneNeverProvisions)
{
    createAgent(3);
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    EXPECT_EQ(setByFrame(kSipAgent, 3, 0x0020, Bytes{'a', 'b', 'c', 'd'}).result, kSuccess);
}

TEST_P(VoiceFrames, DialPlanFormat4IsStoredAs0AndAnsweredWithSuccess)
{
    ASSERT_EQ(createByFrame(kDialPlan, 1, {0, 9, 0, 1, 0, 2, 2}), kSuccess);
    EXPECT_EQ(numberByFrame(kDialPlan, 1, 0x0800), 2U);
    EXPECT_EQ(setByFrame(kDialPlan, 1, 0x0800, 4ULL).result, kSuccess);
    EXPECT_EQ(numberByFrame(kDialPlan, 1, 0x0800), 0U);
    EXPECT_EQ(numberByFrame(kDialPlan, 1, 0x4000), 0U) << "the created size reads as 0";
}

TEST_P(VoiceFrames, DialPlanRowWithAZeroAtByte5KeepsFiveBytes)
{
    ASSERT_EQ(createByFrame(kDialPlan, 1, Bytes(7)), kSuccess);
    Bytes row(30, 0x31);
    row[5] = 0;
    EXPECT_EQ(setByFrame(kDialPlan, 1, 0x0400, row).result, kSuccess);
    EXPECT_EQ(numberByFrame(kDialPlan, 1, 0x0400), 1U);
    EXPECT_TRUE(log.has(6, "Row(3131313131" + std::string(50, '0') + ")"));
}

TEST_P(VoiceFrames, NewVoiceServiceProfileReadsMinus32768DtmfDigitLevels)
{
    ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(kVoiceServiceProfile, 5), 0);
    EXPECT_EQ(getByFrame(kVoiceServiceProfile, 5, 0x0400), (Bytes{0x80, 0x00}));
    EXPECT_EQ(numberByFrame(kVoiceServiceProfile, 5, 0x8000), 255U);
}

TEST_P(VoiceFrames, TonePatternRowSentTwiceIsThereTwice)
{
    ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(kVoiceServiceProfile, 5), 0);
    const Bytes row(20, 0x11);
    EXPECT_EQ(setByFrame(kVoiceServiceProfile, 5, 0x0040, row).result, kSuccess);
    EXPECT_EQ(setByFrame(kVoiceServiceProfile, 5, 0x0040, row).result, kSuccess);
    EXPECT_EQ(numberByFrame(kVoiceServiceProfile, 5, 0x0040), 2U);
}

TEST_P(VoiceFrames, StaticIpHostWithoutAGatewayProvisionsNothingAndSucceeds)
{
    EXPECT_CALL(hardware, findMacBridgePortByTp(_, _, _)).Times(0);
    EXPECT_EQ(setByFrame(kIpHost, 0, 0x1800, {10, 0, 0, 9, 255, 255, 255, 0}).result, kSuccess);
}

TEST_P(VoiceFrames, DynamicIpHostWithoutAddressesProvisionsItsBridgePort)
{
    constexpr unsigned short bridgePortClass = 47;
    adapter(bridgePortClass);
    auto* const port = OmciMeMacBridgePortConfigurationDataIf::createManagedEntityInstance(0x0301, true);
    EXPECT_CALL(hardware, findMacBridgePortByTp(4, 0, _)).WillOnce(DoAll(SetArgPointee<2>(port), ::testing::Return(0)));
    EXPECT_CALL(hardware, provisionBridgePort(port)).Times(1);
    EXPECT_EQ(setByFrame(kIpHost, 0, 0x8000, 1ULL).result, kSuccess);
}

TEST_P(VoiceFrames, IpHostWithoutABridgePortFailsTheSet)
{
    EXPECT_CALL(hardware, provisionBridgePort(_)).Times(0);
    const unsigned long long sync = mibDataSync();
    EXPECT_EQ(setByFrame(kIpHost, 0, 0x8000, 1ULL).result, kProcessingError);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data not found"));
    EXPECT_EQ(mibDataSync(), sync);
}

INSTANTIATE_TEST_SUITE_P(Formats, VoiceFrames, ::testing::Values(omci::Format::Baseline, omci::Format::Extended),
                         [](const auto& row) { return nameOf(row.param); });

}  // namespace
