#include "app/Command.h"
#include "decode/Description.h"
#include "model/Hex.h"

namespace olt {

namespace {

class Raw : public Command
{
public:
    void declare(Options& options) override
    {
        options.positionals("HEX", m_Text, "The frame as hexadecimal digits; blanks between octets are fine",
                            Options::Need::Required);
        options.flag("--complete", m_Complete, "Add what is missing: padding, trailer and the MIC of --mic");
        options.flag("--no-answer", m_NoAnswer, "Don't wait for an answer");
    }

    void prepare(Context& context) override
    {
        std::string joined;
        for (const auto& part : m_Text)
            joined += part + " ";
        const auto octets = fromHex(joined);
        if (!octets || octets->empty())
            throw UsageError("\"" + joined.substr(0, joined.size() - 1) +
                             "\" isn't a whole number of octets in hexadecimal");
        m_Octets = m_Complete ? completed(*octets, context.options().mic) : *octets;
    }

    ExitCode run(Context& context) override
    {
        auto& session = context.session();
        if (m_NoAnswer) {
            session.send(m_Octets);
            return ExitCode::Success;
        }
        const auto answer = session.exchangeRaw(m_Octets);
        if (!answer)
            throw Unreachable("no answer within " + std::to_string(context.options().timeout) + " ms");
        const Description description = describe(context.catalogue(), answer->view());
        if (context.output().isJson()) {
            auto json = toJson(description);
            json["hex"] = toHex(answer->bytes());
            context.output().object(json);
        } else {
            context.output().line(toHex(answer->bytes()));
            context.output().line(toText(description));
        }
        const bool refused = description.result && *description.result != omci::Result::Success;
        return refused ? ExitCode::Refused : ExitCode::Success;
    }

private:
    static Bytes completed(const Bytes& octets, const std::string& micText)
    {
        const bool baseline = octets.size() > 3 && octets[3] == static_cast<std::uint8_t>(omci::Format::Baseline);
        Bytes padded = octets;
        if (baseline && padded.size() < omci::kBaselineHeaderLength + omci::kBaselineContentLength)
            padded.resize(omci::kBaselineHeaderLength + omci::kBaselineContentLength);
        const auto decoded = omci::decode(padded.data(), padded.size());
        if (!decoded)
            throw UsageError(std::string("--complete can't make a frame of this: ") +
                             omci::decodeErrorName(decoded.error));
        Bytes frame(omci::kMaximumFrameLength);
        frame.resize(
            omci::encode(decoded.frame.header, decoded.frame.contents, decoded.frame.contentsLength, frame.data()));
        std::string problem;
        const auto mic = omci::Mic::parse(micText, problem);
        if (!mic)
            throw UsageError("--mic " + micText + ": " + problem);
        mic->seal(frame.data(), frame.size(), omci::Direction::Downstream);
        return frame;
    }

    std::vector<std::string> m_Text;
    bool m_Complete = false;
    bool m_NoAnswer = false;
    Bytes m_Octets;
};

const CommandRegistration<Raw>
    registration("raw", CommandGroup::Tool, "Send octets as they are and show the answer",
                 "Nothing is checked, added or repeated, so that broken frames can be tried.\n\n"
                 "Example:\n  raw --complete \"1234 4f 0a 0002 0000\"");

}  // namespace

}  // namespace olt
