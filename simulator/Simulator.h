#ifndef SIMULATOR_SIMULATOR_H
#define SIMULATOR_SIMULATOR_H

#include <memory>
#include <optional>
#include <string>

#include "EventLoop.h"
#include "JsonLog.h"
#include "LibraryLog.h"
#include "LoopTimer.h"
#include "Onu.h"
#include "Options.h"
#include "UdpChannel.h"
#include "capture/CaptureWriter.h"
#include "control/ControlRequests.h"
#include "control/ControlSocket.h"
#include "pm/PmTimer.h"

/// The running program: the ONU, its sockets and its logs. One thread runs everything that touches the library.
class Simulator
{
public:
    /// Brings everything up. Throws what is derived from std::exception, with the reason, when that is not possible.
    explicit Simulator(const Options& options);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    std::string listenAddress() const { return m_Channel->localAddress(); }
    /// Until SIGINT or SIGTERM, which every thread must have blocked.
    void run();

private:
    void openLogs(const Options& options);
    void watchSignals();
    void watchHardwareWork(const Options& options);
    void handleFrame(const std::uint8_t* bytes, std::size_t length, std::uint64_t peer);
    void sendUnasked(const std::uint8_t* frame, std::size_t length);
    std::string answerRequest(const std::string& line);
    int runCommand(const char* command);
    void flushLogs();

    EventLoop m_Loop;
    RunningNumber m_Number;
    JsonLog m_HardwareLog;
    JsonLog m_LibraryLogFile;
    HardwareRecorder m_Recorder{m_HardwareLog, m_Number};
    std::optional<LibraryLog> m_LibraryLog;
    omci::CaptureWriter m_Capture;
    Descriptor m_Signals;
    std::unique_ptr<Onu> m_Onu;
    std::unique_ptr<ControlRequests> m_Requests;
    std::unique_ptr<UdpChannel> m_Channel;
    std::unique_ptr<ControlSocket> m_Control;
    std::unique_ptr<PmTimer> m_PmTimer;
    std::unique_ptr<LoopTimer> m_WorkTimer;
};

#endif
