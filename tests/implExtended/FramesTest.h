#ifndef NRVK_TESTS_IMPL_EXTENDED_FRAMES_TEST_H
#define NRVK_TESTS_IMPL_EXTENDED_FRAMES_TEST_H

#include "LibraryTest.h"
#include "host/Dispatcher.h"
#include "host/FrameCodec.h"

/// Requests as an OLT sends them, through the host's dispatcher to the library and back.
class FramesTest : public LibraryTest
{
protected:
    using Bytes = std::vector<unsigned char>;

    explicit FramesTest(omci::Format messageFormat) : format(messageFormat) {}

    /// The contents of the reply; a baseline reply has all of its 32 octets.
    Bytes ask(omci::MessageType type, unsigned short classId, unsigned short instance, const Bytes& contents = {});

    /// Result of a create with these set-by-create values.
    unsigned int createByFrame(unsigned short classId, unsigned short instance, const Bytes& values = {});
    unsigned int deleteByFrame(unsigned short classId, unsigned short instance);

    struct SetReply
    {
        unsigned int result;
        unsigned int unsupported;  ///< optional-attribute mask
        unsigned int failed;       ///< attribute execution mask
    };
    SetReply setByFrame(unsigned short classId, unsigned short instance, unsigned short mask, const Bytes& values);
    /// One attribute of any width up to 8.
    SetReply setByFrame(unsigned short classId, unsigned short instance, unsigned short mask, unsigned long long value);

    /// One attribute; empty unless the result is success.
    Bytes getByFrame(unsigned short classId, unsigned short instance, unsigned short mask);
    unsigned long long numberByFrame(unsigned short classId, unsigned short instance, unsigned short mask);

    /// The counter that a successful create, delete and set steps.
    static unsigned long long mibDataSync();

    omci::Format format;

private:
    omci::Dispatcher m_Dispatcher{omci::Mic()};
    unsigned short m_Transaction = 0;
};

#endif
