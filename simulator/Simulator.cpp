#include "Simulator.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "Logger.h"
#include "NorvikTimer.h"
#include "ProgramLog.h"
#include "host/LogSink.h"
#include "sandbox/Sandbox.h"

namespace {
/// What a board has to spare. The machine's own, which the library takes on 32 bits, may look like next to nothing.
constexpr std::uint64_t kFreeSpace = std::uint64_t{1} << 30;

/// The ONU goes on without its capture.
void capture(omci::CaptureWriter& writer, omci::Direction direction, const std::uint8_t* frame, std::size_t length)
{
    try {
        writer.add(direction, frame, length);
    } catch (const std::runtime_error& problem) {
        std::fprintf(stderr, "onu-sim: %s, the ONU goes on\n", problem.what());
    }
}

PerformanceMonitoring::Duration pmInterval(const Options& options)
{
    return std::chrono::duration_cast<PerformanceMonitoring::Duration>(
        std::chrono::duration<double>(options.pmInterval));
}

Board boardOf(const Options& options)
{
    Board board = options.boardFile.empty() ? Board() : readBoardFile(options.boardFile);
    if (!board.factoryFile.empty()) {
        Sandbox::exempt(board.factoryFile);
    }
    return board;
}
}  // namespace

Simulator::Simulator(const Options& options)
{
    const Board board = boardOf(options);
    const SocketAddress address = parseAddress(options.listen);
    openLogs(options);
    if (!options.capture.empty()) {
        m_Capture.open(options.capture);
    }
    NorvikTimer::setTimeScale(options.timeScale);
    Sandbox::setFreeSpace(kFreeSpace);
    m_Onu = std::make_unique<Onu>(
        Onu::Setup{board, options.mic, options.fifoDepth, options.timeScale, pmInterval(options), options.traffic,
                   options.baselineOnly},
        m_Recorder, [this](const std::uint8_t* frame, std::size_t length) { sendUnasked(frame, length); });
    m_Requests = std::make_unique<ControlRequests>(*m_Onu);
    Sandbox::setCommandHandler([this](const char* command) { return runCommand(command); });
    watchSignals();
    m_Channel = std::make_unique<UdpChannel>(m_Loop, address,
                                             [this](const std::uint8_t* bytes, std::size_t length, std::uint64_t peer) {
                                                 handleFrame(bytes, length, peer);
                                             });
    watchHardwareWork(options);
    m_Onu->start();
    m_PmTimer = std::make_unique<PmTimer>(m_Loop, m_Onu->performanceMonitoring(), options.timeScale);
    if (!options.control.empty()) {
        m_Control = std::make_unique<ControlSocket>(m_Loop, options.control,
                                                    [this](const std::string& line) { return answerRequest(line); });
    }
    flushLogs();
}

Simulator::~Simulator()
{
    Sandbox::setCommandHandler(nullptr);
    HardwareWork& work = m_Onu->hardware().work();
    work.finish();
    work.onNextTime(nullptr);
    flushLogs();
}

void Simulator::openLogs(const Options& options)
{
    const auto level = static_cast<unsigned char>(options.logLevel);
    Logger::getInstance(omci::kLibraryLoggerId)->setLevel(level);
    Logger::getInstance(omci::kHostLoggerId)->setLevel(level);
    if (!options.hardwareLog.empty()) {
        m_HardwareLog.open(options.hardwareLog);
    }
    if (!options.libraryLog.empty()) {
        m_LibraryLogFile.open(options.libraryLog);
        m_LibraryLog.emplace(m_LibraryLogFile, m_Number);
    }
}

void Simulator::watchSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    m_Signals = Descriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!m_Signals.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot watch signals");
    }
    m_Loop.watch(m_Signals.get(), [this] {
        signalfd_siginfo information{};
        if (read(m_Signals.get(), &information, sizeof information) > 0) {
            m_Loop.stop();
        }
    });
}

void Simulator::watchHardwareWork(const Options& options)
{
    SimulatedHardware& hardware = m_Onu->hardware();
    hardware.change({{"delay_ms", options.hardwareDelay}});
    m_WorkTimer = std::make_unique<LoopTimer>(m_Loop, [&hardware] { hardware.work().doDue(); });
    hardware.work().onNextTime([this](const auto& when) { m_WorkTimer->arm(when); });
}

void Simulator::run()
{
    m_Loop.afterEachTurn([this] { flushLogs(); });
    m_Loop.run();
}

void Simulator::handleFrame(const std::uint8_t* bytes, std::size_t length, std::uint64_t peer)
{
    capture(m_Capture, omci::Direction::Downstream, bytes, length);
    const omci::Dispatcher::Reply reply = m_Onu->dispatcher().handle(bytes, length, peer);
    flushLogs();
    if (reply.length != 0) {
        capture(m_Capture, omci::Direction::Upstream, reply.data, reply.length);
        m_Channel->send(reply.data, reply.length);
    }
}

void Simulator::sendUnasked(const std::uint8_t* frame, std::size_t length)
{
    // Later: a reply that is being made goes first, and only the loop's thread sends.
    m_Loop.post([this, copy = std::vector<std::uint8_t>(frame, frame + length)] {
        capture(m_Capture, omci::Direction::Upstream, copy.data(), copy.size());
        m_Channel->send(copy.data(), copy.size());
    });
}

std::string Simulator::answerRequest(const std::string& line)
{
    std::string answer = m_Requests->answer(line);
    m_PmTimer->rearm();
    flushLogs();
    return answer;
}

int Simulator::runCommand(const char* command)
{
    if (std::strcmp(command, "reboot") == 0) {
        // After the reply, as a board has the time to send it.
        m_Loop.post([this] { m_Onu->restart(); });
        return 0;
    }
    return m_Onu->boardScripts().run(command);
}

void Simulator::flushLogs()
{
    m_HardwareLog.flush();
    m_LibraryLogFile.flush();
    // What the library prints is to be seen at once too.
    std::fflush(stdout);
}
