#include <ctime>

#include "app/Command.h"
#include "app/Report.h"

namespace olt {

namespace {

std::tm timeOf(const std::string& text)
{
    std::tm time = {};
    if (text.empty()) {
        const std::time_t now = std::time(nullptr);
        gmtime_r(&now, &time);
        return time;
    }
    const char* const end = strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &time);
    if (!end || *end != '\0' || time.tm_year + 1900 < 0 || time.tm_year + 1900 > 0xFFFF)
        throw UsageError("--time \"" + text + "\" isn't of the form \"2025-12-31 23:59:59\"");
    return time;
}

class SyncTime : public Command
{
public:
    void declare(Options& options) override
    {
        options.text("--time", m_Text, "This time (UTC) instead of the present one", "\"YYYY-MM-DD HH:MM:SS\"");
    }

    void prepare(Context&) override { static_cast<void>(timeOf(m_Text)); }

    ExitCode run(Context& context) override
    {
        const std::tm time = timeOf(m_Text);
        omci::TimeRequest request;
        request.year = static_cast<std::uint16_t>(time.tm_year + 1900);
        request.month = static_cast<std::uint8_t>(time.tm_mon + 1);
        request.day = static_cast<std::uint8_t>(time.tm_mday);
        request.hour = static_cast<std::uint8_t>(time.tm_hour);
        request.minute = static_cast<std::uint8_t>(time.tm_min);
        request.second = static_cast<std::uint8_t>(time.tm_sec);
        Bytes contents(omci::kMaximumContentLength);
        contents.resize(request.write(contents.data()));
        std::array<char, 32> shown{};
        std::strftime(shown.data(), shown.size(), "%Y-%m-%d %H:%M:%S UTC", &time);
        const EntityId onuG{&context.catalogue().ofNumber(256), 0};
        return reportOutcome(context, "sync-time", std::string("time ") + shown.data() + " set on", onuG,
                             command(context.session(), onuG, omci::MessageType::SynchronizeTime, std::move(contents)));
    }

private:
    std::string m_Text;
};

const CommandRegistration<SyncTime> registration("sync-time", CommandGroup::Action, "Set the ONU's clock",
                                                 "Example:\n  sync-time --time \"2025-12-31 23:59:59\"");

}  // namespace

}  // namespace olt
