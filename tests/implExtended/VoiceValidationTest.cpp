// Every one-byte attribute of the voice entities that is checked on its set, over all 256 values.
#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "VoiceChecks.h"

namespace {

class VoiceValidation : public LibraryTest, public ::testing::WithParamInterface<VoiceCheck>
{
protected:
    static constexpr unsigned short kInstance = 0x0101;

    void SetUp() override
    {
        adapter(GetParam().classId);
        ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(GetParam().classId, kInstance),
                  0);
        log.clear();
    }

    int setTo(int value) { return set(GetParam().classId, kInstance, GetParam().mask, static_cast<unsigned>(value)); }

    int stored() { return static_cast<int>(getNumber(GetParam().classId, kInstance, GetParam().mask)); }
};

TEST_P(VoiceValidation, AcceptedValuesAreStored)
{
    for (int value = 0; value < 256; ++value) {
        if (GetParam().accepts(value)) {
            EXPECT_EQ(setTo(value), 0) << value;
            EXPECT_EQ(stored(), value);
        }
    }
    EXPECT_THAT(log.texts(3), ::testing::IsEmpty());
}

TEST_P(VoiceValidation, RefusedValuesFailWithTheirTextAndChangeNothing)
{
    const int before = stored();
    for (int value = 0; value < 256; ++value) {
        if (!GetParam().accepts(value)) {
            log.clear();
            EXPECT_EQ(setTo(value), -1) << value;
            EXPECT_EQ(log.count(GetParam().level, GetParam().refusalOf(value)), 1U) << GetParam().refusalOf(value);
            EXPECT_EQ(stored(), before) << value;
        }
    }
}

TEST_P(VoiceValidation, RefusalIsLoggedInTheSettersName)
{
    int refused = 255;
    while (GetParam().accepts(refused)) {
        --refused;
    }
    setTo(refused);
    const std::string text = GetParam().refusalOf(refused);
    for (const LogLine& line : log.lines()) {
        if (line.text == text) {
            EXPECT_EQ(line.function.substr(0, 3), "set");
            EXPECT_THAT(line.file, ::testing::HasSubstr("ImplExtended.cpp"));
        }
    }
    EXPECT_TRUE(log.has(GetParam().level, text));
}

INSTANTIATE_TEST_SUITE_P(Attributes, VoiceValidation, ::testing::ValuesIn(voiceChecks),
                         [](const auto& row) { return std::string(row.param.attribute); });

/// Attributes beside them that take any value, at their full width.
struct Unchecked
{
    const char* attribute;
    unsigned short classId;
    unsigned short mask;
};

void PrintTo(const Unchecked& unchecked, std::ostream* stream)
{
    *stream << unchecked.attribute;
}

const Unchecked uncheckedAttributes[] = {
    {"PotsDeprecated", 53, 0x4000},
    {"PotsArc", 53, 0x2000},
    {"PotsArcIntervel", 53, 0x1000},
    {"PotsTransmissionPath", 53, 0x0400},
    {"PotsRxGain", 53, 0x0200},
    {"PotsTxGain", 53, 0x0100},
    {"PotsHoldoverTime", 53, 0x0020},
    {"PotsLossOfSwitch", 53, 0x0008},
    {"VoipConfigurationAddressPointer", 138, 0x0800},
    {"RetrieveProfile", 138, 0x0200},
    {"VoiceServiceProfilePointer", 142, 0x4000},
    {"RtpProfilePointer", 142, 0x0001},
    {"CidFeatures", 146, 0x8000},
    {"CallWaitingFeatures", 146, 0x4000},
    {"CallProgressOrTransferFeatures", 146, 0x2000},
    {"CallPresentationFeatures", 146, 0x1000},
    {"DirectConnectFeature", 146, 0x0800},
};

class VoiceWithoutValidation : public LibraryTest, public ::testing::WithParamInterface<Unchecked>
{};

TEST_P(VoiceWithoutValidation, AnyValueIsStored)
{
    const auto& [name, classId, mask] = GetParam();
    adapter(classId);
    ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->createManagedEntityInstance(classId, 1), 0);
    const unsigned int width = definitionOf(classId, mask).attributeSize;
    for (unsigned long long value = 0; value < 256; ++value) {
        const unsigned long long wide = width == 1 ? value : (value << 8 | (255 - value));
        EXPECT_EQ(set(classId, 1, mask, wide), 0);
        EXPECT_EQ(getNumber(classId, 1, mask), wide);
    }
    EXPECT_THAT(log.texts(3), ::testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Attributes, VoiceWithoutValidation, ::testing::ValuesIn(uncheckedAttributes),
                         [](const auto& row) { return std::string(row.param.attribute); });

}  // namespace
