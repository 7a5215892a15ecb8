// Activate and commit: changes of the boot selection, which the board's start script makes.
#include "OmciFrame.h"
#include "OmciMeSoftwareImageIf.h"
#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"
#include "impl/Log.h"
#include "impl/Shell.h"
#include "impl/SoftwareImageDescriptions.h"

namespace {

constexpr const char* kSelectOtherImage = "/etc/init.d/rcBSP -select_next_app";
constexpr const char* kSelectRunningImage = "/etc/init.d/rcBSP -select_running_app";

void setIsCommitted(unsigned short instance, unsigned char committed)
{
    if (OmciMeSoftwareImageIf* image = OmciMeSoftwareImageIf::getManagedEntityInstance(instance)) {
        image->setIsCommitted(committed);
    }
}

}  // namespace

int OmciMeSoftwareImageAdapterExtended::activateSoftwareImage(OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const Snapshot now = takeSnapshot();
    if (now.inProgress != 0) {
        reply(*frame, 6);
        NRVK_LOG(3, "Command rejected; download is still in progress");
        return -1;
    }
    NRVK_LOG(6, "Image to activate(%hhu)", now.instance);
    // Decided before the instance is looked at. Deliberate: from here on only a restart clears the state.
    reply(*frame, 0);
    updateSoftwareDownloadStatus(STATUS_ACTIVATED);
    try {
        return selectImage(frame->getManagedEntityInstance());
    } catch (...) {
        // The OLT hears of an error: it may try again, or download another image.
        const Lock lock(m_Mutex);
        storeStatus(now.status);
        throw;
    }
}

int OmciMeSoftwareImageAdapterExtended::selectImage(unsigned short instance)
{
    const OmciMeSoftwareImageIf* image = OmciMeSoftwareImageIf::getManagedEntityInstance(instance);
    if (image == nullptr) {
        NRVK_LOG(3, "Instance(%hhu) for Software Image not found", instance);
        return -1;
    }
    if (image->getIsActive(OMCI_ACTION_GET) == 0) {
        nrvk::runCommand(kSelectOtherImage);
        NRVK_LOG(4, "System call(%s)", kSelectOtherImage);
    } else {
        NRVK_LOG(4, "Image(%d) is already active, reboot required by ITU-G988", instance);
    }
    return 0;
}

int OmciMeSoftwareImageAdapterExtended::commitSoftware(OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    if (takeSnapshot().inProgress != 0) {
        reply(*frame, 6);
        NRVK_LOG(5, "System busy, download still in progress");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    NRVK_LOG(5, "Committing image %hu", instance);
    NRVK_LOG(4, "System call(%s)", kSelectRunningImage);
    nrvk::runCommand(kSelectRunningImage);
    // What the file says overwrites this below; it stands when the file can't be read.
    setIsCommitted(instance, 1);
    setIsCommitted(instance == 0 ? 1 : 0, 0);
    reply(*frame, 0);
    updateSoftwareDownloadStatus(STATUS_COMMITTED);
    NRVK_LOG(3, "SOFTWARE_UPGRADE: Commit completed on image %u", instance);
    nrvk::readSoftwareImageDescriptions();
    return 0;
}
