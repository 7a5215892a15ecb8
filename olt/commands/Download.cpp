#include <algorithm>
#include <array>
#include <limits>

#include "app/ImageArgument.h"
#include "app/Report.h"
#include "model/AtomicFile.h"
#include "model/Names.h"
#include "session/LossyChannel.h"
#include "session/SoftwareDownload.h"
#include "terminal/ProgressBar.h"

namespace olt {

namespace {

using Step = DownloadState::Step;

constexpr double kMegabyte = 1e6;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

template <typename... Values>
std::string formatted(const char* format, Values... values)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

const char* nameOf(Step step)
{
    switch (step) {
    case Step::Start:
        return "start software download";
    case Step::Sections:
        return "download section";
    case Step::End:
        break;
    }
    return "end software download";
}

/// What a refusal usually means, and what to do.
const char* hint(Step step, omci::Result result)
{
    if (result == omci::Result::UnknownInstance && step == Step::Start)
        return "there is no such image";
    switch (step) {
    case Step::Start:
        return "the image may be active or committed (see images), too large, or another download under way";
    case Step::Sections:
        return "the ONU has given the download up; start it again";
    case Step::End:
        break;
    }
    return "the image arrived damaged, or the ONU does not accept it or cannot store it";
}

/// A road with losses for as long as a download takes.
class Losses
{
public:
    Losses(Session& session, double percent) : m_Session(session)
    {
        if (percent <= 0)
            return;
        auto lossy = std::make_unique<LossyChannel>(session.exchangeChannel(nullptr), percent / 100);
        m_Lossy = lossy.get();
        static_cast<void>(session.exchangeChannel(std::move(lossy)));
    }
    ~Losses()
    {
        if (m_Lossy)
            static_cast<void>(m_Session.exchangeChannel(m_Lossy->takeRoad()));
    }
    Losses(const Losses&) = delete;
    Losses& operator=(const Losses&) = delete;

    [[nodiscard]] std::uint64_t lost() const { return m_Lossy ? m_Lossy->lost() : 0; }

private:
    Session& m_Session;
    LossyChannel* m_Lossy = nullptr;
};

class Download : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("IMAGE", m_File, "The image's file", Options::Need::Required);
        m_Target.declareOption(options);
        options.number("--window", m_Options.window, "Sections in a window; the ONU may make it less", {1, 256});
        options.number("--poll", m_Poll, "Seconds between two questions whether the ONU is through", {0.01, 60.0});
        options.number("--wait", m_Wait, "Seconds to wait for the ONU to check and store the image", {0.0, 86400.0});
        options.text("--corrupt-section", m_Corrupt, "Send section K, counted from 0, with a wrong octet", "K");
        options.number("--drop", m_Drop, "Lose that share of the datagrams of both directions, in percent",
                       {0.0, 90.0});
    }

    void prepare(Context& context) override
    {
        m_Entity = m_Target.resolve(context.catalogue());
        const std::string contents = readFile(m_File);
        if (contents.empty())
            throw UsageError(m_File + ": the file is empty");
        if (contents.size() > std::numeric_limits<std::uint32_t>::max())
            throw UsageError(m_File + ": an image has less than 4 GiB");
        m_Image.assign(contents.begin(), contents.end());
        const auto format = context.options().extended ? omci::Format::Extended : omci::Format::Baseline;
        const std::size_t room = SoftwareDownload::room(format);
        m_Sections = (m_Image.size() + room - 1) / room;
        if (m_Corrupt.empty())
            return;
        const auto number = parseUnsigned(m_Corrupt);
        if (!number || *number >= m_Sections)
            throw UsageError("--corrupt-section " + m_Corrupt + ": the image has sections 0 to " +
                             std::to_string(m_Sections - 1));
        m_Options.damaged = static_cast<std::uint32_t>(*number);
    }

    ExitCode run(Context& context) override
    {
        auto& session = context.session();
        const auto before = session.statistics().retransmissions;
        const auto start = Clock::now();
        const Losses losses(session, m_Drop);
        m_Options.pollPause = milliseconds(m_Poll);
        m_Options.pollLimit = milliseconds(m_Wait);
        SoftwareDownload download(session, m_Entity, m_Image, m_Options);
        const DownloadState state = transfer(context, download, session, start);
        Totals totals{secondsSince(start), session.statistics().retransmissions - before, losses.lost()};
        if (context.output().isJson())
            context.output().object(json(state, totals));
        if (!state.succeeded())
            return refused(context.output(), state);
        if (!context.output().isJson())
            print(context.output(), state, totals);
        return ExitCode::Success;
    }

private:
    struct Totals
    {
        double seconds;
        std::uint64_t retransmissions;
        std::uint64_t dropped;
    };

