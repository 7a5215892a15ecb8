#include "host/MessageLayout.h"

#include <gtest/gtest.h>

#include <array>

#include "Hex.h"

using namespace omci;

namespace {

std::array<std::uint8_t, kMaximumContentLength> g_Contents;

/// A frame around contents; baseline contents are padded to 32 octets.
FrameView frameOf(Format format, Bytes& contents)
{
    if (format == Format::Baseline) {
        contents.resize(kBaselineContentLength);
    }
    FrameView frame;
    frame.header.format = format;
    frame.contents = contents.data();
    frame.contentsLength = contents.size();
    return frame;
}

std::string written(std::size_t length)
{
    return toHex(g_Contents.data(), length);
}

class MessageLayout : public testing::Test
{
protected:
    void SetUp() override { g_Contents.fill(0xEE); }
};

}  // namespace

TEST_F(MessageLayout, GetResponseBaselinePutsMasksAtTheEnd)
{
    const Bytes values = fromHex("dbcb05f1");
    GetResponse response{Result::AttributesFailed, 0x0044, 0x0001, 0x8000, {values.data(), values.size()}};
    EXPECT_EQ("090044dbcb05f1" + std::string(42, '0') + "00018000",
              written(response.write(Format::Baseline, g_Contents.data())));
    Bytes contents(g_Contents.begin(), g_Contents.begin() + 32);
    const auto parsed = parseGetResponse(frameOf(Format::Baseline, contents));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(Result::AttributesFailed, parsed->result);
    EXPECT_EQ(0x44, parsed->mask);
    EXPECT_EQ(1, parsed->optionalMask);
    EXPECT_EQ(0x8000, parsed->executionMask);
    EXPECT_EQ(25U, parsed->values.size);
    EXPECT_EQ(0xDB, parsed->values.data[0]);
}

TEST_F(MessageLayout, GetResponseBaselineSuccessMayHaveValuesWhereMasksStand)
{
    Bytes contents = fromHex("000078" + std::string(50, '0') + "01020304");
    const auto parsed = parseGetResponse(frameOf(Format::Baseline, contents));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(0, parsed->optionalMask);
    EXPECT_EQ(0, parsed->executionMask);
    ASSERT_EQ(29U, parsed->values.size);
    EXPECT_EQ(4, parsed->values.data[28]);
}

TEST_F(MessageLayout, GetResponseExtendedPutsMasksFirst)
{
    const Bytes values = fromHex("dbcb");
    GetResponse response{Result::Success, 0x0040, 0, 0x0004, {values.data(), values.size()}};
    EXPECT_EQ("00004000000004dbcb", written(response.write(Format::Extended, g_Contents.data())));
}

TEST_F(MessageLayout, GetResponseHoldsTwentyFiveOctetsAndNoMore)
{
    const Bytes values(26, 0x11);
    GetResponse response;
    response.values = {values.data(), 26};
    EXPECT_EQ(0U, response.write(Format::Baseline, g_Contents.data()));
    response.values.size = 25;
    EXPECT_EQ(32U, response.write(Format::Baseline, g_Contents.data()));
    EXPECT_EQ("1100000000", toHex(g_Contents.data() + 27, 5));
}

TEST_F(MessageLayout, SetResponseExtendedIsOneOctetUnlessAttributesFailed)
{
    EXPECT_EQ("00", written(SetResponse{}.write(Format::Extended, g_Contents.data())));
    EXPECT_EQ("0904000200",
              written(SetResponse{Result::AttributesFailed, 0x400, 0x200}.write(Format::Extended, g_Contents.data())));
    EXPECT_EQ("0000000000", written(SetResponse{}.write(Format::Baseline, g_Contents.data())));
}

TEST_F(MessageLayout, CreateResponseCarriesTheExecutionMask)
{
    EXPECT_EQ("038001", written(CreateResponse{Result::ParameterError, 0x8001}.write(g_Contents.data())));
    Bytes contents = fromHex("07");
    EXPECT_EQ(Result::InstanceExists, parseCreateResponse(frameOf(Format::Extended, contents))->result);
}

