#ifndef NRVK_ADAPTER_EXTENDED_OMCI_ME_ONU_DATA_ADAPTER_EXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCI_ME_ONU_DATA_ADAPTER_EXTENDED_H

#include <atomic>
#include <csignal>
#include <memory>

#include "NorvikTimer.h"
#include "adapter/OmciMeOnuDataAdapter.h"
#include "adapterExtended/MessageSnapshot.h"

/// ONU data (G.988 9.1.3, class 2): the MIB-wide commands.
///
/// The host walks the MIB; here are the snapshots that its walk yields, their replay, the supervision timers, MIB reset
/// and the MIB data sync counter. Commands come on the OMCI thread; timer handlers touch only their flag.
class OmciMeOnuDataAdapterExtended : public OmciMeOnuDataAdapter
{
public:
    OmciMeOnuDataAdapterExtended();
    ~OmciMeOnuDataAdapterExtended() override;

    /// Makes the timers, drops both snapshots and clears both flags.
    void init();

    int getAllAlarms(OmciFrame* frame) override;
    int getAllAlarmsNext(OmciFrame* frame) const override;
    int getMibUploadMessage(unsigned short sequenceNumber, unsigned char* buffer,
                            unsigned short* length) const override;
    int mibReset() const override;
    int mibReset(OmciFrame* frame) const override;
    int mibUpload(OmciFrame* frame) override;
    int incrementMibDataSyncAttribute() override;
    int mibUploadNext(OmciFrame* frame) const override;
    int setGetAllAlarmsMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                               unsigned short length) override;
    int setMibUploadMessage(unsigned short sequenceNumber, const unsigned char* buffer, unsigned short length) override;

    int getAllAlarmsMessage(unsigned short sequenceNumber, unsigned char* buffer, unsigned short* length) const;
    /// Takes the MIB upload snapshot again, with no reply, notification or timer.
    int invokeMibUploadExec(OmciFrame* frame, unsigned short& count);

    static void getAllAlarmsTimerHandler(sigval argument);
    static void mibUploadTimerHandler(sigval argument);

    /// 1 from an accepted command until its timer expires; for the host.
    static std::atomic<unsigned char> m_GetAllAlarmsInProgress;
    static std::atomic<unsigned char> m_MibUploadInProgress;

private:
    static void resetMib();

    std::unique_ptr<NorvikTimer> m_GetAllAlarmsTimer;
    std::unique_ptr<NorvikTimer> m_MibUploadTimer;

    static nrvk::MessageSnapshot m_GetAllAlarmsMessagesMap;
    static nrvk::MessageSnapshot m_MibUploadMessagesMap;
};

#endif
