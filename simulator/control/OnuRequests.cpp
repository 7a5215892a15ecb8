// Requests about the ONU as a whole: calls by name, MIB reset, restart, timers, counters.
#include <dlfcn.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <system_error>

#include "NorvikTimer.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "Onu.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"
#include "control/StatisticsReport.h"

namespace {
constexpr unsigned short kClassOnuData = 2;
constexpr unsigned short kClassSoftwareImage = 7;

OmciMe& adapter(unsigned short classId)
{
    OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr) {
        throw BadRequest("class " + std::to_string(classId) + " is not registered");
    }
    return *me;
}

/// The handler's name where its image exports it, else where it lies in its image.
std::string nameOf(NorvikTimer::Handler handler)
{
    const void* address = reinterpret_cast<const void*>(handler);
    Dl_info information{};
    std::ostringstream text;
    if (dladdr(address, &information) != 0 && information.dli_sname != nullptr && information.dli_saddr == address) {
        return information.dli_sname;
    }
    const std::string image = information.dli_fname != nullptr ? information.dli_fname : "";
    text << image.substr(image.rfind('/') + 1) << "+0x" << std::hex
         << reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(information.dli_fbase);
    return text.str();
}

Json listTimers(const Json& request)
{
    requireTrue(request, "timers");
    Json result = Json::array();
    for (const NorvikTimer::Running& timer : NorvikTimer::getRunningTimers()) {
        result.push_back({{"handler", nameOf(timer.handler)}, {"milliseconds_left", timer.millisecondsLeft}});
    }
    return {{"result", result}};
}

/// What the adapter prints.
std::string softwareDownloadText()
{
    char* text = nullptr;
    std::size_t size = 0;
    FILE* file = open_memstream(&text, &size);
    if (file == nullptr) {
        throw std::system_error(errno, std::generic_category(), "no memory for the text");
    }
    adapter(kClassSoftwareImage).showSoftwareDownloadStatus(file);
    std::fclose(file);
    const std::unique_ptr<char, decltype(&std::free)> owned(text, std::free);
    return {text, size};
}

Json show(const Json& request)
{
    if (request.at("show") != "software-download") {
        throw BadRequest("the request is {\"show\":\"software-download\"}");
    }
    return {{"result", toText(softwareDownloadText())}};
}

}  // namespace

void ControlRequests::addOnuRequests()
{
    m_Requests["call"] = [this](const Json& request) {
        std::string name;
        values::from(request.at("call"), name, "call");
        const Json arguments = request.value("args", Json::array());
        Json answer = m_Calls.run(name, arguments);
        m_Onu.hardware().remember(name, arguments);
        return answer;
    };
    m_Requests["mib-reset"] = [](const Json& request) -> Json {
        requireTrue(request, "mib-reset");
        return {{"result", adapter(kClassOnuData).mibReset()}};
    };
    m_Requests["reboot"] = [this](const Json& request) -> Json {
        requireTrue(request, "reboot");
        m_Onu.restart();
        return {{"result", 0}};
    };
    m_Requests["fifo"] = [](const Json& request) -> Json {
        unsigned int depth = 0;
        values::from(request.at("fifo"), depth, "fifo");
        adapter(kClassSoftwareImage).updateRxOmciFifoDepthInBytes(depth);
        return {{"result", 0}};
    };
    m_Requests["timers"] = listTimers;
    m_Requests["services"] = [this](const Json& request) -> Json {
        requireTrue(request, "services");
        return {{"result", m_Onu.hardware().services().toJson()}};
    };
    m_Requests["show"] = show;
    m_Requests["clock"] = [this](const Json& request) -> Json {
        requireTrue(request, "clock");
        const OnuClock& clock = m_Onu.clock();
        return {{"result",
                 {{"utc", utcText(clock.now())},
                  {"synchronized", clock.isSynchronized()},
                  {"uptime", std::chrono::duration_cast<std::chrono::seconds>(clock.uptime()).count()}}}};
    };
    m_Requests["statistics"] = [this](const Json& request) -> Json {
        requireTrue(request, "statistics");
        return {{"result", statisticsReport(m_Onu.dispatcher().statistics(), m_Onu.notifier().counters())}};
    };
}
