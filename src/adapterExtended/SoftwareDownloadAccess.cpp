#include "SoftwareDownloadAccess.h"

#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"

namespace nrvk {

int updateSoftwareDownloadStatus(unsigned short status)
{
    return OmciMeSoftwareImageAdapterExtended::updateSoftwareDownloadStatus(status);
}

unsigned short getSoftwareDownloadStatus()
{
    return OmciMeSoftwareImageAdapterExtended::getSoftwareDownloadStatus();
}

void updateDownloadStartedFlag(unsigned char started)
{
    OmciMeSoftwareImageAdapterExtended::updateDownloadStartedFlag(started);
}

void forgetSoftwareDownload()
{
    OmciMeSoftwareImageAdapterExtended::forgetDownload();
}

}  // namespace nrvk
