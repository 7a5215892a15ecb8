#include "host/FrameCodec.h"

#include <gtest/gtest.h>

#include <array>

#include "Hex.h"

using namespace omci;

namespace {

Decoded decode(const Bytes& bytes)
{
    return omci::decode(bytes.data(), bytes.size());
}

Bytes baselineGet(std::size_t length)
{
    Bytes bytes = fromHex("1234 49 0a 0107 0401 8000");
    bytes.resize(length);
    return bytes;
}

Bytes extendedGet(std::uint16_t lengthField, std::size_t length)
{
    Bytes bytes = fromHex("1234 49 0b 0107 0401 0000 8000");
    bytes[8] = static_cast<std::uint8_t>(lengthField >> 8);
    bytes[9] = static_cast<std::uint8_t>(lengthField);
    bytes.resize(length);
    return bytes;
}

}  // namespace

TEST(FrameCodec, ReadsTheHeaderOfABaselineFrame)
{
    const Bytes bytes = baselineGet(48);
    const Decoded decoded = decode(bytes);
    ASSERT_TRUE(decoded);
    const FrameHeader& header = decoded.frame.header;
    EXPECT_EQ(0x1234, header.transactionId);
    EXPECT_EQ(MessageType::Get, header.type);
    EXPECT_TRUE(header.acknowledgeRequest);
    EXPECT_FALSE(header.acknowledgement);
    EXPECT_EQ(Format::Baseline, header.format);
    EXPECT_EQ(263, header.entityClass);
    EXPECT_EQ(0x401, header.entityInstance);
    EXPECT_EQ(32U, decoded.frame.contentsLength);
    EXPECT_EQ(bytes.data() + 8, decoded.frame.contents);
    EXPECT_TRUE(decoded.frame.hasMic);
}

TEST(FrameCodec, BaselineMayLackMicAndTrailer)
{
    EXPECT_FALSE(decode(baselineGet(44)).frame.hasMic);
    for (const std::size_t length : {40U, 44U, 48U}) {
        EXPECT_TRUE(decode(baselineGet(length))) << length;
    }
}

TEST(FrameCodec, BaselineLengthsOutsideAreRefused)
{
    EXPECT_EQ(DecodeError::TooShort, decode(baselineGet(7)).error);
    EXPECT_EQ(DecodeError::TooShort, decode(Bytes{}).error);
    EXPECT_EQ(DecodeError::Truncated, decode(baselineGet(8)).error);
    EXPECT_EQ(DecodeError::Truncated, decode(baselineGet(39)).error);
    EXPECT_EQ(DecodeError::Oversized, decode(baselineGet(49)).error);
    EXPECT_EQ(0x1234, decode(baselineGet(39)).frame.header.transactionId);
    EXPECT_TRUE(decode(baselineGet(39)).hasHeader());
    EXPECT_FALSE(decode(baselineGet(7)).hasHeader());
}

TEST(FrameCodec, ExtendedLengthFieldRules)
{
    const Bytes whole = extendedGet(2, 16);
    const Decoded decoded = decode(whole);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(2U, decoded.frame.contentsLength);
    EXPECT_TRUE(decoded.frame.hasMic);
    EXPECT_FALSE(decode(extendedGet(2, 12)).frame.hasMic);
    EXPECT_TRUE(decode(extendedGet(0, 10)));
    EXPECT_EQ(DecodeError::TooShort, decode(extendedGet(0, 9)).error);
    EXPECT_EQ(DecodeError::Truncated, decode(extendedGet(3, 12)).error);
    EXPECT_EQ(DecodeError::Oversized, decode(extendedGet(2, 17)).error);
    EXPECT_TRUE(decode(extendedGet(1966, 1980)));
    EXPECT_EQ(DecodeError::Oversized, decode(extendedGet(1967, 1981)).error);
}

TEST(FrameCodec, UnknownDeviceAndReservedBitAreRefused)
{
    Bytes bytes = baselineGet(48);
    bytes[3] = 0x0C;
    EXPECT_EQ(DecodeError::UnknownDeviceId, decode(bytes).error);
    EXPECT_FALSE(decode(bytes).hasHeader());
    bytes = baselineGet(48);
    bytes[2] |= 0x80;
    EXPECT_EQ(DecodeError::InvalidMessageType, decode(bytes).error);
    EXPECT_FALSE(decode(bytes).hasHeader());
}

TEST(FrameCodec, EncodesBaselinePaddedWithTrailer)
{
    std::array<std::uint8_t, kMaximumFrameLength> out;
    out.fill(0xEE);
    FrameHeader header;
    header.transactionId = 0x8001;
    header.type = MessageType::Set;
    header.acknowledgeRequest = true;
    header.entityClass = 256;
    const Bytes contents = fromHex("0200 01");
    const std::size_t length = encode(header, contents.data(), contents.size(), out.data());
    EXPECT_EQ("8001480a01000000020001" + std::string(58, '0') + "0000002800000000", toHex(out.data(), length));
}

TEST(FrameCodec, EncodesExtendedWithLength)
{
    std::array<std::uint8_t, kMaximumFrameLength> out;
    FrameHeader header;
    header.transactionId = 0x0107;
    header.type = MessageType::Set;
    header.acknowledgement = true;
    header.format = Format::Extended;
    header.entityClass = 256;
    const Bytes contents = fromHex("03");
    const std::size_t length = encode(header, contents.data(), contents.size(), out.data());
    EXPECT_EQ("0107280b0100000000010300000000", toHex(out.data(), length));
    EXPECT_EQ(length, encodedLength(Format::Extended, 1));
}

TEST(FrameCodec, RefusesContentsThatExceedTheFormat)
{
    std::array<std::uint8_t, kMaximumFrameLength> out;
    const Bytes contents(kMaximumContentLength + 1);
    FrameHeader header;
    EXPECT_EQ(0U, encode(header, contents.data(), 33, out.data()));
    EXPECT_EQ(48U, encode(header, contents.data(), 32, out.data()));
    header.format = Format::Extended;
    EXPECT_EQ(0U, encode(header, contents.data(), kMaximumContentLength + 1, out.data()));
    EXPECT_EQ(kMaximumFrameLength, encode(header, contents.data(), kMaximumContentLength, out.data()));
}

TEST(FrameCodec, KnowsTheMessageTypes)
{
    const std::array<unsigned, 9> unknown{0, 1, 2, 3, 5, 7, 10, 30, 31};
    for (unsigned type = 0; type < 32; ++type) {
        bool expected = true;
        for (const unsigned other : unknown) {
            expected = expected && type != other;
        }
        EXPECT_EQ(expected, isKnown(static_cast<MessageType>(type))) << type;
        EXPECT_EQ(expected, std::string("unknown message type") != messageTypeName(static_cast<MessageType>(type)));
    }
    EXPECT_TRUE(isAutonomous(MessageType::TestResult));
    EXPECT_FALSE(isAutonomous(MessageType::Test));
}

TEST(FrameCodec, ResponseKeepsIdentityAndTurnsTheBits)
{
    const FrameHeader request = decode(extendedGet(2, 12)).frame.header;
    const FrameHeader response = responseTo(request);
    EXPECT_EQ(request.transactionId, response.transactionId);
    EXPECT_EQ(request.entityClass, response.entityClass);
    EXPECT_EQ(request.entityInstance, response.entityInstance);
    EXPECT_EQ(Format::Extended, response.format);
    EXPECT_FALSE(response.acknowledgeRequest);
    EXPECT_TRUE(response.acknowledgement);
}
