#ifndef NRVK_IMPL_EXTENDED_PERFORMANCE_MONITORING_H
#define NRVK_IMPL_EXTENDED_PERFORMANCE_MONITORING_H

#include "OmciHardwareIfc.h"
#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"
#include "impl/Log.h"
#include "implExtended/LoggedHooks.h"

/// The pattern of the PM entities: a store of counters that the hardware layer is asked to bring up to date before a
/// read. Nothing here counts, keeps intervals or compares thresholds. A class is a stack of the pieces below.
namespace nrvk {

/// A PM entity with nothing beyond its store. Its thresholds and its interval end time are stored values.
template <typename Impl>
using PmHistory = LoggedHooks<Impl, -1>;

/// Adds the instance to the registrar's picture with the start-up table's values, so that counter updates find it. A
/// class without a row in that table is not added. Yields the instance.
unsigned short enterIntoPicture(unsigned short classId, unsigned short instance);

/// Expands the class's start-up row for the instance once more and drops the result.
void lookUpDefaultConfig(unsigned short classId, unsigned short instance);

/// A PM entity that is fed by way of the registrar: it enters itself at construction, and stays entered.
template <typename Impl>
class RegisteredPm : public PmHistory<Impl>
{
public:
    RegisteredPm(unsigned short instance, bool createdByOlt)
        : PmHistory<Impl>(enterIntoPicture(Impl::m_Description.classId, instance), createdByOlt)
    {}
};

/// The interval end time is the counter that all PM entities share, for every action.
template <typename Base>
class SharedIntervalEndTime : public Base
{
public:
    using Base::Base;

    unsigned char getIntervalEndTime(EnumOmciAction /*action*/) const override
    {
        return OmciMeEthernetFrameExtendedPMCommonImplExtended::getIntervalCounter();
    }
};

/// The interval end time is the shared counter for a Get; get current data, and any other action, reads 0, as its
/// interval has not ended.
template <typename Base>
class FinishedIntervalEndTime : public Base
{
public:
    using Base::Base;

    unsigned char getIntervalEndTime(EnumOmciAction action) const override
    {
        return action == OMCI_ACTION_GET ? OmciMeEthernetFrameExtendedPMCommonImplExtended::getIntervalCounter()
                                         : static_cast<unsigned char>(0);
    }
};

/// PM of the voice service. Deliberate: a Set of the thresholds succeeds and is dropped, for OLTs that set them
/// although no voice threshold is ever compared.
template <typename Impl>
class VoicePm : public LoggedHooks<Impl, 0>
{
public:
    using LoggedHooks<Impl, 0>::LoggedHooks;

    int setThresholdData_1_2_Id(unsigned short value) override
    {
        NRVK_LOG(6, "Instance(%hu); Threshold data(%hu)", this->m_ManagedEntityInstance, value);
        return 0;
    }
};

/// A refresh of the hardware layer that takes the OMCI action as it came.
using RefreshByAction = int (OmciHardwareIfc::*)(EnumOmciAction action, unsigned short instance);

/// Logs "Detected NULL pointer" and calls nothing when there is no hardware layer.
void refreshByAction(RefreshByAction operation, EnumOmciAction action, unsigned short instance);

/// PM of a TWDM channel: `Refresh` is called at each read of a counter.
template <typename Impl, RefreshByAction Refresh>
class TwdmPm : public RegisteredPm<Impl>
{
public:
    using RegisteredPm<Impl>::RegisteredPm;

protected:
    void refresh(EnumOmciAction action) const { refreshByAction(Refresh, action, this->m_ManagedEntityInstance); }
};

}  // namespace nrvk

#endif
