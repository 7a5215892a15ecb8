// The contents of each message as the other end reads them, whole and cut off.

#include <gtest/gtest.h>

#include <array>

#include "Hex.h"
#include "host/ImageCrc.h"
#include "host/MessageLayout.h"

using namespace omci;

namespace {

/// Contents of a message, which live as long as the test's statement.
struct Message
{
    explicit Message(const std::string& hex, Format format = Format::Extended) : contents(fromHex(hex))
    {
        if (format == Format::Baseline) {
            contents.resize(kBaselineContentLength);
        }
        view.header.format = format;
        view.contents = contents.data();
        view.contentsLength = contents.size();
    }
    operator const FrameView&() const { return view; }  // NOLINT(google-explicit-constructor)

    Bytes contents;
    FrameView view;
};

std::string text(const Octets& octets)
{
    return toHex(octets.data, octets.size);
}

}  // namespace

TEST(Contents, MaskOfAGet)
{
    EXPECT_EQ(0x8001, parseMaskRequest(Message("8001"))->mask);
    EXPECT_EQ(0x8001, parseMaskRequest(Message("8001", Format::Baseline))->mask);
}

TEST(Contents, MaskAndValuesOfASet)
{
    const Message message("c000 01 0203");
    const auto request = parseSetRequest(message);
    ASSERT_TRUE(request);
    EXPECT_EQ(0xC000, request->mask);
    EXPECT_EQ("010203", text(request->values));
    EXPECT_EQ(30U, parseSetRequest(Message("8000", Format::Baseline))->values.size);
}

TEST(Contents, MaskAndNumberOfAGetNext)
{
    const auto request = parseGetNextRequest(Message("0400 0102"));
    ASSERT_TRUE(request);
    EXPECT_EQ(0x400, request->mask);
    EXPECT_EQ(0x102, request->sequence);
}

TEST(Contents, NumberOfAnUploadNext)
{
    EXPECT_EQ(0x3A, parseSequenceRequest(Message("003a"))->sequence);
}

TEST(Contents, NumberAndDataOfADownloadSection)
{
    const Message message("07 aabb");
    const auto request = parseSectionRequest(message);
    ASSERT_TRUE(request);
    EXPECT_EQ(7, request->section);
    EXPECT_EQ("aabb", text(request->data));
}

TEST(Contents, TimeIsInUtcYearFirst)
{
    const auto request = parseTimeRequest(Message("07ea 0c1f 17 3b 1e"));
    ASSERT_TRUE(request);
    EXPECT_EQ(2026, request->year);
    EXPECT_EQ(12, request->month);
    EXPECT_EQ(31, request->day);
    EXPECT_EQ(23, request->hour);
    EXPECT_EQ(59, request->minute);
    EXPECT_EQ(30, request->second);
}

TEST(Contents, OneOctetIsWrittenAndRead)
{
    std::array<std::uint8_t, kMaximumContentLength> contents{};
    EXPECT_EQ(1U, OctetRequest{5}.write(contents.data()));
    EXPECT_EQ(5, contents[0]);
    EXPECT_EQ(5, parseOctetRequest(Message("05")).value);
}

TEST(Contents, InstancesOfAnEndOfDownloadMustBeWhole)
{
    EXPECT_FALSE(parseEndDownloadRequest(Message("01020304 00000064 02 0001")));
    const Message message("01020304 00000064 01 0001");
    const auto request = parseEndDownloadRequest(message);
    ASSERT_TRUE(request);
    EXPECT_EQ(0x01020304U, request->crc);
    EXPECT_EQ(100U, request->imageSize);
    EXPECT_EQ("0001", text(request->instances));
}

TEST(Contents, CreateResponseMayLackItsMask)
{
    EXPECT_FALSE(parseCreateResponse(Message("")));
    EXPECT_EQ(0, parseCreateResponse(Message("07"))->executionMask);
    const auto refused = parseCreateResponse(Message("03 4000"));
    EXPECT_EQ(Result::ParameterError, refused->result);
    EXPECT_EQ(0x4000, refused->executionMask);
}

TEST(Contents, SetResponseMayLackItsMasks)
{
    EXPECT_FALSE(parseSetResponse(Message("")));
    const auto shortOne = parseSetResponse(Message("00"));
    ASSERT_TRUE(shortOne);
    EXPECT_EQ(Result::Success, shortOne->result);
    EXPECT_EQ(0, shortOne->optionalMask | shortOne->executionMask);
    const auto failed = parseSetResponse(Message("09 0001 4000", Format::Baseline));
    EXPECT_EQ(Result::AttributesFailed, failed->result);
    EXPECT_EQ(1, failed->optionalMask);
    EXPECT_EQ(0x4000, failed->executionMask);
}

TEST(Contents, GetResponseWithoutMasksIsWholeWhenItIsAnError)
{
    EXPECT_FALSE(parseGetResponse(Message("")));
    EXPECT_FALSE(parseGetResponse(Message("00 8000")));
    const auto refused = parseGetResponse(Message("05"));
    ASSERT_TRUE(refused);
    EXPECT_EQ(Result::UnknownInstance, refused->result);
    EXPECT_EQ(0U, refused->values.size);
}

