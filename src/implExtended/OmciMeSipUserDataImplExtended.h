#ifndef NRVK_IMPL_EXTENDED_OMCIMESIPUSERDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMESIPUSERDATAIMPLEXTENDED_H

#include <string>

#include "impl/OmciMeSipUserDataImpl.h"

/// SIP user data (G.988 9.9.2, class 153): its values stay in the store; only its delete reaches the hardware layer.
class OmciMeSipUserDataImplExtended : public OmciMeSipUserDataImpl
{
public:
    /// The values as they were last set, in attribute order. The display name ends at its first zero byte.
    struct LastSet
    {
        unsigned short SipAgentPointer;
        unsigned short UserPartAor;
        std::string SipDisplayName;
        unsigned short UsernameAndPassword;
        unsigned short VoicemailServerSipUri;
        unsigned int VoicemailSubscriptionExpirationTime;
        unsigned short NetworkDialPlanPointer;
        unsigned short ApplicationServicesProfilePointer;
        unsigned short FeatureCodePointer;
        unsigned short PptpPointer;
        unsigned char ReleaseTimer;
        unsigned char ReceiverOffHookTimer;
    };

    OmciMeSipUserDataImplExtended(unsigned short instance, bool createdByOlt);

    int setSipAgentPointer(unsigned short value) override;
    int setUserPartAor(unsigned short value) override;
    int setSipDisplayName(const unsigned char* value) override;
    int setUsernameAndPassword(unsigned short value) override;
    int setVoicemailServerSipUri(unsigned short value) override;
    int setVoicemailSubscriptionExpirationTime(unsigned int value) override;
    int setNetworkDialPlanPointer(unsigned short value) override;
    int setApplicationServicesProfilePointer(unsigned short value) override;
    int setFeatureCodePointer(unsigned short value) override;
    int setPptpPointer(unsigned short value) override;
    int setReleaseTimer(unsigned char value) override;
    int setReceiverOffHookTimer(unsigned char value) override;

    const LastSet& lastSet() const { return m_LastSet; }

    /// Deliberate: a SIP user keeps no alarms; the caller's bitmap is left as it is.
    void getAlarmsBitmap(std::bitset<223>& bitmap) const override;
    /// Deliberate: does nothing, whatever the alarm number.
    void updateAlarmsBitmap(unsigned char alarmNumber, bool state) override;

    /// Calls no hardware; always 0.
    int applyConfigurationToHardwareForSet() override;
    /// removeSipUser; always 0.
    int eraseConfigurationFromHardware() override;

private:
    LastSet m_LastSet;
};

#endif
