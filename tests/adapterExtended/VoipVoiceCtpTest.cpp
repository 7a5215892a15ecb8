// VoIP voice CTP: the moment at which a line reaches the hardware layer.
#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeVoipVoiceCTPIf.h"

using ::testing::_;

namespace {

constexpr unsigned short kVoipVoiceCtp = 139;
constexpr unsigned short kSignallingCode = 0x1000;

class VoipVoiceCtp : public LibraryTest
{
protected:
    static constexpr unsigned short kCtp = 0x0003;

    void SetUp() override
    {
        ASSERT_EQ(create(kVoipVoiceCtp, kCtp), 0);
        ctp = OmciMeVoipVoiceCTPIf::getManagedEntityInstance(kCtp);
        log.clear();
    }

    OmciMeVoipVoiceCTPIf* ctp = nullptr;
};

TEST_F(VoipVoiceCtp, SignallingCodeHandsTheFilledEntityOver)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(ctp)).WillOnce([](OmciMeVoipVoiceCTPIf* entity) {
        EXPECT_EQ(entity->getUserProtocolPointer(OMCI_ACTION_GET), 11);
        EXPECT_EQ(entity->getPptpPointer(OMCI_ACTION_GET), 0x0101);
        EXPECT_EQ(entity->getVoipMediaProfilePointer(OMCI_ACTION_GET), 13);
        EXPECT_EQ(entity->getSignallingCode(OMCI_ACTION_GET), 1);
        return -1;
    });
    EXPECT_EQ(set(kVoipVoiceCtp, kCtp, 0x8000, 11), 0);
    EXPECT_EQ(set(kVoipVoiceCtp, kCtp, 0x4000, 0x0101), 0);
    EXPECT_EQ(set(kVoipVoiceCtp, kCtp, 0x2000, 13), 0);
    EXPECT_EQ(set(kVoipVoiceCtp, kCtp, kSignallingCode, 1), 0) << "the hardware's result is ignored";
    EXPECT_TRUE(log.has(6, "VOIP_VOICE_CTP : Instance(3); LAST ATTRIBUTE : SIGNALLING CODE : Layer2Provisioning"));
}

TEST_F(VoipVoiceCtp, RefusedSignallingCodeIsProvisionedStill)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(ctp)).Times(1);
    EXPECT_EQ(set(kVoipVoiceCtp, kCtp, kSignallingCode, 7), -1);
    EXPECT_EQ(ctp->getSignallingCode(OMCI_ACTION_GET), 0);
    EXPECT_TRUE(log.has(6, "Invalid SIGNALLING CODE (7)"));
}

TEST_F(VoipVoiceCtp, OtherAttributesAloneReachNoHardware)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(_)).Times(0);
    for (const unsigned int mask : {0x8000U, 0x4000U, 0x2000U}) {
        EXPECT_EQ(set(kVoipVoiceCtp, kCtp, static_cast<unsigned short>(mask), 1), 0);
    }
    EXPECT_EQ(adapter(kVoipVoiceCtp).applyConfigurationToHardwareForSet(kCtp), 0);
}

TEST_F(VoipVoiceCtp, MissingInstanceProvisionsNothing)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(_)).Times(0);
    EXPECT_EQ(set(kVoipVoiceCtp, 4, kSignallingCode, 1), -1);
    EXPECT_TRUE(log.has(3, "Instance(4) not found"));
}

TEST_F(VoipVoiceCtp, NullDefinitionIsRefused)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(_)).Times(0);
    const unsigned char code = 1;
    EXPECT_EQ(adapter(kVoipVoiceCtp).setAttribute(kCtp, nullptr, &code), -1);
}

TEST_F(VoipVoiceCtp, NullBufferOfTheSignallingCodeIsRefusedAndProvisionedStill)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(ctp)).Times(1);
    const attributeDefinition definition = definitionOf(kVoipVoiceCtp, kSignallingCode);
    EXPECT_EQ(adapter(kVoipVoiceCtp).setAttribute(kCtp, &definition, nullptr), -1);
}

TEST_F(VoipVoiceCtp, MissingHardwareIsLoggedAndAnsweredWithSuccess)
{
    removeHardware();
    EXPECT_EQ(set(kVoipVoiceCtp, kCtp, kSignallingCode, 6), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(ctp->getSignallingCode(OMCI_ACTION_GET), 6);
}

TEST_F(VoipVoiceCtp, CreateAndDeleteAlwaysSucceedAndDeprovisionNothing)
{
    EXPECT_CALL(hardware, provisionVoipVoiceCtp(_)).Times(0);
    EXPECT_CALL(hardware, removeSipUser(_)).Times(0);
    EXPECT_CALL(hardware, removeVoipMediaProfile(_)).Times(0);
    EXPECT_EQ(create(kVoipVoiceCtp, kCtp), 0);
    EXPECT_EQ(OmciMeVoipVoiceCTPIf::getManagedEntityInstance(kCtp), ctp);
    EXPECT_EQ(adapter(kVoipVoiceCtp).deleteManagedEntityInstance(kCtp, true), 0);
    EXPECT_EQ(OmciMeVoipVoiceCTPIf::getManagedEntityInstance(kCtp), nullptr);
    EXPECT_EQ(adapter(kVoipVoiceCtp).deleteManagedEntityInstance(kCtp, true), 0);
    EXPECT_TRUE(log.has(3, "Failed to delete instance(3)"));
}

}  // namespace
