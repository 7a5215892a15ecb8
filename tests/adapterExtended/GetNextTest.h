#ifndef NRVK_TESTS_ADAPTER_EXTENDED_GET_NEXT_TEST_H
#define NRVK_TESTS_ADAPTER_EXTENDED_GET_NEXT_TEST_H

#include "Frames.h"
#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"

/// A reply to get next, taken apart.
struct GetNextReply
{
    unsigned char result = 0xFF;
    unsigned short attributeMask = 0;
    std::vector<unsigned char> data;
};

/// The tests of get next on one class.
class GetNextTest : public LibraryTest
{
protected:
    static constexpr std::size_t kBaselineRoom = 29;

    explicit GetNextTest(unsigned short classId) : m_Class(classId) {}

    OmciMe& me() const { return adapter(m_Class); }

    /// Makes an instance as the ONU does at its start.
    void makeInstance(unsigned short instance)
    {
        me();
        ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(m_Class, instance), 0);
    }

    static std::vector<unsigned char> requestContents(unsigned short mask, unsigned short sequence)
    {
        return {static_cast<unsigned char>(mask >> 8), static_cast<unsigned char>(mask),
                static_cast<unsigned char>(sequence >> 8), static_cast<unsigned char>(sequence)};
    }

    /// As the host's dispatcher runs it; an exception leaves as it comes.
    GetNextReply getNext(unsigned short instance, std::vector<unsigned char> contents,
                         omci::Format format = omci::Format::Baseline) const
    {
        OmciFrame frame = requestFrame(omci::MessageType::GetNext, m_Class, instance, std::move(contents), format);
        EXPECT_EQ(me().getNext(&frame), 0);
        EXPECT_TRUE(frame.hasReply());
        const std::vector<unsigned char> reply = replyContents(frame);
        if (reply.size() < 3) {
            return {};
        }
        return {reply[0], static_cast<unsigned short>((reply[1] << 8) | reply[2]), {reply.begin() + 3, reply.end()}};
    }

    GetNextReply getNext(unsigned short instance, unsigned short mask, unsigned short sequence,
                         omci::Format format = omci::Format::Baseline) const
    {
        return getNext(instance, requestContents(mask, sequence), format);
    }

    const unsigned short m_Class;
};

#endif
