// What omci-olt says of a frame.
#include "Check.h"
#include "decode/Description.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const omci::Decoded decoded = omci::decode(data, size);
    if (decoded) {
        const olt::Description description = olt::describe(olt::Catalogue::builtIn(), decoded.frame);
        FUZZ_CHECK(!olt::toText(description).empty());
        FUZZ_CHECK(!olt::toJson(description).empty());
    }
    return 0;
}
