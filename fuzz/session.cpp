// A session: messages in any order, with hardware that is absent, throws, or does not answer for a while.
#include "FuzzedOnu.h"

namespace {

constexpr unsigned kMostMessages = 200;
constexpr const char* kOperations[] = {"provisionBridgePort", "provisionUniService", "provisionMapper",
                                       "removeTCont",         "createPmInstance",    "refreshEthernetFrameCounters",
                                       "applyVoipConfig",     "setUniAdminState",    "provisionGemInterworkingTp",
                                       "getRemoteDebugReply", "synchronizeTime",     "testAni"};

/// What happens beside the channel.
void drawEvent(FuzzedDataProvider& data, fuzz::FuzzedOnu& fuzzed)
{
    switch (data.ConsumeIntegralInRange(0, 5)) {
    case 0:
        fuzzed.onu().connectHardware(false);
        break;
    case 1:
        fuzzed.onu().connectHardware(true);
        break;
    case 2:
        fuzzed.onu().hardware().change({{"throw", {data.PickValueInArray(kOperations)}}});
        break;
    case 3:
        fuzzed.onu().hardware().change({{"throw", Json::array()}});
        break;
    case 4:
        fuzzed.onu().hardware().change({{"answer_refresh", data.ConsumeBool()}});
        break;
    default:
        fuzzed.onu().notifier().raiseAlarm(data.ConsumeIntegral<std::uint16_t>(), data.ConsumeIntegral<std::uint16_t>(),
                                           data.ConsumeIntegral<std::uint8_t>(), data.ConsumeBool());
        break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedOnu& onu = fuzz::FuzzedOnu::instance();
    onu.begin();
    FuzzedDataProvider data(bytes, size);
    for (unsigned message = 0; message < kMostMessages && data.remaining_bytes() != 0; ++message) {
        const int choice = data.ConsumeIntegralInRange(0, 15);
        if (choice == 0) {
            drawEvent(data, onu);
        } else if (choice == 1) {
            onu.handle(data.ConsumeBytes<std::uint8_t>(data.ConsumeIntegralInRange<std::size_t>(0, 60)));
        } else {
            onu.handle(fuzz::drawFrame(data));
        }
    }
    return 0;
}