TEST(Contents, ExtendedGetResponseHasItsMasksInFrontOfTheValues)
{
    const Message message("09 8000 0001 4000 aabbcc");
    const auto response = parseGetResponse(message);
    ASSERT_TRUE(response);
    EXPECT_EQ(0x8000, response->mask);
    EXPECT_EQ(1, response->optionalMask);
    EXPECT_EQ(0x4000, response->executionMask);
    EXPECT_EQ("aabbcc", text(response->values));
}

TEST(Contents, GetNextResponseWithoutMaskIsWholeWhenItIsAnError)
{
    EXPECT_FALSE(parseGetNextResponse(Message("")));
    EXPECT_FALSE(parseGetNextResponse(Message("00")));
    EXPECT_EQ(Result::ParameterError, parseGetNextResponse(Message("03"))->result);
    const Message message("00 1000 0102");
    const auto response = parseGetNextResponse(message);
    ASSERT_TRUE(response);
    EXPECT_EQ(0x1000, response->mask);
    EXPECT_EQ("0102", text(response->data));
}

TEST(Contents, CountOfAnUpload)
{
    EXPECT_EQ(0x012C, parseCountResponse(Message("012c"))->count);
}

TEST(Contents, StartOfADownloadMayBeAnsweredWithoutInstances)
{
    EXPECT_FALSE(parseStartDownloadResponse(Message("")));
    EXPECT_FALSE(parseStartDownloadResponse(Message("00")));
    EXPECT_EQ(Result::DeviceBusy, parseStartDownloadResponse(Message("06"))->result);
    const auto accepted = parseStartDownloadResponse(Message("00 1f"));
    ASSERT_TRUE(accepted);
    EXPECT_EQ(31, accepted->windowSizeMinusOne);
    EXPECT_EQ(0U, accepted->instances.size);
    EXPECT_FALSE(parseStartDownloadResponse(Message("00 1f 02 000100")));
}

TEST(Contents, SectionResponseTellsResultAndNumber)
{
    const auto response = parseSectionResponse(Message("01 1e"));
    ASSERT_TRUE(response);
    EXPECT_EQ(Result::ProcessingError, response->result);
    EXPECT_EQ(30, response->section);
}

TEST(Contents, EndOfADownloadMayBeAnsweredWithoutInstances)
{
    EXPECT_FALSE(parseEndDownloadResponse(Message("")));
    EXPECT_EQ(Result::DeviceBusy, parseEndDownloadResponse(Message("06"))->result);
}

TEST(Contents, CutOffNotificationsAreNotParsed)
{
    EXPECT_FALSE(parseAlarmNotification(Message(std::string(2 * 28, '0'))));
    EXPECT_FALSE(parseTestResult(Message("0100a503f0000503e80917700c19")));
}

TEST(Contents, CutOffUploadIsBroken)
{
    UploadedEntity entity;
    const Bytes baseline = fromHex("0107 8001 40");
    UploadedEntities ofBaseline(Format::Baseline, {baseline.data(), baseline.size()});
    EXPECT_FALSE(ofBaseline.next(entity));
    EXPECT_TRUE(ofBaseline.isBroken());
    const Bytes extended = fromHex("0002 0107 8001 40");
    UploadedEntities ofExtended(Format::Extended, {extended.data(), extended.size()});
    EXPECT_FALSE(ofExtended.next(entity));
    EXPECT_TRUE(ofExtended.isBroken());
}

TEST(Contents, UploadedEntityOfClassZeroIsOneWhenItHasAMask)
{
    const Bytes contents = fromHex("0001 0000 0000 8000 aa");
    UploadedEntities walk(Format::Extended, {contents.data(), contents.size()});
    UploadedEntity entity;
    ASSERT_TRUE(walk.next(entity));
    EXPECT_EQ(0x8000, entity.mask);
    EXPECT_EQ("aa", text(entity.values));
}

TEST(Contents, LengthOfAFrameFollowsItsFormat)
{
    EXPECT_EQ(48U, encodedLength(Format::Baseline, 5));
    EXPECT_EQ(19U, encodedLength(Format::Extended, 5));
}

TEST(Contents, ContentsAlreadyInTheirPlaceStayThere)
{
    FrameHeader header;
    header.format = Format::Extended;
    Bytes frame(kMaximumFrameLength);
    frame[kExtendedHeaderLength] = 0xAB;
    EXPECT_EQ(15U, encode(header, frame.data() + kExtendedHeaderLength, 1, frame.data()));
    EXPECT_EQ(0xAB, frame[kExtendedHeaderLength]);
}

TEST(Contents, CrcOfAnImageIsThatOfAal5)
{
    const std::string image = "123456789";
    EXPECT_EQ(0xFC891918U, imageCrc(reinterpret_cast<const std::uint8_t*>(image.data()), image.size()));
    EXPECT_EQ(0U, imageCrc(nullptr, 0));
}
