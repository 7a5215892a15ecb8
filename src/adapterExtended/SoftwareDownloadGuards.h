#ifndef NRVK_ADAPTER_EXTENDED_SOFTWARE_DOWNLOAD_GUARDS_H
#define NRVK_ADAPTER_EXTENDED_SOFTWARE_DOWNLOAD_GUARDS_H

#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"

/// Ends the use of the image, however the command that took it ends: host and hardware may throw.
class OmciMeSoftwareImageAdapterExtended::ImageUse
{
public:
    ImageUse() = default;
    ~ImageUse()
    {
        const Lock lock(m_Mutex);
        if (!m_IsHandedOver) {
            m_IsImageInUse = 0;
        }
    }
    ImageUse(const ImageUse&) = delete;
    ImageUse& operator=(const ImageUse&) = delete;

    /// The writer ends it.
    void handOver() { m_IsHandedOver = true; }
    bool isHandedOver() const { return m_IsHandedOver; }

private:
    bool m_IsHandedOver = false;
};

/// Holds the next writer back as long as it lives.
class OmciMeSoftwareImageAdapterExtended::WriterHold
{
public:
    WriterHold()
    {
        const Lock lock(m_Mutex);
        m_IsWriterHeld = 1;
    }
    ~WriterHold()
    {
        const Lock lock(m_Mutex);
        m_IsWriterHeld = 0;
        m_WriterChanged.notify_all();
    }
    WriterHold(const WriterHold&) = delete;
    WriterHold& operator=(const WriterHold&) = delete;
};

/// Stores a status when it goes.
class OmciMeSoftwareImageAdapterExtended::StatusToStore
{
public:
    explicit StatusToStore(unsigned char status) : m_Status(status) {}
    ~StatusToStore()
    {
        const Lock lock(m_Mutex);
        storeStatus(m_Status);
    }
    StatusToStore(const StatusToStore&) = delete;
    StatusToStore& operator=(const StatusToStore&) = delete;

private:
    unsigned char m_Status;
};

#endif
