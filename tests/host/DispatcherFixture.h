#ifndef TESTS_HOST_DISPATCHER_FIXTURE_H
#define TESTS_HOST_DISPATCHER_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "FakeMe.h"
#include "host/Dispatcher.h"
#include "host/FrameCodec.h"
#include "host/LogSink.h"
#include "host/MessageLayout.h"
#include "host/Notifier.h"
#include "omci_host/Logger.h"

/// Requests as an OLT writes them, replies taken apart.
class DispatcherTest : public testing::Test
{
protected:
    DispatcherTest() : notifier([this](const std::uint8_t* f, std::size_t n) { sent.emplace_back(f, f + n); }, {})
    {
        Logger::getInstance(omci::kHostLoggerId)->setLevel(0);
    }

    omci::FrameHeader header(omci::MessageType type, unsigned classId, unsigned instance)
    {
        omci::FrameHeader made;
        made.transactionId = ++transaction;
        made.type = type;
        made.acknowledgeRequest = true;
        made.format = format;
        made.entityClass = static_cast<std::uint16_t>(classId);
        made.entityInstance = static_cast<std::uint16_t>(instance);
        return made;
    }

    static Bytes frame(const omci::FrameHeader& header, const std::string& hex)
    {
        const Bytes contents = fromHex(hex);
        Bytes bytes(omci::kMaximumFrameLength);
        bytes.resize(omci::encode(header, contents.data(), contents.size(), bytes.data()));
        return bytes;
    }

    Bytes handle(const Bytes& bytes)
    {
        const omci::Dispatcher::Reply reply = dispatcher.handle(bytes.data(), bytes.size());
        return {reply.data, reply.data + reply.length};
    }

    /// The reply's contents as hexadecimal text, without baseline padding; checks the reply's identity.
    std::string ask(omci::MessageType type, unsigned classId, unsigned instance, const std::string& hex = "")
    {
        const omci::FrameHeader request = header(type, classId, instance);
        const Bytes bytes = handle(frame(request, hex));
        const omci::Decoded decoded = omci::decode(bytes.data(), bytes.size());
        EXPECT_TRUE(decoded) << bytes.size() << " octets";
        if (!decoded) {
            return "no reply";
        }
        const omci::FrameHeader& reply = decoded.frame.header;
        EXPECT_EQ(request.transactionId, reply.transactionId);
        EXPECT_EQ(type, reply.type);
        EXPECT_EQ(format, reply.format);
        EXPECT_EQ(classId, reply.entityClass);
        EXPECT_EQ(instance, reply.entityInstance);
        EXPECT_TRUE(reply.acknowledgement);
        EXPECT_FALSE(reply.acknowledgeRequest);
        EXPECT_TRUE(decoded.frame.hasMic);
        return toHex(decoded.frame.contents, decoded.frame.contentsLength);
    }

    /// `hex` padded to the contents of a baseline frame.
    static std::string padded(std::string hex)
    {
        hex.resize(64, '0');
        return hex;
    }

    std::vector<Bytes> sent;
    omci::Notifier notifier;
    omci::Dispatcher dispatcher{omci::Mic(), &notifier};
    omci::Format format = omci::Format::Baseline;
    std::uint16_t transaction = 0x100;
};

#endif
