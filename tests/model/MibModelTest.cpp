// The MIB beside a model of it: random sessions over all classes, every answer compared.
//
// NRVK_MODEL_SEED chooses other sessions, NRVK_MODEL_SESSIONS more of them. One that fails is cut down to the steps
// that it takes, and printed with the seed.

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <random>
#include <sstream>

#include "ClassRules.h"
#include "Draw.h"
#include "OmciManagedEntityRegistrar.h"
#include "Subject.h"

using namespace model;

namespace {

constexpr std::size_t kLongestSession = 2000;
constexpr std::size_t kLongSession = 20000;

using Seeds = std::vector<std::uint32_t>;

/// Plays sessions on both sides.
class Session
{
public:
    Session(const ClassList& classes, HardwareLayer layer)
        : m_Mib(classes, layer == HardwareLayer::Silent), m_Onu(layer)
    {
        m_Onu.describeStart(m_Mib);
    }

    /// Empty as long as both agree; else what each of them says.
    std::string play(const Step& step)
    {
        const Move move = draw(step, m_Mib);
        switch (move.action) {
        case Action::CreateAsOnu:
            return compareOwn(
                move, "ONU creates", [this](auto c, auto i) { return m_Mib.createAsOnu(c, i); },
                &OmciManagedEntityRegistrar::createManagedEntityInstance);
        case Action::RemoveAsOnu:
            return compareOwn(
                move, "ONU removes", [this](auto c, auto i) { return m_Mib.removeAsOnu(c, i); },
                &OmciManagedEntityRegistrar::deleteManagedEntityInstance);
        case Action::CompareUpload:
            return compareUpload(move.request.isExtended);
        default:
            return compareAnswers(move.request);
        }
    }

    std::string compareUpload(bool isExtended)
    {
        m_Played.push_back("MIB upload");
        UploadedValues expected;
        for (const auto& [classId, entity] : m_Mib.classes()) {
            for (const auto& [instance, made] : m_Mib.instancesOf(classId)) {
                if (!entity.isInMibUpload) {
                    break;
                }
                auto& values = expected[{classId, instance}];
                for (const Attribute& attribute : entity.attributes) {
                    if (attribute.has('U') && !attribute.isTable) {
                        values[attribute.mask] = *read(m_Mib, classId, instance, attribute, GET);
                    }
                }
            }
        }
        return difference(expected, m_Onu.upload(m_Mib.classes(), isExtended));
    }

    std::string played() const
    {
        std::string text;
        for (const std::string& line : m_Played) {
            text += "  " + line + "\n";
        }
        return text;
    }

private:
    std::string compareAnswers(const Request& request)
    {
        m_Played.push_back(textOf(request));
        const Bytes contents = m_Mib.answer(request);
        const Bytes given = m_Onu.ask(request);
        const Bytes expected = request.wantsAnswer ? answerOf(request, m_Onu.lastTransactionId(), contents) : Bytes();
        return given == expected ? "" : "expected " + hexOf(expected) + "\n  answered " + hexOf(given);
    }

    template <typename OnModel>
    std::string compareOwn(const Move& move, const char* what, OnModel onModel,
                           int (OmciManagedEntityRegistrar::*onLibrary)(unsigned short, unsigned short))
    {
        const Request& request = move.request;
        m_Played.push_back(std::string(what) + " " + std::to_string(request.classId) + "/" +
                           std::to_string(request.instance));
        const bool expected = onModel(request.classId, request.instance);
        const bool done =
            (OmciManagedEntityRegistrar::getInstance()->*onLibrary)(request.classId, request.instance) == 0;
        return done == expected ? "" : expected ? "expected success" : "expected refusal";
    }

