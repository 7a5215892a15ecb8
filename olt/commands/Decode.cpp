#include "app/Command.h"
#include "decode/Description.h"
#include "decode/FrameSource.h"
#include "decode/VlanRows.h"
#include "model/Hex.h"
#include "terminal/TimeText.h"

namespace olt {

namespace {

class Decode : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("FILE", m_File, "A capture, or a text of frames in hexadecimal digits; - is standard input",
                           Options::Need::Optional);
    }

    ExitCode run(Context& context) override
    {
        FrameSource source(m_File.empty() ? "-" : m_File);
        VlanRows rows;
        bool allSound = true;
        while (const auto frame = source.next()) {
            const auto decoded = omci::decode(frame->octets.data(), frame->octets.size());
            allSound = allSound && decoded;
            if (context.output().isJson())
                context.output().object(toObject(context, *frame, decoded, rows));
            else
                print(context, *frame, decoded, rows);
        }
        if (const std::string remark = source.remark(); !remark.empty())
            context.output().note(remark);
        return allSound ? ExitCode::Success : ExitCode::Refused;
    }

private:
    static const char* directionName(const RecordedFrame& frame)
    {
        return frame.direction == omci::Direction::Downstream ? "OLT->ONU" : "ONU->OLT";
    }

    static Output::Json toObject(Context& context, const RecordedFrame& frame, const omci::Decoded& decoded,
                                 VlanRows& rows)
    {
        Output::Json json = Output::Json::object();
        if (frame.time)
            json["time"] = timeText(*frame.time, 6);
        json["direction"] = directionName(frame);
        if (decoded) {
            json.update(toJson(describe(context.catalogue(), decoded.frame)));
            if (const auto rules = rows.take(decoded.frame); !rules.empty())
                json["rules"] = rules;
        } else {
            json["error"] = omci::decodeErrorName(decoded.error);
        }
        json["hex"] = toHex(frame.octets);
        return json;
    }

    static void print(Context& context, const RecordedFrame& frame, const omci::Decoded& decoded, VlanRows& rows)
    {
        auto& output = context.output();
        std::string text = frame.time ? timeText(*frame.time, 6) + "  " : "";
        text += std::string(directionName(frame)) + "  ";
        if (!decoded) {
            output.line(text + "no OMCI frame: " + omci::decodeErrorName(decoded.error) + ": " + toHex(frame.octets),
                        Style::Red);
            return;
        }
        const auto& header = decoded.frame.header;
        const Description description = describe(context.catalogue(), decoded.frame);
        const std::uint8_t id[] = {static_cast<std::uint8_t>(header.transactionId >> 8),
                                   static_cast<std::uint8_t>(header.transactionId & 0xFF)};
        text += "0x" + toHex(id, sizeof id) + "  " + (header.format == omci::Format::Extended ? "extended " : "") +
                toText(description);
        const bool refused = description.result && *description.result != omci::Result::Success;
        output.line(text, refused ? Style::Red : Style::Plain);
        for (const auto& rule : rows.take(decoded.frame))
            output.line("    " + rule, Style::Yellow);
    }

    std::string m_File;
};

const CommandRegistration<Decode> registration(
    "decode", CommandGroup::Tool, "Show a capture, or frames in hexadecimal digits, in words; needs no ONU",
    "Reads pcap files of this tool, of onu-sim and of others (Ethernet, type 0x88B5), also while they grow, and text "
    "with\n"
    "one frame a line. The exit code is 1 when something is no OMCI frame.\n\n"
    "Examples:\n  decode session.pcap\n  echo 1234490a01000000c000 | omci-olt decode\n  --json decode session.pcap");

}  // namespace

}  // namespace olt
