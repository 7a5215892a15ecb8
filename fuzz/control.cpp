// A line of the control socket: whatever it says, one line of JSON comes back and the ONU lives on.
#include <string>

#include "FuzzedOnu.h"

namespace {

constexpr unsigned kInputsPerReset = 64;

/// Requests that do as they are told and take their time, or end the process's memory.
bool isTedious(const std::string& line)
{
    return line.find("delay_ms") != std::string::npos || line.find("fail") != std::string::npos ||
           line.find("hold") != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (isTedious(text)) {
        return -1;
    }
    fuzz::FuzzedOnu& onu = fuzz::FuzzedOnu::instance();
    onu.begin(kInputsPerReset);
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string answer = onu.requests().answer(text.substr(begin, end - begin));
        const Json json = Json::parse(answer);
        FUZZ_CHECK(json.contains("result") || json.contains("error"));
        begin = end + 1;
    }
    return 0;
}
