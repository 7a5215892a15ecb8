#include "ServiceManager.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

/// Of a path, or of an abstract name behind '@'; 0 for what is neither.
socklen_t fillAddress(sockaddr_un& address, std::string_view name)
{
    const bool isAbstract = name.front() == '@';
    if ((!isAbstract && name.front() != '/') || name.size() < 2 || name.size() >= sizeof address.sun_path) {
        return 0;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    if (isAbstract) {
        address.sun_path[0] = '\0';
    }
    // An abstract name has no end but its length.
    return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + (isAbstract ? 0 : 1));
}

/// One datagram, as sd_notify(3) describes it: the manager's library would bring six others into memory for it. Without
/// a manager, or with one that has gone, there is nobody to tell, which is no failure.
void tell(std::string_view state)
{
    const char* name = std::getenv("NOTIFY_SOCKET");
    sockaddr_un address{};
    const socklen_t length = name != nullptr && *name != '\0' ? fillAddress(address, name) : 0;
    if (length == 0) {
        return;
    }
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (socket < 0) {
        return;
    }
    ::sendto(socket, state.data(), state.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address), length);
    ::close(socket);
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