    static std::string difference(const UploadedValues& expected, const UploadedValues& uploaded)
    {
        std::ostringstream text;
        for (const auto& [key, values] : expected) {
            const auto found = uploaded.find(key);
            if (found == uploaded.end()) {
                text << key.first << "/" << key.second << " is missing\n";
                continue;
            }
            for (const auto& [mask, value] : values) {
                const auto given = found->second.find(mask);
                if (given == found->second.end() || given->second != value) {
                    text << key.first << "/" << key.second << " " << std::hex << mask << std::dec << ": expected "
                         << hexOf(value) << ", uploaded "
                         << (given == found->second.end() ? "nothing" : hexOf(given->second)) << "\n";
                }
            }
        }
        for (const auto& [key, values] : uploaded) {
            text << (expected.count(key) == 0
                         ? std::to_string(key.first) + "/" + std::to_string(key.second) + " should not be there\n"
                         : "");
        }
        return text.str();
    }

    MibModel m_Mib;
    Subject m_Onu;
    std::vector<std::string> m_Played;
};

const ClassList& classes()
{
    static const ClassList list = readClassList(CLASS_LIST_DIRECTORY);
    return list;
}

const HardwareLayer kLayers[] = {HardwareLayer::Absent, HardwareLayer::Silent};

/// How a session went.
struct Course
{
    std::size_t steps = 0;   ///< those played
    std::string difference;  ///< empty: library and model agreed on every answer, and on the whole MIB at the end
    std::string played;
};

Course play(HardwareLayer layer, const Seeds& seeds)
{
    Session session(classes(), layer);
    Course course;
    while (course.steps < seeds.size() && course.difference.empty()) {
        course.difference = session.play({seeds[course.steps++]});
    }
    if (course.difference.empty()) {
        course.difference = session.compareUpload(true);
    }
    course.played = session.played();
    return course;
}

/// The steps without which the session does not fail, tried in ever smaller pieces.
Seeds reduced(HardwareLayer layer, Seeds seeds)
{
    for (std::size_t piece = seeds.size() / 2; piece > 0; piece /= 2) {
        for (std::size_t begin = 0; begin + piece <= seeds.size();) {
            Seeds fewer = seeds;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(begin);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(piece));
            const Course course = play(layer, fewer);
            if (course.difference.empty()) {
                begin += piece;
                continue;
            }
            fewer.resize(course.steps);
            seeds = fewer;
        }
    }
    return seeds;
}

/// Empty when library and model agree; else the least session in which they do not.
std::string disagreement(HardwareLayer layer, const Seeds& seeds)
{
    const Course course = play(layer, seeds);
    if (course.difference.empty()) {
        return "";
    }
    const Course least =
        play(layer, reduced(layer, Seeds(seeds.begin(), seeds.begin() + static_cast<std::ptrdiff_t>(course.steps))));
    return "\n" + least.played + "  " + least.difference;
}

unsigned long fromEnvironment(const char* name, unsigned long otherwise)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoul(text, nullptr, 0);
}

class MibModelTest : public ::testing::TestWithParam<HardwareLayer>
{};

std::string nameOf(const ::testing::TestParamInfo<HardwareLayer>& info)
{
    return info.param == HardwareLayer::Absent ? "WithoutHardware" : "WithSilentHardware";
}

}  // namespace

TEST_P(MibModelTest, EveryAnswerOfARandomSessionIsTheModels)
{
    // The same sessions on every machine and every day, unless others are asked for.
    const unsigned long seed = fromEnvironment("NRVK_MODEL_SEED", 20);
    const unsigned long sessions = fromEnvironment("NRVK_MODEL_SESSIONS", 100);
    std::mt19937 engine(static_cast<std::mt19937::result_type>(seed));
    for (unsigned long session = 0; session < sessions; ++session) {
        Seeds seeds(engine() % kLongestSession);
        std::generate(seeds.begin(), seeds.end(), std::ref(engine));
        ASSERT_EQ("", disagreement(GetParam(), seeds)) << "NRVK_MODEL_SEED=" << seed << ", session " << session;
    }
}

TEST_P(MibModelTest, ALongSessionStaysInStepWithTheModel)
{
    Seeds seeds(kLongSession);
    std::iota(seeds.begin(), seeds.end(), 1U);
    EXPECT_EQ("", disagreement(GetParam(), seeds));
}

INSTANTIATE_TEST_SUITE_P(Layers, MibModelTest, ::testing::ValuesIn(kLayers), nameOf);
