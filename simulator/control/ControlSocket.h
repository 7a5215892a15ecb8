#ifndef SIMULATOR_CONTROL_CONTROL_SOCKET_H
#define SIMULATOR_CONTROL_CONTROL_SOCKET_H

#include <functional>
#include <map>
#include <string>

#include "EventLoop.h"

/// A Unix stream socket that takes one line and gives one line back, for any number of clients at once.
class ControlSocket
{
public:
    /// The longest line that is taken, in octets.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

    /// Answers one line; both come without their end.
    using Handler = std::function<std::string(const std::string& line)>;

    /// Listens; a socket file that nobody listens on any more is replaced. std::runtime_error with the reason when that
    /// is not possible. The loop outlives the object.
    ControlSocket(EventLoop& loop, const std::string& path, Handler handler);
    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

private:
    struct Client
    {
        Descriptor descriptor;
        std::string input;
        std::string output;
        /// The rest of a line that is too long is thrown away.
        bool skipsLine = false;
        /// Nothing more comes; goes when all answers are out.
        bool isEnding = false;
    };

    void accept();
    void read(int descriptor);
    void takeLines(Client& client);
    void takeLine(Client& client, std::string line);
    void write(int descriptor);
    void close(int descriptor);

    EventLoop& m_Loop;
    std::string m_Path;
    Handler m_Handler;
    Descriptor m_Listener;
    std::map<int, Client> m_Clients;
};

#endif
