// Frames of public origin with what another decoder said of them.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "Hex.h"
#include "host/FrameCodec.h"
#include "host/Mic.h"

using namespace omci;

namespace {

struct Recorded
{
    unsigned line;
    Bytes bytes;
    std::string meaning;
};

std::vector<Recorded> recordedFrames()
{
    std::vector<Recorded> frames;
    std::ifstream file(RECORDED_FRAMES);
    std::string text;
    for (unsigned line = 1; std::getline(file, text); ++line) {
        const nlohmann::json entry = nlohmann::json::parse(text);
        frames.push_back({line, fromHex(entry.at("hex").get<std::string>()), entry.at("meaning").get<std::string>()});
    }
    return frames;
}

MessageType typeOf(const std::string& name)
{
    static const std::map<std::string, MessageType> types = {
        {"Create", MessageType::Create},
        {"Delete", MessageType::Delete},
        {"Set", MessageType::Set},
        {"Get", MessageType::Get},
        {"Get all alarms", MessageType::GetAllAlarms},
        {"Get all alarms next", MessageType::GetAllAlarmsNext},
        {"MIB upload", MessageType::MibUpload},
        {"MIB upload next", MessageType::MibUploadNext},
        {"MIB reset", MessageType::MibReset},
        {"Alarm", MessageType::Alarm},
        {"AVC", MessageType::AttributeValueChange},
        {"Test", MessageType::Test},
        {"Start software download", MessageType::StartSoftwareDownload},
        {"Download section", MessageType::DownloadSection},
        {"End software download", MessageType::EndSoftwareDownload},
        {"Activate image", MessageType::ActivateImage},
        {"Commit image", MessageType::CommitImage},
        {"Synchronize time", MessageType::SynchronizeTime},
        {"Reboot", MessageType::Reboot},
        {"Get next", MessageType::GetNext},
        {"Test result", MessageType::TestResult},
        {"Get current data", MessageType::GetCurrentData},
        {"Set table", MessageType::SetTable}};
    return types.at(name);
}

/// The text of `meaning` between the first `before` and the next `after`.
std::string between(const std::string& meaning, const std::string& before, const std::string& after)
{
    const std::size_t begin = meaning.find(before);
    if (begin == std::string::npos) {
        return "";
    }
    const std::size_t end = meaning.find(after, begin + before.size());
    return end == std::string::npos ? "" : meaning.substr(begin + before.size(), end - begin - before.size());
}

/// "Get next response" without its last word, when that is `word`.
bool takeOff(std::string& name, const std::string& word)
{
    const bool ends = name.size() > word.size() && name.compare(name.size() - word.size(), word.size(), word) == 0;
    if (ends) {
        name.resize(name.size() - word.size());
    }
    return ends;
}

}  // namespace

TEST(RecordedFrames, DecodeToTheirRecordedMeaning)
{
    const std::vector<Recorded> frames = recordedFrames();
    ASSERT_EQ(284U, frames.size());
    for (const Recorded& recorded : frames) {
        SCOPED_TRACE(std::to_string(recorded.line) + ": " + recorded.meaning);
        const Decoded decoded = decode(recorded.bytes.data(), recorded.bytes.size());
        if (recorded.meaning.find("frame shorter than 40 octets") != std::string::npos) {
            EXPECT_EQ(DecodeError::Truncated, decoded.error);
            continue;
        }
        ASSERT_TRUE(decoded) << decodeErrorName(decoded.error);
        const std::string& meaning = recorded.meaning;
        std::string name = between(meaning, "] ", ", tid=");
        const bool response = takeOff(name, " response");
        takeOff(name, " request");
        takeOff(name, " notification");
        const FrameHeader& header = decoded.frame.header;
        EXPECT_EQ(between(meaning, "[", " "), formatName(header.format));
        EXPECT_EQ(typeOf(name), header.type);
        EXPECT_EQ(response, header.acknowledgement);
        EXPECT_EQ(std::stoul(between(meaning, "tid=0x", "class=").substr(0, 4), nullptr, 16), header.transactionId);
        EXPECT_EQ(std::stoul(between(meaning, "class=", "inst=")), header.entityClass);
        EXPECT_EQ(std::stoul(between(meaning + ";", "inst=0x", ";").substr(0, 4), nullptr, 16), header.entityInstance);
    }
}

TEST(RecordedFrames, EncodeBackToThemselves)
{
    for (const Recorded& recorded : recordedFrames()) {
        const Decoded decoded = decode(recorded.bytes.data(), recorded.bytes.size());
        if (!decoded) {
            continue;
        }
        SCOPED_TRACE(std::to_string(recorded.line) + ": " + recorded.meaning);
        Bytes out(kMaximumFrameLength);
        const FrameView& frame = decoded.frame;
        out.resize(encode(frame.header, frame.contents, frame.contentsLength, out.data()));
        // Trailer and MIC are the sender's affair.
        const bool baseline = frame.header.format == Format::Baseline;
        const std::size_t compared = (baseline ? 8 : 10) + frame.contentsLength;
        EXPECT_EQ(toHex(recorded.bytes.data(), compared), toHex(out.data(), compared));
    }
}

TEST(RecordedFrames, CrcOfEveryFrameThatClaimsOne)
{
    std::string problem;
    const std::optional<Mic> mic = Mic::parse("crc32", problem);
    ASSERT_TRUE(mic);
    unsigned checked = 0;
    for (const Recorded& recorded : recordedFrames()) {
        if (recorded.meaning.find("MIC: CRC32") == std::string::npos) {
            continue;
        }
        ++checked;
        EXPECT_TRUE(mic->check(recorded.bytes.data(), recorded.bytes.size(), Direction::Downstream))
            << recorded.line << ": " << recorded.meaning;
    }
    EXPECT_GT(checked, 5U);
}
