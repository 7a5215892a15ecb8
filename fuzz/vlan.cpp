// Rows of the received frame VLAN tagging operation table of a UNI, each followed by what hardware may ask about it.
#include "FuzzedOnu.h"

namespace {

constexpr std::uint16_t kExtendedVlan = 171;
constexpr std::uint16_t kInstance = 1;
constexpr std::uint16_t kTableMask = 0x0400;
constexpr std::size_t kRowLength = 16;
constexpr unsigned kMostRows = 400;
constexpr unsigned kInputsPerReset = 64;

void request(fuzz::FuzzedOnu& onu, omci::MessageType type, const fuzz::Bytes& contents)
{
    static std::uint16_t transaction = 0;
    omci::FrameHeader header;
    header.transactionId = ++transaction;
    header.type = type;
    header.acknowledgeRequest = true;
    header.entityClass = kExtendedVlan;
    header.entityInstance = kInstance;
    onu.handle(fuzz::frameOf(header, contents));
}

void ask(fuzz::FuzzedOnu& onu, const char* what)
{
    onu.requests().answer(Json{{"vlan", {{"instance", kInstance}, {"what", what}}}}.dump());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedOnu& onu = fuzz::FuzzedOnu::instance();
    onu.begin(kInputsPerReset);
    FuzzedDataProvider data(bytes, size);
    // Association type and what it points at.
    const auto association = data.ConsumeIntegralInRange<std::uint8_t>(0, 12);
    request(onu, omci::MessageType::Create, {association, 0x01, 0x01});
    for (unsigned row = 0; row < kMostRows && data.remaining_bytes() != 0; ++row) {
        fuzz::Bytes contents = {kTableMask >> 8, kTableMask & 0xFF};
        fuzz::Bytes octets = data.ConsumeBytes<std::uint8_t>(kRowLength);
        octets.resize(kRowLength);
        contents.insert(contents.end(), octets.begin(), octets.end());
        request(onu, omci::MessageType::Set, contents);
        switch (octets.back() % 8) {
        case 1:
            ask(onu, "row");
            break;
        case 2:
            ask(onu, "rule");
            break;
        case 3:
            ask(onu, "table");
            break;
        case 4:
            request(onu, omci::MessageType::Get, {0x04, 0x00});
            break;
        default:
            break;
        }
    }
    ask(onu, "erase");
    ask(onu, "rule");
    request(onu, omci::MessageType::Delete, {});
    return 0;
}