TEST_F(MessageLayout, RequestsReadAndWriteTheSame)
{
    const Bytes values = fromHex("0102030405");
    EXPECT_EQ("8000", written(MaskRequest{0x8000}.write(g_Contents.data())));
    EXPECT_EQ("04000001", written(GetNextRequest{0x400, 1}.write(g_Contents.data())));
    EXPECT_EQ("003a", written(SequenceRequest{0x3a}.write(g_Contents.data())));
    EXPECT_EQ("ff000f4240010001", written(StartDownloadRequest{255, 1000000, {fromHex("0001").data(), 2}}.write(
                                      Format::Baseline, g_Contents.data())));
    EXPECT_EQ("cc0102030405",
              written(SectionRequest{0xcc, {values.data(), 5}}.write(Format::Extended, g_Contents.data())));
    EXPECT_EQ("07e20c0101301b", written(TimeRequest{2018, 12, 1, 1, 48, 27}.write(g_Contents.data())));
    EXPECT_EQ("80000102030405",
              written(SetRequest{0x8000, {values.data(), 5}}.write(Format::Extended, g_Contents.data())));
    EXPECT_EQ("010203040000006400",
              written(EndDownloadRequest{0x01020304, 100, {}}.write(Format::Extended, g_Contents.data())));
}

TEST_F(MessageLayout, SetRequestThatExceedsBaselineIsNotWritten)
{
    const Bytes values(31);
    EXPECT_EQ(0U, (SetRequest{0x8000, {values.data(), 31}}.write(Format::Baseline, g_Contents.data())));
    EXPECT_EQ(32U, (SetRequest{0x8000, {values.data(), 30}}.write(Format::Baseline, g_Contents.data())));
}

TEST_F(MessageLayout, TruncatedContentsAreNotParsed)
{
    Bytes contents = fromHex("80");
    const FrameView frame = frameOf(Format::Extended, contents);
    EXPECT_FALSE(parseMaskRequest(frame));
    EXPECT_FALSE(parseSetRequest(frame));
    EXPECT_FALSE(parseGetNextRequest(frame));
    EXPECT_FALSE(parseSequenceRequest(frame));
    EXPECT_FALSE(parseStartDownloadRequest(frame));
    EXPECT_FALSE(parseEndDownloadRequest(frame));
    EXPECT_FALSE(parseTimeRequest(frame));
    EXPECT_FALSE(parseCountResponse(frame));
    EXPECT_FALSE(parseSectionResponse(frame));
    EXPECT_TRUE(parseResultResponse(frame));
    Bytes none;
    EXPECT_FALSE(parseResultResponse(frameOf(Format::Extended, none)));
    EXPECT_FALSE(parseSectionRequest(frameOf(Format::Extended, none)));
    EXPECT_EQ(0, parseOctetRequest(frameOf(Format::Extended, none)).value);
}

TEST_F(MessageLayout, DownloadInstancesMustBeWhole)
{
    Bytes contents = fromHex("1f 00000064 02 0001");
    EXPECT_FALSE(parseStartDownloadRequest(frameOf(Format::Extended, contents)));
    contents = fromHex("1f 00000064 01 0001");
    const auto request = parseStartDownloadRequest(frameOf(Format::Extended, contents));
    ASSERT_TRUE(request);
    EXPECT_EQ(31, request->windowSizeMinusOne);
    EXPECT_EQ(100U, request->imageSize);
    EXPECT_EQ(2U, request->instances.size);
    contents = fromHex("00 ff 02 000106 000200");
    const auto response = parseStartDownloadResponse(frameOf(Format::Extended, contents));
    ASSERT_TRUE(response);
    EXPECT_EQ(Result::DeviceBusy, instanceResult(response->instances, 0).result);
    EXPECT_EQ(2, instanceResult(response->instances, 1).instance);
    contents = fromHex("06 01 000100");
    const auto end = parseEndDownloadResponse(frameOf(Format::Extended, contents));
    ASSERT_TRUE(end);
    EXPECT_EQ(3U, end->instances.size);
    contents = fromHex("06 02 000100");
    EXPECT_FALSE(parseEndDownloadResponse(frameOf(Format::Extended, contents)));
}

TEST_F(MessageLayout, UploadedEntitiesOfAnExtendedFrame)
{
    Bytes contents = fromHex("0001 0002 0000 8000 07  0002 0107 8001 4000 0008");
    UploadedEntities entities(frameOf(Format::Extended, contents));
    UploadedEntity entity;
    ASSERT_TRUE(entities.next(entity));
    EXPECT_EQ(2, entity.entityClass);
    EXPECT_EQ(7, entity.values.data[0]);
    ASSERT_TRUE(entities.next(entity));
    EXPECT_EQ(263, entity.entityClass);
    EXPECT_EQ(0x8001, entity.entityInstance);
    EXPECT_EQ(0x4000, entity.mask);
    EXPECT_EQ(2U, entity.values.size);
    EXPECT_FALSE(entities.next(entity));
    EXPECT_FALSE(entities.isBroken());
}

