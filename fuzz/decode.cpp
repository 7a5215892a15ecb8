// What omci-olt says of a frame.
#include "decode/Description.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const omci::Decoded decoded = omci::decode(data, size);
    if (decoded) {
        const olt::Description description = olt::describe(olt::Catalogue::builtIn(), decoded.frame);
        if (olt::toText(description).empty() || olt::toJson(description).empty()) {
            __builtin_trap();
        }
    }
    return 0;
}
