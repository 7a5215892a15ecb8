// The layer-2 data path: rows of the VLAN tagging table, and a whole service through frames.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <list>
#include <vector>

#include "Floors.h"
#include "Frames.h"
#include "Mib.h"
#include "TaggedUni.h"
#include "host/Dispatcher.h"
#include "host/Mic.h"

namespace {

using omci::MessageType;
using Bytes = std::vector<unsigned char>;
using bench::DataPathHardware;
using bench::kTagging;
using bench::kUni;
using bench::TaggedUni;
using bench::Tagging;
using bench::translation;
using bench::unsetOf;
using bench::VlanRow;

constexpr unsigned short kRules = 1000;
/// The least that a table of rules needs: seven fields of the filter, the rest as it is.
struct FloorRule
{
    std::array<unsigned short, 7> filter;
    std::array<unsigned short, 9> rest;
};

unsigned int word(const VlanRow& row, std::size_t index)
{
    const unsigned char* bytes = row.data() + 4 * index;
    return static_cast<unsigned int>(bytes[0]) << 24 | static_cast<unsigned int>(bytes[1]) << 16 |
           static_cast<unsigned int>(bytes[2]) << 8 | bytes[3];
}

FloorRule decode(const VlanRow& row)
{
    const auto field = [&row](std::size_t index, unsigned int shift, unsigned int bits) {
        return static_cast<unsigned short>(word(row, index) >> shift & ((1U << bits) - 1));
    };
    return {{field(0, 28, 4), field(0, 15, 13), field(0, 12, 3), field(1, 28, 4), field(1, 15, 13), field(1, 12, 3),
             field(1, 0, 4)},
            {field(2, 30, 2), field(2, 20, 10), field(2, 16, 4), field(2, 3, 13), field(2, 0, 3), field(3, 20, 12),
             field(3, 16, 4), field(3, 3, 13), field(3, 0, 3)}};
}

void vlanRowSet(benchmark::State& state)
{
    const TaggedUni uni;
    unsigned short count = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(uni.set(translation(count)));
        if (++count == kRules) {
            TaggedUni::clear();
            count = 0;
        }
    }
}
BENCHMARK(vlanRowSet)->Name("vlan_row_set");

