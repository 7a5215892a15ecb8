// Counters: what the host feeds, and what the OLT then reads.
#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <vector>

#include "Floors.h"
#include "Logger.h"
#include "Mib.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "OmciMessage.h"
#include "StartupConfigManagedEntity.h"

namespace {

constexpr unsigned short kExtendedPm = 334;
constexpr unsigned short kSecond = 0x0101;
constexpr unsigned short kFirst = 0x0181;
constexpr std::size_t kCounters = 14;

/// The two entities of a port, in the MIB and in the registrar's picture, whatever ran before.
void makePm()
{
    // Without hardware each read reports its absence at level 3; what is measured is a line that is dropped.
    Logger::getInstance(150)->setLevel(2);
    const OmciMe& me = bench::adapter(kExtendedPm);
    for (const unsigned short instance : {kSecond, kFirst}) {
        me.deleteManagedEntityInstance(instance, true);
        me.createManagedEntityInstance(instance, true);
    }
}

void feedExtendedEthernet(benchmark::State& state)
{
    makePm();
    OmciManagedEntitiesCore core;
    EthernetFrameExtendedCounters first{};
    EthernetFrameExtendedCounters second{};
    for (auto _ : state) {
        ++first.octets;
        ++second.octets;
        benchmark::DoNotOptimize(core.updateEthernetFrameExtendedPM(kExtendedPm, kSecond, first, second));
    }
    state.SetItemsProcessed(state.iterations() * 2 * static_cast<std::int64_t>(kCounters));
}
BENCHMARK(feedExtendedEthernet)->Name("feed_ethernet_extended_pm");

/// For each of the 28 counters: the entry of the picture is found and rewritten, the value reaches an entity, and a
/// message on the heap comes and goes.
void feedExtendedEthernetFloor(benchmark::State& state)
{
    makePm();
    std::vector<StartupConfigManagedEntity> picture;
    OmciManagedEntityRegistrar::getInstance()->getConfigManagedEntityVector(picture);
    auto& store = bench::floorStore(kSecond);
    unsigned int value = 0;
    for (auto _ : state) {
        for (const unsigned short instance : {kFirst, kSecond}) {
            for (std::size_t counter = 0; counter < kCounters; ++counter) {
                ++value;
                for (StartupConfigManagedEntity& record : picture) {
                    if (record.classId == kExtendedPm) {
                        const unsigned int key = (static_cast<unsigned int>(instance) << 16) | (0x2000U >> counter);
                        const auto stored = record.attributeValues.find(key);
                        if (stored != record.attributeValues.end()) {
                            std::memcpy(stored->second.data(), &value, sizeof value);
                        }
                        break;
                    }
                }
                benchmark::DoNotOptimize(store.find(kSecond)->second->setNumber(value));
                const auto message = std::make_unique<OmciMessage>();
                benchmark::DoNotOptimize(message.get());
                benchmark::ClobberMemory();
            }
        }
    }
}
BENCHMARK(feedExtendedEthernetFloor)->Name("feed_ethernet_extended_pm_floor");

void getAllAttributes(benchmark::State& state)
{
    makePm();
    const OmciMe& me = bench::adapter(kExtendedPm);
    std::list<attributeDefinition> list;
    me.getAttributesListForGet(&list);
    const std::vector<attributeDefinition> definitions(list.begin(), list.end());
    std::array<unsigned char, 128> buffer{};
    for (auto _ : state) {
        std::size_t offset = 0;
        for (const attributeDefinition& definition : definitions) {
            benchmark::DoNotOptimize(me.getAttribute(kSecond, &definition, buffer.data() + offset, OMCI_ACTION_GET));
            offset += definition.attributeSize;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(getAllAttributes)->Name("get_all_ethernet_extended_pm");

/// Interval end time, control block and fourteen counters, each looked up in the store and turned to network order.
void getAllAttributesFloor(benchmark::State& state)
{
    auto& store = bench::floorStore(kSecond);
    std::array<unsigned char, 128> buffer{};
    for (auto _ : state) {
        buffer[0] = static_cast<unsigned char>(store.find(kSecond)->second->getNumber());
        std::memcpy(buffer.data() + 1, store.find(kSecond)->second->getOctets(), 16);
        for (std::size_t counter = 0; counter < kCounters; ++counter) {
            const unsigned int value = __builtin_bswap32(store.find(kSecond)->second->getNumber());
            std::memcpy(buffer.data() + 17 + 4 * counter, &value, sizeof value);
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(getAllAttributesFloor)->Name("get_all_ethernet_extended_pm_floor");

}  // namespace
