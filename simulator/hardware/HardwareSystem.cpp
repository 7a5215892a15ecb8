// The calls that concern the ONU as a whole: software images, time, remote debug, the reserved places.
#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <utility>

#include "JsonValues.h"
#include "OmciMessage.h"
#include "hardware/CounterReports.h"
#include "hardware/SimulatedHardware.h"
#include "pm/PerformanceMonitoring.h"

HardwareCall SimulatedHardware::call(const char* operation, std::initializer_list<Json> arguments)
{
    struct Throwing : std::runtime_error
    {
        using std::runtime_error::runtime_error;
    };
    bool isThrowing = false;
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        isThrowing = m_Settings.throwing.count(operation) != 0;
    }
    if (isThrowing) {
        const HardwareCall written(m_Recorder, operation, arguments);
        throw Throwing(std::string("the hardware threw in ") + operation);
    }
    return HardwareCall(m_Recorder, operation, arguments);
}

void SimulatedHardware::workLater(const HardwareCall& call, HardwareWork::Action action)
{
    std::chrono::milliseconds delay{};
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        delay = std::chrono::milliseconds(m_Settings.delayMilliseconds);
    }
    m_Work.add(call, delay, std::move(action));
}

void SimulatedHardware::serveServices(const HardwareCall& call)
{
    workLater(call, [this, told = m_Services.told()] { m_Services.serve(told); });
}

void SimulatedHardware::serveLines(const HardwareCall& call)
{
    workLater(call, [this, told = m_PhoneLines.told()] { m_PhoneLines.serve(told); });
}

void SimulatedHardware::change(const Json& request)
{
    const HardwareSettings before = settings();
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Settings.apply(request);
    }
    announceCounters(request);
    for (const auto& [instance, uni] : settings().unis) {
        if (!(uni == before.uni(instance))) {
            reportLink(instance, uni);
        }
    }
    changePhones(request);
    m_IpHosts.renew(settings().dhcpServers, m_Core);
}

int SimulatedHardware::reportLink(unsigned short instance, const HardwareSettings::Uni& uni)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Settings.unis[instance] = uni;
    }
    constexpr unsigned int highestSpeed = 0xFFFF;
    const auto speed = static_cast<unsigned short>(std::min(uni.speed, highestSpeed));
    return m_Core == nullptr
               ? -1
               : m_Core->updatePptpEthernetUniMEOperStateSpeedMode(instance, uni.operationalState, speed, uni.duplex);
}

HardwareSettings SimulatedHardware::settings() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Settings;
}

int SimulatedHardware::reserved(const char* operation)
{
    const HardwareCall written = call(operation, {});
    return 0;
}

int SimulatedHardware::reserved05()
{
    return reserved("reserved05");
}

int SimulatedHardware::reserved10()
{
    return reserved("reserved10");
}

int SimulatedHardware::reserved15()
{
    return reserved("reserved15");
}

int SimulatedHardware::reserved28()
{
    return reserved("reserved28");
}

int SimulatedHardware::reserved44()
{
    return reserved("reserved44");
}

int SimulatedHardware::reserved50()
{
    return reserved("reserved50");
}

int SimulatedHardware::reserved59()
{
    return reserved("reserved59");
}

int SimulatedHardware::reserved72()
{
    return reserved("reserved72");
}

int SimulatedHardware::reserved76()
{
    return reserved("reserved76");
}

int SimulatedHardware::reserved77()
{
    return reserved("reserved77");
}

int SimulatedHardware::reserved78()
{
    return reserved("reserved78");
}

int SimulatedHardware::reserved79()
{
    return reserved("reserved79");
}

int SimulatedHardware::resetDataPathConfiguration()
{
    const HardwareCall written = call("resetDataPathConfiguration", {});
    m_Services.clear();
    // Lines that led to no user and no media profile have had no removal of their own.
    m_PhoneLines.removeAll();
    workLater(written, [this, services = m_Services.told(), lines = m_PhoneLines.told()] {
        m_Services.serve(services);
        m_PhoneLines.serve(lines);
    });
    return 0;
}

int SimulatedHardware::sendAttributeValueChange(OmciMessage* message)
{
    const HardwareCall written =
        call("sendAttributeValueChange", {toHex(message->getMessage(), message->getMessageLength())});
    if (m_AttributeValueChange) {
        m_AttributeValueChange(*message);
    }
    return 0;
}

bool SimulatedHardware::endSoftwareImageDownload(unsigned char* imageStorage)
{
    // How long the image is, only the library knows: its first byte stands for it.
    const Json image = imageStorage == nullptr ? Json(nullptr) : Json(toHex(imageStorage, 1));
    const HardwareCall written = call("endSoftwareImageDownload", {image});
    return settings().isImageValid;
}

int SimulatedHardware::notifyMibUploadState(unsigned char state)
{
    const HardwareCall written = call("notifyMibUploadState", {state});
    return 0;
}

int SimulatedHardware::notifySoftwareDownloadStatus(unsigned char status)
{
    const HardwareCall written = call("notifySoftwareDownloadStatus", {status});
    return 0;
}

int SimulatedHardware::setBatteryBackup(unsigned char value)
{
    const HardwareCall written = call("setBatteryBackup", {value});
    workLater(written);
    return 0;
}

int SimulatedHardware::synchronizeTime()
{
    const HardwareCall written = call("synchronizeTime", {});
    if (m_PerformanceMonitoring != nullptr) {
        m_PerformanceMonitoring->synchronize();
    }
    const std::optional<std::time_t> time = m_TimeOfDay ? m_TimeOfDay() : std::nullopt;
    if (time) {
        m_Clock.set(*time);
    }
    return 0;
}

int SimulatedHardware::setOltTimeOfDay(unsigned int superFrameCounter, unsigned long long seconds,
                                       unsigned int nanoseconds)
{
    const HardwareCall written = call("setOltTimeOfDay", {superFrameCounter, seconds, nanoseconds});
    return 0;
}

int SimulatedHardware::setOntTimeOfDay(const time_t* time)
{
    const Json value = time == nullptr ? Json(nullptr) : Json(*time);
    const HardwareCall written = call("setOntTimeOfDay", {value});
    if (time != nullptr) {
        m_Clock.set(*time);
    }
    return 0;
}

int SimulatedHardware::notifyOltVendorId()
{
    const HardwareCall written = call("notifyOltVendorId", {});
    return 0;
}