/// Found, decoded, appended, and one virtual call on what the rule is for.
void vlanRowSetFloor(benchmark::State& state)
{
    auto& store = bench::floorStore(kTagging);
    std::vector<FloorRule> table;
    unsigned short count = 0;
    for (auto _ : state) {
        auto* entity = store.find(kTagging)->second;
        table.push_back(decode(translation(count)));
        benchmark::DoNotOptimize(entity->setNumber(count));
        if (++count == kRules) {
            table.clear();
            count = 0;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(vlanRowSetFloor)->Name("vlan_row_set_floor");

/// The rules of the table's second half, round and round: the one in the middle is unset and set again, which puts it
/// at the end.
class MiddleRule
{
public:
    VlanRow next()
    {
        constexpr unsigned short half = kRules / 2;
        m_Index = static_cast<unsigned short>((m_Index + 1) % half);
        return translation(static_cast<unsigned short>(half + m_Index));
    }

private:
    unsigned short m_Index = kRules / 2 - 1;
};

void vlanUnsetAmong1000(benchmark::State& state)
{
    const TaggedUni uni;
    for (unsigned short vid = 0; vid < kRules; ++vid) {
        uni.set(translation(vid));
    }
    MiddleRule middle;
    for (auto _ : state) {
        const VlanRow row = middle.next();
        benchmark::DoNotOptimize(uni.set(unsetOf(row)));
        benchmark::DoNotOptimize(uni.set(row));
    }
    const std::size_t left = nrvk::getTableOfReceivedFrames(*Tagging::getManagedEntityInstance(kTagging)).size();
    if (left != kRules) {
        state.SkipWithError("an unset frame did not find its rule");
    }
}
BENCHMARK(vlanUnsetAmong1000)->Name("vlan_unset_and_set_among_1000");

void vlanUnsetAmong1000Floor(benchmark::State& state)
{
    auto& store = bench::floorStore(kTagging);
    std::vector<FloorRule> table;
    for (unsigned short vid = 0; vid < kRules; ++vid) {
        table.push_back(decode(translation(vid)));
    }
    MiddleRule middle;
    for (auto _ : state) {
        const VlanRow row = middle.next();
        const FloorRule wanted = decode(unsetOf(row));
        table.erase(std::find_if(table.begin(), table.end(),
                                 [&wanted](const FloorRule& rule) { return rule.filter == wanted.filter; }));
        benchmark::DoNotOptimize(store.find(kTagging)->second->setNumber(0));
        table.push_back(decode(row));
        benchmark::DoNotOptimize(store.find(kTagging)->second->setNumber(1));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(vlanUnsetAmong1000Floor)->Name("vlan_unset_and_set_among_1000_floor");

struct Step
{
    MessageType type;
    unsigned short classId;
    unsigned short instance;
    Bytes contents;
};

Bytes withRow(const VlanRow& row)
{
    Bytes contents = {0x04, 0x00};
    contents.insert(contents.end(), row.begin(), row.end());
    return contents;
}

/// Internet on an Ethernet UNI: T-CONT, GEM port, mapper, bridge with two ports, filter, tagging, unlock.
std::vector<Step> service()
{
    const Bytes noTps(18, 0xFF);
    Bytes mapper = noTps;
    mapper.insert(mapper.end(), {1, 0, 0});
    Bytes pointers = {0x7F, 0x80};
    for (int pBit = 0; pBit < 8; ++pBit) {
        pointers.insert(pointers.end(), {0, 1});
    }
    Bytes filter(26, 0);
    filter[1] = 100;
    filter[24] = 16;
    filter[25] = 1;
    return {{MessageType::Set, 262, 0x100, {0x80, 0x00, 0x04, 0x00}},
            {MessageType::Create, 272, 1, {0x0F, 0xFF}},
            {MessageType::Create, 268, 1, {0x03, 0xE9, 0x01, 0x00, 3, 0x80, 0x00, 0, 0, 0, 0, 0, 0, 0}},
            {MessageType::Create, 45, 1, Bytes(20, 0)},
            {MessageType::Create, 130, 1, mapper},
            {MessageType::Create, 266, 1, {0, 1, 5, 0, 1, 0, 0, 0, 0, 1}},
            {MessageType::Set, 130, 1, pointers},
            {MessageType::Create, 47, 1, {0, 1, 1, 3, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}},
            {MessageType::Create, 47, 2, {0, 1, 2, 1, 0x01, 0x01, 0, 0, 0, 0, 0, 0, 0, 0}},
            {MessageType::Create, 84, 1, filter},
            {MessageType::Create, 171, 1, {2, 0x01, 0x01}},
            {MessageType::Set, 171, 1, {0x38, 0x00, 0x81, 0x00, 0x81, 0x00, 0}},
            {MessageType::Set, 171, 1, withRow(translation(10))},
            {MessageType::Set, 171, 1, withRow(translation(20))},
            {MessageType::Set, 11, kUni, {0x08, 0x00, 0}}};
}

/// Takes the service down, out of the measurement's time.
void takeDown(const std::vector<Step>& steps)
{
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        if (step->type == MessageType::Create) {
            bench::adapter(step->classId).deleteManagedEntityInstance(step->instance, true);
        }
    }
    OmciMePptpEthernetUniIf::getManagedEntityInstance(kUni)->setAdministrativeState(1);
}

/// An Ethernet UNI with hardware below it, for as long as it lives.
struct ServedUni
{
    ServedUni() { OmciMePptpEthernetUniIf::createManagedEntityInstance(kUni, false); }
    ~ServedUni() { OmciMePptpEthernetUniIf::deleteManagedEntityInstance(kUni, false); }
    ServedUni(const ServedUni&) = delete;
    ServedUni& operator=(const ServedUni&) = delete;

    DataPathHardware hardware;
};

void provisionService(benchmark::State& state)
{
    constexpr std::size_t resultAt = 8;
    bench::dropReports();
    const ServedUni uni;
    const std::vector<Step> steps = service();
    std::vector<Bytes> frames;
    frames.reserve(steps.size());
    for (const Step& step : steps) {
        frames.push_back(bench::baselineRequest(step.type, step.classId, step.instance, step.contents));
    }
    omci::Dispatcher dispatcher{omci::Mic()};
    unsigned short transaction = 0;
    for (auto _ : state) {
        for (Bytes& frame : frames) {
            bench::setTransactionId(frame, ++transaction);
            const omci::Dispatcher::Reply reply = dispatcher.handle(frame.data(), frame.size());
            if (reply.length <= resultAt || reply.data[resultAt] != 0) {
                state.SkipWithError("a frame of the service was refused");
                return;
            }
        }
        state.PauseTiming();
        takeDown(steps);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(provisionService)->Name("provision_service")->Unit(benchmark::kMicrosecond);

/// What the steps do through the adapters, with every attribute looked up beforehand.
struct AdapterCalls
{
    const OmciMe* me;
    unsigned short instance;
    bool creates;
    std::vector<std::pair<attributeDefinition, Bytes>> values;
};

AdapterCalls callsOf(const Step& step)
{
    constexpr std::size_t spareBytes = 8;
    AdapterCalls calls{&bench::adapter(step.classId), step.instance, step.type == MessageType::Create, {}};
    std::list<attributeDefinition> list;
    auto at = step.contents.begin();
    unsigned short mask = 0xFFFF;
    if (calls.creates) {
        calls.me->getAttributesListForCreate(&list);
    } else {
        calls.me->getAttributesListForSet(&list);
        mask = static_cast<unsigned short>(at[0] << 8 | at[1]);
        at += 2;
    }
    for (const attributeDefinition& definition : list) {
        if ((definition.attributeMask & mask) != 0) {
            Bytes value(at, at + definition.attributeSize);
            at += definition.attributeSize;
            value.resize(value.size() + spareBytes);
            calls.values.emplace_back(definition, value);
        }
    }
    return calls;
}

void provisionServiceFloor(benchmark::State& state)
{
    bench::dropReports();
    const ServedUni uni;
    const std::vector<Step> steps = service();
    std::vector<AdapterCalls> all;
    all.reserve(steps.size());
    for (const Step& step : steps) {
        all.push_back(callsOf(step));
    }
    for (auto _ : state) {
        for (const AdapterCalls& calls : all) {
            if (calls.creates) {
                calls.me->createManagedEntityInstance(calls.instance, true);
            }
            for (const auto& [definition, value] : calls.values) {
                benchmark::DoNotOptimize(calls.me->setAttribute(calls.instance, &definition, value.data()));
            }
            if (!calls.creates) {
                benchmark::DoNotOptimize(calls.me->applyConfigurationToHardwareForSet(calls.instance));
            }
        }
        state.PauseTiming();
        takeDown(steps);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(provisionServiceFloor)->Name("provision_service_floor")->Unit(benchmark::kMicrosecond);

}  // namespace
