// One attribute through the adapter, and one run-time update.
#include <benchmark/benchmark.h>

#include <array>
#include <cstring>

#include "Floors.h"
#include "Mib.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "StartupConfigManagedEntity.h"

namespace {

struct Subject
{
    unsigned short classId;
    unsigned short instance;
    unsigned short mask;
};

constexpr Subject kU8 = {2, 0, 0x8000};          // ONU data, MIB data sync
constexpr Subject kU16 = {263, 1025, 0x2000};    // ANI-G, GEM block length
constexpr Subject kOctets25 = {242, 0, 0x8000};  // ONT feature, feature mask

void adapterSet(benchmark::State& state, Subject subject)
{
    const OmciMe& me = bench::adapter(subject.classId);
    const attributeDefinition definition = bench::definition(subject.classId, subject.mask);
    std::array<unsigned char, 64> buffer{};
    for (auto _ : state) {
        ++buffer[0];
        benchmark::DoNotOptimize(me.setAttribute(subject.instance, &definition, buffer.data()));
    }
}

void adapterGet(benchmark::State& state, Subject subject)
{
    const OmciMe& me = bench::adapter(subject.classId);
    const attributeDefinition definition = bench::definition(subject.classId, subject.mask);
    std::array<unsigned char, 64> buffer{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(me.getAttribute(subject.instance, &definition, buffer.data(), OMCI_ACTION_GET));
        benchmark::ClobberMemory();
    }
}

void setNumberFloor(benchmark::State& state)
{
    auto& store = bench::floorStore(1025);
    std::array<unsigned char, 4> buffer{};
    for (auto _ : state) {
        ++buffer[1];
        const auto found = store.find(1025);
        const auto value = static_cast<unsigned int>((buffer[0] << 8) | buffer[1]);
        benchmark::DoNotOptimize(found->second->setNumber(value));
        benchmark::ClobberMemory();
    }
}

void getNumberFloor(benchmark::State& state)
{
    auto& store = bench::floorStore(1025);
    std::array<unsigned char, 4> buffer{};
    for (auto _ : state) {
        const unsigned int value = store.find(1025)->second->getNumber();
        buffer[0] = static_cast<unsigned char>(value >> 8);
        buffer[1] = static_cast<unsigned char>(value);
        benchmark::ClobberMemory();
    }
}

void setOctetsFloor(benchmark::State& state)
{
    auto& store = bench::floorStore(0);
    std::array<unsigned char, 64> buffer{};
    for (auto _ : state) {
        ++buffer[0];
        benchmark::DoNotOptimize(store.find(0)->second->setOctets(buffer.data()));
        benchmark::ClobberMemory();
    }
}

void getOctetsFloor(benchmark::State& state)
{
    auto& store = bench::floorStore(0);
    std::array<unsigned char, 64> buffer{};
    for (auto _ : state) {
        std::memcpy(buffer.data(), store.find(0)->second->getOctets(), 25);
        benchmark::ClobberMemory();
    }
}

BENCHMARK_CAPTURE(adapterSet, u8, kU8)->Name("adapter_set_u8");
BENCHMARK(setNumberFloor)->Name("adapter_set_u8_floor");
BENCHMARK_CAPTURE(adapterSet, u16, kU16)->Name("adapter_set_u16");
BENCHMARK(setNumberFloor)->Name("adapter_set_u16_floor");
BENCHMARK_CAPTURE(adapterSet, octets25, kOctets25)->Name("adapter_set_octets25");
BENCHMARK(setOctetsFloor)->Name("adapter_set_octets25_floor");
BENCHMARK_CAPTURE(adapterGet, u8, kU8)->Name("adapter_get_u8");
BENCHMARK(getNumberFloor)->Name("adapter_get_u8_floor");
BENCHMARK_CAPTURE(adapterGet, u16, kU16)->Name("adapter_get_u16");
BENCHMARK(getNumberFloor)->Name("adapter_get_u16_floor");
BENCHMARK_CAPTURE(adapterGet, octets25, kOctets25)->Name("adapter_get_octets25");
BENCHMARK(getOctetsFloor)->Name("adapter_get_octets25_floor");

void updateUnsignedInt(benchmark::State& state)
{
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    unsigned int value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(registrar->updateManagedEntity<unsigned int>(257, 0, 0x0040, ++value));
    }
}
BENCHMARK(updateUnsignedInt)->Name("update_unsigned_int");

/// The entry of the picture is found and rewritten, and the value reaches an entity.
void updateUnsignedIntFloor(benchmark::State& state)
{
    std::vector<StartupConfigManagedEntity> picture;
    OmciManagedEntityRegistrar::getInstance()->getConfigManagedEntityVector(picture);
    auto& store = bench::floorStore(0);
    unsigned int value = 0;
    for (auto _ : state) {
        ++value;
        for (StartupConfigManagedEntity& record : picture) {
            if (record.classId == 257) {
                std::vector<unsigned char>& stored = record.attributeValues.find(0x0040)->second;
                std::memcpy(stored.data(), &value, sizeof value);
                break;
            }
        }
        benchmark::DoNotOptimize(store.find(0)->second->setNumber(value));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(updateUnsignedIntFloor)->Name("update_unsigned_int_floor");

}  // namespace
