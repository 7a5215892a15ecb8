#include "implExtended/OmciMeSipUserDataImplExtended.h"

#include <algorithm>

#include "impl/Hardware.h"
#include "impl/Log.h"

OmciMeSipUserDataImplExtended::OmciMeSipUserDataImplExtended(unsigned short instance, bool createdByOlt)
    : OmciMeSipUserDataImpl(instance, createdByOlt), m_LastSet{m_SipAgentPointer,
                                                               m_UserPartAor,
                                                               {},
                                                               m_UsernameAndPassword,
                                                               m_VoicemailServerSipUri,
                                                               m_VoicemailSubscriptionExpirationTime,
                                                               m_NetworkDialPlanPointer,
                                                               m_ApplicationServicesProfilePointer,
                                                               m_FeatureCodePointer,
                                                               m_PptpPointer,
                                                               m_ReleaseTimer,
                                                               m_ReceiverOffHookTimer}
{
    // A set must not allocate.
    m_LastSet.SipDisplayName.reserve(m_SipDisplayName.size());
}

int OmciMeSipUserDataImplExtended::setSipAgentPointer(unsigned short value)
{
    m_LastSet.SipAgentPointer = value;
    return OmciMeSipUserDataImpl::setSipAgentPointer(value);
}

int OmciMeSipUserDataImplExtended::setUserPartAor(unsigned short value)
{
    m_LastSet.UserPartAor = value;
    return OmciMeSipUserDataImpl::setUserPartAor(value);
}

int OmciMeSipUserDataImplExtended::setSipDisplayName(const unsigned char* value)
{
    m_LastSet.SipDisplayName.assign(value, std::find(value, value + m_SipDisplayName.size(), '\0'));
    return OmciMeSipUserDataImpl::setSipDisplayName(value);
}

int OmciMeSipUserDataImplExtended::setUsernameAndPassword(unsigned short value)
{
    m_LastSet.UsernameAndPassword = value;
    return OmciMeSipUserDataImpl::setUsernameAndPassword(value);
}

int OmciMeSipUserDataImplExtended::setVoicemailServerSipUri(unsigned short value)
{
    m_LastSet.VoicemailServerSipUri = value;
    return OmciMeSipUserDataImpl::setVoicemailServerSipUri(value);
}

int OmciMeSipUserDataImplExtended::setVoicemailSubscriptionExpirationTime(unsigned int value)
{
    m_LastSet.VoicemailSubscriptionExpirationTime = value;
    return OmciMeSipUserDataImpl::setVoicemailSubscriptionExpirationTime(value);
}

int OmciMeSipUserDataImplExtended::setNetworkDialPlanPointer(unsigned short value)
{
    m_LastSet.NetworkDialPlanPointer = value;
    return OmciMeSipUserDataImpl::setNetworkDialPlanPointer(value);
}

int OmciMeSipUserDataImplExtended::setApplicationServicesProfilePointer(unsigned short value)
{
    m_LastSet.ApplicationServicesProfilePointer = value;
    return OmciMeSipUserDataImpl::setApplicationServicesProfilePointer(value);
}

int OmciMeSipUserDataImplExtended::setFeatureCodePointer(unsigned short value)
{
    m_LastSet.FeatureCodePointer = value;
    return OmciMeSipUserDataImpl::setFeatureCodePointer(value);
}

int OmciMeSipUserDataImplExtended::setPptpPointer(unsigned short value)
{
    m_LastSet.PptpPointer = value;
    return OmciMeSipUserDataImpl::setPptpPointer(value);
}

int OmciMeSipUserDataImplExtended::setReleaseTimer(unsigned char value)
{
    m_LastSet.ReleaseTimer = value;
    return OmciMeSipUserDataImpl::setReleaseTimer(value);
}

int OmciMeSipUserDataImplExtended::setReceiverOffHookTimer(unsigned char value)
{
    m_LastSet.ReceiverOffHookTimer = value;
    return OmciMeSipUserDataImpl::setReceiverOffHookTimer(value);
}

void OmciMeSipUserDataImplExtended::getAlarmsBitmap(std::bitset<223>& /*bitmap*/) const
{}

void OmciMeSipUserDataImplExtended::updateAlarmsBitmap(unsigned char /*alarmNumber*/, bool /*state*/)
{}

int OmciMeSipUserDataImplExtended::applyConfigurationToHardwareForSet()
{
    NRVK_LOG(6, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    return 0;
}

int OmciMeSipUserDataImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(4, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    OmciMeSipUserDataIf* user = OmciMeSipUserDataIf::getManagedEntityInstance(m_ManagedEntityInstance);
    if (user == nullptr) {
        return 0;
    }
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->removeSipUser(user);
    }
    return 0;
}
