// Captures and texts of frames: read or refused in words, as `omci-olt decode` and `omci-olt replay` do.
#include <fcntl.h>

#include "InputFile.h"
#include "decode/Description.h"
#include "model/Errors.h"
#include "replay/Conversation.h"

namespace {

/// Goes up with each descriptor that is left open.
int nextDescriptor()
{
    const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(descriptor);
    return descriptor;
}

void describeAll(olt::FrameSource& source)
{
    while (const auto recorded = source.next()) {
        const omci::Decoded decoded = omci::decode(recorded->octets.data(), recorded->octets.size());
        if (decoded) {
            FUZZ_CHECK(!olt::toText(olt::describe(olt::Catalogue::builtIn(), decoded.frame)).empty());
        }
    }
}

void describeConversation(olt::FrameSource& source)
{
    for (const auto& exchange : olt::readConversation(source).exchanges) {
        FUZZ_CHECK(!exchange.request.header().acknowledgement);
        FUZZ_CHECK(!exchange.answer || exchange.answer->header().type == exchange.request.header().type);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::InputFile file;
    file.write(data, size);
    const int before = nextDescriptor();
    for (const auto read : {describeAll, describeConversation}) {
        try {
            olt::FrameSource source(file.path());
            read(source);
            const std::string remark = source.remark();
            FUZZ_CHECK(remark.empty() || remark.find(file.path()) == 0);
        } catch (const olt::UsageError& problem) {
            FUZZ_CHECK(std::string(problem.what()).find(file.path()) == 0);
        }
    }
    FUZZ_CHECK(nextDescriptor() == before);
    return 0;
}
