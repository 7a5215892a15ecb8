// A small host process: one OMCI message per datagram, the thin host's dispatcher, and a chip.
#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "ChipHardware.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "host/Dispatcher.h"
#include "host/HostMib.h"
#include "host/Notifier.h"

namespace {

/// The OMCI channel; a product has its GPON driver here.
class Channel
{
public:
    explicit Channel(unsigned short port) : m_Socket(socket(AF_INET, SOCK_DGRAM, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(port);
        socklen_t size = sizeof address;
        if (bind(m_Socket, reinterpret_cast<sockaddr*>(&address), size) != 0) {
            std::perror("bind");
            std::exit(1);
        }
        getsockname(m_Socket, reinterpret_cast<sockaddr*>(&address), &size);
        std::printf("listening on 127.0.0.1:%u\n", unsigned{ntohs(address.sin_port)});
    }
    ~Channel() { close(m_Socket); }
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    std::size_t receive(std::array<unsigned char, 2048>& frame)
    {
        socklen_t size = sizeof m_Peer;
        const ssize_t length =
            recvfrom(m_Socket, frame.data(), frame.size(), 0, reinterpret_cast<sockaddr*>(&m_Peer), &size);
        return length > 0 ? static_cast<std::size_t>(length) : 0;
    }
    void send(const unsigned char* frame, std::size_t length) const
    {
        sendto(m_Socket, frame, length, 0, reinterpret_cast<const sockaddr*>(&m_Peer), sizeof m_Peer);
    }

private:
    int m_Socket;
    sockaddr_in m_Peer{};
};

/// T-CONTs, Ethernet UNIs, a place not read, video UNIs and ANIs, queues per T-CONT and per UNI, POTS ports.
constexpr BoardSpecificConfig kBoard = {8, ChipHardware::kPorts, 0, 0, 0, 8, 8, 0};

}  // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    Channel channel(static_cast<unsigned short>(argc > 1 ? std::atoi(argv[1]) : 0));
    omci::Notifier notifier([&](const unsigned char* frame, std::size_t length) { channel.send(frame, length); },
                            omci::Mic());

    // The library: its start-up MIB for this board, and the chip below it.
    OmciManagedEntitiesCore core(kBoard);
    ChipHardware chip;
    chip.setCore(&core);
    OmciManagedEntityRegistrar& registrar = *OmciManagedEntityRegistrar::getInstance();
    registrar.setOmciHardwareIfc(&chip);
    std::vector<StartupConfigManagedEntity> classes;
    core.getManagedEntitiesCore(classes);
    registrar.setSupportedManagedEntities(classes);
    registrar.registerSupportedManagedEntities();

    // What the library leaves to its host: the ports, and the classes that the OLT alone creates.
    omci::HostMib mib(registrar, core);
    mib.registerRemainingClasses();
    mib.createEthernetUnis(kBoard.numberOfEthernetUnis);

    omci::Dispatcher dispatcher(omci::Mic(), &notifier);
    std::array<unsigned char, 2048> frame;
    for (;;) {
        const std::size_t length = channel.receive(frame);
        const omci::Dispatcher::Reply reply = dispatcher.handle(frame.data(), length);
        if (reply.length != 0) {
            channel.send(reply.data, reply.length);
        }
    }
}
