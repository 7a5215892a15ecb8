#include "hardware/CounterReports.h"

#include <functional>
#include <map>

#include "JsonValues.h"

namespace {
using Check = std::function<void(const Json&, const std::string&)>;

template <typename Record>
Check checkOf()
{
    return [](const Json& json, const std::string& what) {
        Record record{};
        values::from(json, record, what);
    };
}

void checkFrames(const Json& json, const std::string& what)
{
    frameCounters(json, what);
}

const std::map<unsigned short, Check>& checks()
{
    static const std::map<unsigned short, Check> all = {
        {24, checkFrames},
        {321, checkFrames},
        {322, checkFrames},
        {334, checkFrames},
        {425, checkFrames},
        {267, checkOf<GemPortCounters>()},
        {341, checkOf<GemPortCounters>()},
        {276, checkOf<GalEthPMHistData>()},
        {312, checkOf<TwdmFecCounters>()},
        {65406, checkOf<TwdmPhyLodsCounters>()},
        {65407, checkOf<TwdmXgemCounters>()},
        {65408, checkOf<TwdmPloamCounters>()},
        {65409, checkOf<TwdmPloamCounters>()},
        {65410, checkOf<TwdmPloamCounters>()},
        {65411, checkOf<TwdmTuningCounters>()},
        {65412, checkOf<TwdmTuningCounters>()},
        {65413, checkOf<TwdmTuningCounters>()},
        {65414, checkOf<TwdmOmciCounters>()},
    };
    return all;
}
}  // namespace

FrameCounters frameCounters(const Json& counters, const std::string& what)
{
    FrameCounters both;
    const bool isPair = counters.is_array() && counters.size() == 2 && counters[0].is_structured();
    values::from(isPair ? counters[0] : counters, both.first, what);
    if (isPair) {
        values::from(counters[1], both.second, what);
    }
    return both;
}

Json checkedCounters(unsigned short classId, const Json& counters, const std::string& what)
{
    const auto check = checks().find(classId);
    if (check == checks().end()) {
        throw BadRequest(what + ": class " + std::to_string(classId) + " is not fed with counters");
    }
    check->second(counters, what);
    return counters;
}

unsigned short counterFamily(unsigned short classId)
{
    switch (classId) {
    case 267:
        return 341;
    case 321:
    case 322:
        return 24;
    case 65409:
    case 65410:
        return 65408;
    case 65412:
    case 65413:
        return 65411;
    default:
        return classId;
    }
}

unsigned short counterInstance(unsigned short classId, unsigned short instance)
{
    constexpr unsigned short directionBit = 0x80;
    const bool isPair = classId == 334 || classId == 425;
    return isPair ? static_cast<unsigned short>(instance & ~directionBit) : instance;
}
