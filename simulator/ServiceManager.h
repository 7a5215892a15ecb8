#ifndef SIMULATOR_SERVICE_MANAGER_H
#define SIMULATOR_SERVICE_MANAGER_H

/// What the service manager is told when it started the program (NOTIFY_SOCKET, sd_notify(3)); nothing happens
/// otherwise.
namespace service_manager {

/// The ONU answers from now on.
void tellReady();
/// It is about to end.
void tellStopping();

}  // namespace service_manager

#endif
