// Numbers of the protocol in words for people.

#include <gtest/gtest.h>

#include <string>

#include "host/FrameCodec.h"
#include "host/VoiceNames.h"

using namespace omci;

TEST(Names, EachResultHasItsOwn)
{
    EXPECT_STREQ("success", resultName(Result::Success));
    EXPECT_STREQ("command processing error", resultName(Result::ProcessingError));
    EXPECT_STREQ("command not supported", resultName(Result::NotSupported));
    EXPECT_STREQ("parameter error", resultName(Result::ParameterError));
    EXPECT_STREQ("unknown managed entity", resultName(Result::UnknownManagedEntity));
    EXPECT_STREQ("unknown managed entity instance", resultName(Result::UnknownInstance));
    EXPECT_STREQ("device busy", resultName(Result::DeviceBusy));
    EXPECT_STREQ("instance exists", resultName(Result::InstanceExists));
    EXPECT_STREQ("attribute(s) failed or unknown", resultName(Result::AttributesFailed));
    EXPECT_STREQ("unknown result", resultName(static_cast<Result>(8)));
}

TEST(Names, EachDecodeErrorHasItsOwn)
{
    EXPECT_STREQ("no error", decodeErrorName(DecodeError::None));
    EXPECT_STREQ("too short for a header", decodeErrorName(DecodeError::TooShort));
    EXPECT_STREQ("unknown device identifier", decodeErrorName(DecodeError::UnknownDeviceId));
    EXPECT_STREQ("reserved bit of the message type set", decodeErrorName(DecodeError::InvalidMessageType));
    EXPECT_STREQ("contents truncated", decodeErrorName(DecodeError::Truncated));
    EXPECT_STREQ("contents oversized", decodeErrorName(DecodeError::Oversized));
    EXPECT_STREQ("unknown error", decodeErrorName(static_cast<DecodeError>(6)));
}

TEST(Names, MessageTypesOutsideOfG988AreUnknown)
{
    for (unsigned number = 0; number < 32; ++number) {
        const auto type = static_cast<MessageType>(number);
        EXPECT_EQ(isKnown(type), std::string("unknown message type") != messageTypeName(type)) << number;
    }
}

TEST(Names, ReservedVoiceNumbersAreUnknown)
{
    for (const auto name : {&codecName, &faxModeName, &signallingCodeName, &dialPlanFormatName, &signallingProtocolName,
                            &voiceServerStatusName, &portSessionName, &lineStateName, &transportName}) {
        EXPECT_STREQ("unknown", name(254));
    }
}

TEST(Names, FirstAndLastVoiceNumbersAreThoseOfG988)
{
    EXPECT_STREQ("PCMU", codecName(0));
    EXPECT_STREQ("G729", codecName(18));
    EXPECT_STREQ("unknown", codecName(19));
    EXPECT_STREQ("T.38", faxModeName(1));
    EXPECT_STREQ("unknown", faxModeName(2));
    EXPECT_STREQ("loop start", signallingCodeName(1));
    EXPECT_STREQ("multi-party", signallingCodeName(6));
    EXPECT_STREQ("vendor specific", dialPlanFormatName(3));
    EXPECT_STREQ("MGCP", signallingProtocolName(3));
    EXPECT_STREQ("selected outside of OMCI", signallingProtocolName(255));
    EXPECT_STREQ("disabled by switch", voiceServerStatusName(15));
    EXPECT_STREQ("conference", portSessionName(5));
    EXPECT_STREQ("off hook with tone", lineStateName(9));
    EXPECT_STREQ("TCP", transportName(6));
    EXPECT_STREQ("UDP", transportName(17));
}
