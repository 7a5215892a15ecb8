#include "FramesTest.h"

#include "OmciMe.h"
#include "attributeDefinition.h"

namespace {

unsigned int read16(const std::vector<unsigned char>& bytes, std::size_t at)
{
    return at + 2 > bytes.size() ? 0 : static_cast<unsigned int>(bytes[at] << 8 | bytes[at + 1]);
}

}  // namespace

std::vector<unsigned char> FramesTest::ask(omci::MessageType type, unsigned short classId, unsigned short instance,
                                           const Bytes& contents)
{
    omci::FrameHeader header;
    header.transactionId = ++m_Transaction;
    header.type = type;
    header.acknowledgeRequest = true;
    header.format = format;
    header.entityClass = classId;
    header.entityInstance = instance;
    Bytes request(omci::kMaximumFrameLength);
    request.resize(omci::encode(header, contents.data(), contents.size(), request.data()));
    const omci::Dispatcher::Reply reply = m_Dispatcher.handle(request.data(), request.size());
    const omci::Decoded decoded = omci::decode(reply.data, reply.length);
    EXPECT_TRUE(decoded);
    if (!decoded) {
        return {};
    }
    EXPECT_EQ(decoded.frame.header.transactionId, m_Transaction);
    return {decoded.frame.contents, decoded.frame.contents + decoded.frame.contentsLength};
}

unsigned int FramesTest::createByFrame(unsigned short classId, unsigned short instance, const Bytes& values)
{
    return ask(omci::MessageType::Create, classId, instance, values).at(0);
}

unsigned int FramesTest::deleteByFrame(unsigned short classId, unsigned short instance)
{
    return ask(omci::MessageType::Delete, classId, instance).at(0);
}

FramesTest::SetReply FramesTest::setByFrame(unsigned short classId, unsigned short instance, unsigned short mask,
                                            const Bytes& values)
{
    Bytes contents = {static_cast<unsigned char>(mask >> 8), static_cast<unsigned char>(mask)};
    contents.insert(contents.end(), values.begin(), values.end());
    const Bytes reply = ask(omci::MessageType::Set, classId, instance, contents);
    return {reply.at(0), read16(reply, 1), read16(reply, 3)};
}

FramesTest::SetReply FramesTest::setByFrame(unsigned short classId, unsigned short instance, unsigned short mask,
                                            unsigned long long value)
{
    Bytes octets(definitionOf(classId, mask).attributeSize);
    for (std::size_t i = octets.size(); i != 0; --i) {
        octets[i - 1] = static_cast<unsigned char>(value);
        value >>= 8;
    }
    return setByFrame(classId, instance, mask, octets);
}

std::vector<unsigned char> FramesTest::getByFrame(unsigned short classId, unsigned short instance, unsigned short mask)
{
    const Bytes contents = {static_cast<unsigned char>(mask >> 8), static_cast<unsigned char>(mask)};
    const Bytes reply = ask(omci::MessageType::Get, classId, instance, contents);
    if (reply.at(0) != 0) {
        return {};
    }
    const attributeDefinition definition = definitionOf(classId, mask);
    const std::size_t size = definition.isTableAttribute != 0 ? 4 : definition.attributeSize;
    const std::ptrdiff_t at = format == omci::Format::Baseline ? 3 : 7;
    return {reply.begin() + at, reply.begin() + at + static_cast<std::ptrdiff_t>(size)};
}

unsigned long long FramesTest::numberByFrame(unsigned short classId, unsigned short instance, unsigned short mask)
{
    unsigned long long number = 0;
    const Bytes octets = getByFrame(classId, instance, mask);
    EXPECT_FALSE(octets.empty());
    for (const unsigned char octet : octets) {
        number = number << 8 | octet;
    }
    return number;
}

unsigned long long FramesTest::mibDataSync()
{
    constexpr unsigned short onuData = 2;
    return getNumber(onuData, 0, 0x8000);
}
