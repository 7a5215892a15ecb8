#ifndef ONT_OMCI_MANAGED_ENTITY_SOFTWARE_DOWNLOAD_ACCESS_H
#define ONT_OMCI_MANAGED_ENTITY_SOFTWARE_DOWNLOAD_ACCESS_H

#include "Export.h"

/// The state of the software download (G.988 9.1.4, class 7), for the host. Any thread, where nothing else is said.
namespace nrvk {

/// Puts the download into a state, 0 to 15, with what goes with it: the guard against a second download and the
/// notification of the hardware layer. -1 for any other number, and nothing changes.
NRVK_EXPORT int updateSoftwareDownloadStatus(unsigned short status);
/// The state that the download is in, 0 to 15.
NRVK_EXPORT unsigned short getSoftwareDownloadStatus();
/// Whether the hardware layer has been told of the transfer.
NRVK_EXPORT void updateDownloadStartedFlag(unsigned char started);
/// For a host that restarts the ONU without ending its process: waits for an image that is being written, gives a
/// download up and puts all of the state, the depth of the receive FIFO too, back to that of a new process. On the OMCI
/// thread.
NRVK_EXPORT void forgetSoftwareDownload();

}  // namespace nrvk

#endif
