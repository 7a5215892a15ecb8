// The self-tests of ONU-G and ANI-G.
#include <array>

#include "OmciMeAniGIf.h"
#include "hardware/SimulatedHardware.h"
#include "host/MessageLayout.h"

namespace {
constexpr unsigned short kClassOnuG = 256;
constexpr unsigned short kClassAniG = 263;

/// A test result has its power referred to 1 uW, the attributes of ANI-G have it referred to 1 mW.
constexpr int kMicrowattOffset = 30 * 500;

enum : unsigned char
{
    kTypeVoltage = 1,
    kTypeReceivedPower = 3,
    kTypeTransmittedPower = 5,
    kTypeBias = 9,
    kTypeTemperature = 12
};

unsigned short toMicrowatt(unsigned short level)
{
    return static_cast<unsigned short>(level + kMicrowattOffset);
}
}  // namespace

int SimulatedHardware::testOnu(unsigned short transactionId)
{
    const HardwareCall written = call("testOnu", {transactionId});
    const auto outcome = settings().selfTest;
    if (outcome && m_Test) {
        workLater(written, [outcome = *outcome, sink = m_Test(transactionId, kClassOnuG)] {
            std::array<unsigned char, omci::kBaselineContentLength> contents{};
            sink(contents.data(), omci::writeSelfTestResult(outcome, contents.data()));
        });
    }
    return 0;
}

int SimulatedHardware::testAni(unsigned short transactionId)
{
    const HardwareCall written = call("testAni", {transactionId});
    if (settings().selfTest && m_Test) {
        workLater(written, [this, sink = m_Test(transactionId, kClassAniG)] { measureAni(sink); });
    }
    return 0;
}

void SimulatedHardware::measureAni(const TestResultSink& sink) const
{
    const OmciMeAniGIf* ani = OmciMeAniGIf::getFirstManagedEntityInstance();
    const optics::Levels levels = opticalLevels(ani == nullptr ? 0 : ani->getManagedEntityInstance());
    const optics::ModuleReadings readings = optics::readingsAfter(opticalAge());
    std::array<unsigned char, omci::kBaselineContentLength> contents{};
    const std::size_t length = omci::writeTestResult({{{kTypeVoltage, readings.voltage},
                                                       {kTypeReceivedPower, toMicrowatt(levels.received)},
                                                       {kTypeTransmittedPower, toMicrowatt(levels.transmitted)},
                                                       {kTypeBias, readings.bias},
                                                       {kTypeTemperature, readings.temperature}}},
                                                     contents.data());
    sink(contents.data(), length);
}
