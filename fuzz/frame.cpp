// One received datagram, as it came, before a full MIB.
#include "FuzzedOnu.h"

namespace {
constexpr unsigned kInputsPerReset = 64;
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::FuzzedOnu& onu = fuzz::FuzzedOnu::instance();
    onu.begin(kInputsPerReset);
    onu.handle(fuzz::Bytes(data, data + size));
    return 0;
}