    static std::chrono::milliseconds milliseconds(double seconds)
    {
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
    }

    DownloadState transfer(Context& context, SoftwareDownload& download, const Session& session,
                           Clock::time_point start) const
    {
        ProgressBar bar(context.output().terminal(), "download");
        const auto before = session.statistics().retransmissions;
        return download.run([&](const DownloadState& state) {
            if (!context.output().isJson())
                bar.show(state.octets, m_Image.size(),
                         progressNote(state, session.statistics().retransmissions - before, secondsSince(start)));
        });
    }

    std::string progressNote(const DownloadState& state, std::uint64_t retransmissions, double seconds) const
    {
        if (state.step == Step::End)
            return formatted("the ONU stores the image, %.0f s", seconds);
        const double rate = seconds > 0 ? static_cast<double>(state.octets) / seconds : 0;
        const double left = rate > 0 ? static_cast<double>(m_Image.size() - state.octets) / rate : 0;
        std::string note = formatted("%.2f MB/s, %.0f s left", rate / kMegabyte, left);
        if (const auto again = state.repeated + retransmissions; again > 0)
            note += ", " + std::to_string(again) + " retransmissions";
        return note;
    }

    Output::Json json(const DownloadState& state, const Totals& totals) const
    {
        auto json = resultJson("download", m_Entity, {state.result, 0, 0});
        json["step"] = nameOf(state.step);
        json["file"] = m_File;
        json["octets"] = m_Image.size();
        json["crc"] = formatted("0x%08x", state.crc);
        json["window"] = state.window;
        json["sections"] = state.sections;
        json["windows"] = state.windows;
        json["repeated_windows"] = state.repeated;
        json["retransmissions"] = totals.retransmissions;
        json["dropped"] = totals.dropped;
        json["polls"] = state.polls;
        json["seconds"] = totals.seconds;
        json["octets_per_second"] = static_cast<double>(state.octets) / totals.seconds;
        return json;
    }

    ExitCode refused(Output& output, const DownloadState& state) const
    {
        if (!output.isJson())
            output.note("download to " + entityLabel(m_Entity) + ": " + nameOf(state.step) + ": " +
                        omci::resultName(state.result) + " (result " +
                        std::to_string(static_cast<unsigned>(state.result)) + ") after " +
                        std::to_string(state.octets) + " of " + std::to_string(m_Image.size()) + " octets; " +
                        hint(state.step, state.result));
        return ExitCode::Refused;
    }

    void print(Output& output, const DownloadState& state, const Totals& totals) const
    {
        output.line("downloaded " + m_File + " to " + entityLabel(m_Entity));
        std::string text = std::to_string(m_Image.size()) + " octets, CRC " + formatted("0x%08X", state.crc) + ", " +
                           std::to_string(state.sections) + " sections, " + std::to_string(state.windows) +
                           " windows of up to " + std::to_string(state.window) + ", " +
                           formatted("%.2f s, %.2f MB/s", totals.seconds,
                                     static_cast<double>(state.octets) / totals.seconds / kMegabyte);
        if (state.repeated > 0)
            text += ", " + std::to_string(state.repeated) + " windows sent again";
        if (totals.retransmissions > 0)
            text += ", " + std::to_string(totals.retransmissions) + " retransmissions";
        if (totals.dropped > 0)
            text += ", " + std::to_string(totals.dropped) + " datagrams dropped";
        output.line(text);
    }

    std::string m_File;
    ImageArgument m_Target;
    std::string m_Corrupt;
    double m_Poll = 0.5;
    double m_Wait = 600;
    double m_Drop = 0;
    DownloadOptions m_Options;
    EntityId m_Entity;
    Bytes m_Image;
    std::size_t m_Sections = 0;
};

const CommandRegistration<Download> registration(
    "download", CommandGroup::Action, "Download a software image",
    "Start, sections in windows, end, then questions until the ONU has stored the image. A window that the ONU "
    "refuses\n"
    "goes out again. The ONU gives a download up that has had no section for 30 s; until then a new one is refused.\n"
    "--corrupt-section and --drop show how the ONU bears a bad image and a bad road.\n\n"
    "Example:\n  download firmware.bin --instance 1 --window 64");

}  // namespace

}  // namespace olt
