// The operations that the host's base class serves, unless a class's AdapterExtended takes them.
#include "adapter/ManagedEntityAdapter.h"

int ManagedEntityAdapter::activateSoftwareImage(OmciFrame* frame)
{
    return OmciMe::activateSoftwareImage(frame);
}

int ManagedEntityAdapter::commitSoftware(OmciFrame* frame)
{
    return OmciMe::commitSoftware(frame);
}

int ManagedEntityAdapter::downloadSection(OmciFrame* frame)
{
    return OmciMe::downloadSection(frame);
}

int ManagedEntityAdapter::endSoftwareDownload(OmciFrame* frame)
{
    return OmciMe::endSoftwareDownload(frame);
}

int ManagedEntityAdapter::getAllAlarms(OmciFrame* frame)
{
    return OmciMe::getAllAlarms(frame);
}

int ManagedEntityAdapter::getAllAlarmsNext(OmciFrame* frame) const
{
    return OmciMe::getAllAlarmsNext(frame);
}

int ManagedEntityAdapter::getCurrentData(OmciFrame* frame) const
{
    return OmciMe::getCurrentData(frame);
}

int ManagedEntityAdapter::getMibUploadMessage(unsigned short sequenceNumber, unsigned char* buffer,
                                              unsigned short* length) const
{
    return OmciMe::getMibUploadMessage(sequenceNumber, buffer, length);
}

int ManagedEntityAdapter::getNext(OmciFrame* frame) const
{
    return OmciMe::getNext(frame);
}

int ManagedEntityAdapter::mibReset() const
{
    return OmciMe::mibReset();
}

int ManagedEntityAdapter::mibReset(OmciFrame* frame) const
{
    return OmciMe::mibReset(frame);
}

int ManagedEntityAdapter::mibUpload(OmciFrame* frame)
{
    return OmciMe::mibUpload(frame);
}

int ManagedEntityAdapter::incrementMibDataSyncAttribute()
{
    return OmciMe::incrementMibDataSyncAttribute();
}

int ManagedEntityAdapter::mibUploadNext(OmciFrame* frame) const
{
    return OmciMe::mibUploadNext(frame);
}

int ManagedEntityAdapter::reboot(OmciFrame* frame) const
{
    return OmciMe::reboot(frame);
}

int ManagedEntityAdapter::setGetAllAlarmsMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                                                 unsigned short length)
{
    return OmciMe::setGetAllAlarmsMessage(sequenceNumber, buffer, length);
}

int ManagedEntityAdapter::setMibUploadMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                                              unsigned short length)
{
    return OmciMe::setMibUploadMessage(sequenceNumber, buffer, length);
}

void ManagedEntityAdapter::showSoftwareDownloadStatus(FILE* file)
{
    OmciMe::showSoftwareDownloadStatus(file);
}

int ManagedEntityAdapter::startSoftwareDownload(OmciFrame* frame)
{
    return OmciMe::startSoftwareDownload(frame);
}

int ManagedEntityAdapter::synchronizeTime(OmciFrame* frame) const
{
    return OmciMe::synchronizeTime(frame);
}

void ManagedEntityAdapter::updateRxOmciFifoDepthInBytes(unsigned int depth)
{
    OmciMe::updateRxOmciFifoDepthInBytes(depth);
}

int ManagedEntityAdapter::test(OmciFrame* frame) const
{
    return OmciMe::test(frame);
}
