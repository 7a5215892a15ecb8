#include "ServiceManager.h"

#ifdef NRVK_HAVE_SYSTEMD
#include <systemd/sd-daemon.h>
#endif

namespace {

void tell([[maybe_unused]] const char* state)
{
#ifdef NRVK_HAVE_SYSTEMD
    // Without a manager there is nobody to tell, which is no failure.
    sd_notify(0, state);
#endif
}

}  // namespace

void service_manager::tellReady()
{
    tell("READY=1");
}

void service_manager::tellStopping()
{
    tell("STOPPING=1");
}