TEST_F(MessageLayout, UploadedEntitiesStopAtABrokenTail)
{
    Bytes contents = fromHex("0001 0002 0000 8000 07  0009 0107 8001 4000 0008");
    UploadedEntities entities(frameOf(Format::Extended, contents));
    UploadedEntity entity;
    EXPECT_TRUE(entities.next(entity));
    EXPECT_FALSE(entities.next(entity));
    EXPECT_TRUE(entities.isBroken());
}

TEST_F(MessageLayout, AnAllZeroUploadFrameHasNoEntity)
{
    UploadedEntity entity;
    Bytes contents;
    UploadedEntities baseline(frameOf(Format::Baseline, contents));
    EXPECT_FALSE(baseline.next(entity));
    Bytes zeros(100);
    UploadedEntities extended(frameOf(Format::Extended, zeros));
    EXPECT_FALSE(extended.next(entity));
}

TEST_F(MessageLayout, UploadHeads)
{
    UploadedEntity entity{263, 0x8001, 0x4000, {nullptr, 2}};
    EXPECT_EQ(8U, entity.writeHead(Format::Baseline, g_Contents.data()));
    EXPECT_EQ("010780014000", written(6));
    EXPECT_EQ(10U, entity.writeHead(Format::Extended, g_Contents.data()));
    EXPECT_EQ("0002010780014000", written(8));
}

TEST_F(MessageLayout, AlarmNumbersCountFromTheTopBit)
{
    AlarmedEntity entity;
    entity.entityClass = 11;
    entity.entityInstance = 0x102;
    entity.bitmap[1] = 0x40;
    EXPECT_TRUE(entity.isRaised(9));
    EXPECT_FALSE(entity.isRaised(8));
    EXPECT_FALSE(entity.isRaised(224));
    EXPECT_EQ(32U, entity.write(g_Contents.data()));
    Bytes contents(g_Contents.begin(), g_Contents.begin() + 32);
    contents.insert(contents.end(), contents.begin(), contents.end());
    FrameView frame = frameOf(Format::Extended, contents);
    EXPECT_TRUE(parseAlarmedEntity(frame, 1));
    EXPECT_FALSE(parseAlarmedEntity(frame, 2));
    EXPECT_TRUE(parseAlarmedEntity(frame, 0)->isRaised(9));
}

TEST_F(MessageLayout, AlarmSequenceStandsAtTheEndOfEachFormat)
{
    AlarmNotification alarm;
    alarm.bitmap[0] = 0x80;
    alarm.sequence = 5;
    EXPECT_EQ("80" + std::string(60, '0') + "05", written(alarm.write(Format::Baseline, g_Contents.data())));
    EXPECT_EQ("80" + std::string(54, '0') + "05", written(alarm.write(Format::Extended, g_Contents.data())));
    Bytes contents(g_Contents.begin(), g_Contents.begin() + 29);
    EXPECT_EQ(5, parseAlarmNotification(frameOf(Format::Extended, contents))->sequence);
}

TEST_F(MessageLayout, TestResultOfTheAniG)
{
    const std::array<TestMeasurement, kTestMeasurements> measurements{
        {{1, 165}, {3, 0xF000}, {5, 1000}, {9, 6000}, {12, 0x1900}}};
    const std::size_t length = writeTestResult(measurements, g_Contents.data());
    EXPECT_EQ("0100a503f0000503e80917700c1900", written(length));
    Bytes contents(g_Contents.begin(), g_Contents.begin() + 32);
    const auto parsed = parseTestResult(frameOf(Format::Baseline, contents));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(12, (*parsed)[4].type);
    EXPECT_EQ(0x1900, (*parsed)[4].value);
}

TEST_F(MessageLayout, SelfTestResultOfTheOnuG)
{
    const std::size_t length = writeSelfTestResult(SelfTestOutcome::NotCompleted, g_Contents.data());
    EXPECT_EQ("0002", written(length));
    Bytes contents(g_Contents.begin(), g_Contents.begin() + 2);
    EXPECT_EQ(SelfTestOutcome::NotCompleted, parseSelfTestResult(frameOf(Format::Extended, contents)));
    contents[1] = 3;
    EXPECT_FALSE(parseSelfTestResult(frameOf(Format::Extended, contents)));
    contents.resize(1);
    EXPECT_FALSE(parseSelfTestResult(frameOf(Format::Extended, contents)));
}
