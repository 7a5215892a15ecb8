#include "host/Mic.h"

#include <gtest/gtest.h>

#include "Hex.h"
#include "host/FrameCodec.h"
#include "omci_host/CRC32.h"

using namespace omci;

namespace {

Mic parsed(const std::string& text)
{
    std::string problem;
    std::optional<Mic> mic = Mic::parse(text, problem);
    EXPECT_TRUE(mic) << problem;
    return mic ? std::move(*mic) : Mic();
}

std::string problemOf(const std::string& text)
{
    std::string problem;
    EXPECT_FALSE(Mic::parse(text, problem));
    return problem;
}

const char* const kWorkedExample =
    "8000490a0100000000800000000000000000000000000000000000000000000000000000000000000000002878dca53d";
const char* const kWorkedExampleKey = "cmac:184b8ad4d1ac4af4dd4b339ecc0d3370";

}  // namespace

TEST(Crc32, Aal5CheckValue)
{
    std::string digits = "123456789";
    CRC32 crc;
    crc.m_Crc = 0xFFFFFFFF;
    EXPECT_EQ(0xFC891918U, crc.getCRC(reinterpret_cast<unsigned char*>(digits.data()), 9));
}

TEST(Crc32, PiecesOfAnyLengthContinueFromTheRunningValue)
{
    Bytes data(1000);
    for (std::size_t i = 0; i < data.size(); ++i) {
        data[i] = static_cast<std::uint8_t>(i * 7 + i / 13);
    }
    CRC32 whole;
    whole.m_Crc = 0xFFFFFFFF;
    const unsigned expected = whole.getCRC(data.data(), 1000);
    for (const int step : {1, 3, 8, 13, 999}) {
        CRC32 pieces;
        pieces.m_Crc = 0xFFFFFFFF;
        unsigned last = 0;
        for (int at = 0; at < 1000; at += step) {
            last = pieces.getCRC(data.data() + at, std::min(step, 1000 - at));
        }
        EXPECT_EQ(expected, last) << step;
    }
    EXPECT_EQ(whole.m_Crc, ~expected);
}

TEST(Crc32, EmptyAndNegativeLengthsLeaveTheRunningValue)
{
    CRC32 crc;
    crc.m_Crc = 0x12345678;
    EXPECT_EQ(~0x12345678U, crc.getCRC(nullptr, 0));
    EXPECT_EQ(~0x12345678U, crc.getCRC(nullptr, -1));
    EXPECT_EQ(0x12345678U, crc.m_Crc);
}

TEST(Mic, ReadsItsText)
{
    EXPECT_EQ(Mic::Mode::None, parsed("none").mode());
    EXPECT_EQ(Mic::Mode::Crc32, parsed("crc32").mode());
    EXPECT_EQ(Mic::Mode::Cmac, parsed("cmac:00112233445566778899AABBCCDDEEFF").mode());
}

TEST(Mic, RefusesOtherTextsWithTheReason)
{
    EXPECT_NE(std::string::npos, problemOf("md5").find("unknown MIC mode 'md5'"));
    EXPECT_NE(std::string::npos, problemOf("").find("unknown MIC mode"));
    EXPECT_NE(std::string::npos, problemOf("cmac:").find("32 hexadecimal digits"));
    EXPECT_NE(std::string::npos, problemOf("cmac:00112233445566778899aabbccddeef").find("32 hexadecimal"));
    for (const char digit : {'g', '/', ':', '@', '`'}) {
        EXPECT_NE(std::string::npos,
                  problemOf("cmac:00112233445566778899aabbccddeef" + std::string(1, digit)).find("32 hex"))
            << digit;
    }
}

TEST(Mic, CmacWorkedExampleOfG9807)
{
    const Mic mic = parsed(kWorkedExampleKey);
    Bytes frame = fromHex(kWorkedExample);
    EXPECT_TRUE(mic.check(frame.data(), frame.size(), Direction::Downstream));
    EXPECT_FALSE(mic.check(frame.data(), frame.size(), Direction::Upstream));
    frame[9] ^= 1;
    EXPECT_FALSE(mic.check(frame.data(), frame.size(), Direction::Downstream));
    frame[9] ^= 1;
    const Bytes original = frame;
    frame[44] = frame[45] = frame[46] = frame[47] = 0;
    mic.seal(frame.data(), frame.size(), Direction::Downstream);
    EXPECT_EQ(toHex(original), toHex(frame));
}

TEST(Mic, CmacSealsAndChecksAgainAndAgain)
{
    const Mic mic = parsed(kWorkedExampleKey);
    Bytes frame = fromHex(kWorkedExample);
    for (int round = 0; round < 20; ++round) {
        frame[10] = static_cast<std::uint8_t>(round);
        mic.seal(frame.data(), frame.size(), Direction::Upstream);
        EXPECT_TRUE(mic.check(frame.data(), frame.size(), Direction::Upstream));
    }
}

TEST(Mic, Crc32OfACapturedFrame)
{
    Bytes frame =
        fromHex("803e490a0002000080000000000000000000000000000000000000000000000000000000000000000000002843d884c6");
    const Mic mic = parsed("crc32");
    EXPECT_TRUE(mic.check(frame.data(), frame.size(), Direction::Downstream));
    frame[47] ^= 0x80;
    EXPECT_FALSE(mic.check(frame.data(), frame.size(), Direction::Downstream));
}

TEST(Mic, NoneSendsZerosAndChecksNothing)
{
    const Mic mic;
    Bytes frame(48, 0xAA);
    EXPECT_TRUE(mic.check(frame.data(), frame.size(), Direction::Downstream));
    mic.seal(frame.data(), frame.size(), Direction::Upstream);
    EXPECT_EQ("aa00000000", toHex(frame.data() + 43, 5));
}

TEST(Mic, FramesWithoutRoomForAMicFail)
{
    const Mic mic = parsed("crc32");
    const Bytes frame(4);
    EXPECT_FALSE(mic.check(frame.data(), frame.size(), Direction::Downstream));
}
