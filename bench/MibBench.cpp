// The MIB as a whole: start-up, upload and reset.
#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <list>
#include <map>

#include "Mib.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "Requests.h"

namespace {

std::vector<StartupConfigManagedEntity> picture()
{
    std::vector<StartupConfigManagedEntity> copy;
    OmciManagedEntityRegistrar::getInstance()->getConfigManagedEntityVector(copy);
    return copy;
}

void constructCore(benchmark::State& state)
{
    bench::dropReports();
    for (auto _ : state) {
        OmciManagedEntitiesCore core;
        benchmark::DoNotOptimize(&core);
    }
}
BENCHMARK(constructCore)->Name("construct_core")->Unit(benchmark::kMicrosecond);

/// The records themselves: lists, maps and bytes on the heap.
void constructCoreFloor(benchmark::State& state)
{
    const std::vector<StartupConfigManagedEntity> records = picture();
    for (auto _ : state) {
        std::vector<StartupConfigManagedEntity> copy = records;
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(constructCoreFloor)->Name("construct_core_floor")->Unit(benchmark::kMicrosecond);

void constructTemporaryCore(benchmark::State& state)
{
    bench::dropReports();
    for (auto _ : state) {
        OmciManagedEntitiesCore core(OmciManagedEntitiesCore::WithoutRecords{});
        benchmark::DoNotOptimize(&core);
    }
}
BENCHMARK(constructTemporaryCore)->Name("temporary_core")->Unit(benchmark::kMicrosecond);

/// No adapter and no instance of the picture is left.
void takeDown()
{
    std::vector<OmciMe*> adapters;
    OmciMeFactory* factory = OmciMeFactory::getInstance();
    for (OmciMe* me = factory->getFirstManagedEntity(); me != nullptr;
         me = factory->getNextManagedEntity(me->getManagedEntityClassId())) {
        adapters.push_back(me);
    }
    OmciManagedEntityRegistrar::getInstance()->unregisterSupportedManagedEntitiesAndInstances();
    for (const OmciMe* me : adapters) {
        delete me;
    }
}

void registerEverything(benchmark::State& state)
{
    bench::dropReports();
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    for (auto _ : state) {
        state.PauseTiming();
        takeDown();
        state.ResumeTiming();
        registrar->registerSupportedManagedEntities();
    }
}
BENCHMARK(registerEverything)->Name("register_everything")->Unit(benchmark::kMicrosecond);

/// Every stored value through the adapter's Set.
void registerEverythingFloor(benchmark::State& state)
{
    bench::dropReports();
    const std::vector<StartupConfigManagedEntity> records = picture();
    for (auto _ : state) {
        for (const StartupConfigManagedEntity& record : records) {
            const OmciMe& me = bench::adapter(record.classId);
            for (const auto& [key, value] : record.attributeValues) {
                std::array<unsigned char, 64> bytes{};
                std::memcpy(bytes.data(), value.data(), value.size());
                attributeDefinition definition{};
                definition.attributeMask = static_cast<unsigned short>(key);
                benchmark::DoNotOptimize(
                    me.setAttribute(static_cast<unsigned short>(key >> 16), &definition, bytes.data()));
            }
        }
    }
}
BENCHMARK(registerEverythingFloor)->Name("register_everything_floor")->Unit(benchmark::kMicrosecond);

/// All that a host does before it answers: core, picture, adapters, instances, values.
void startUpAfresh(benchmark::State& state)
{
    bench::dropReports();
    for (auto _ : state) {
        state.PauseTiming();
        takeDown();
        state.ResumeTiming();
        bench::startUp();
    }
}
BENCHMARK(startUpAfresh)->Name("start_up")->Unit(benchmark::kMicrosecond);

void mibUpload(benchmark::State& state)
{
    bench::dropReports();
    OmciFrame frame = bench::request(omci::MessageType::MibUpload, {});
    for (auto _ : state) {
        benchmark::DoNotOptimize(bench::adapter(2).mibUpload(&frame));
    }
}
BENCHMARK(mibUpload)->Name("mib_upload_snapshot")->Unit(benchmark::kMicrosecond);

/// Every uploaded value read once.
void mibUploadFloor(benchmark::State& state)
{
    bench::dropReports();
    const OmciMeFactory* factory = OmciMeFactory::getInstance();
    for (auto _ : state) {
        for (const OmciMe* me = factory->getFirstManagedEntity(); me != nullptr;
             me = factory->getNextManagedEntity(me->getManagedEntityClassId())) {
            if (!me->isPartOfMibUpload()) {
                continue;
            }
            std::list<attributeDefinition> list;
            me->getAttributesListForMibUpload(&list);
            unsigned short instance = 0;
            for (int more = me->getFirstManagedEntityInstance(&instance); more == 0;
                 more = me->getNextManagedEntityInstance(&instance)) {
                std::array<unsigned char, 64> bytes{};
                for (const attributeDefinition& definition : list) {
                    me->getAttribute(instance, &definition, bytes.data(), OMCI_ACTION_GET);
                }
                benchmark::DoNotOptimize(bytes.data());
            }
        }
    }
}
BENCHMARK(mibUploadFloor)->Name("mib_upload_snapshot_floor")->Unit(benchmark::kMicrosecond);

void mibUploadNext(benchmark::State& state)
{
    bench::dropReports();
    OmciFrame upload = bench::request(omci::MessageType::MibUpload, {});
    bench::adapter(2).mibUpload(&upload);
    OmciFrame frame = bench::request(omci::MessageType::MibUploadNext, {0, 5});
    for (auto _ : state) {
        benchmark::DoNotOptimize(bench::adapter(2).mibUploadNext(&frame));
    }
}
BENCHMARK(mibUploadNext)->Name("mib_upload_next");

void mibUploadNextFloor(benchmark::State& state)
{
    std::map<unsigned short, std::vector<unsigned char>> messages;
    for (unsigned short i = 0; i < 100; ++i) {
        messages.emplace(i, std::vector<unsigned char>(32));
    }
    std::array<unsigned char, 32> reply{};
    for (auto _ : state) {
        const std::vector<unsigned char>& message = messages.find(5)->second;
        std::memcpy(reply.data(), message.data(), message.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(mibUploadNextFloor)->Name("mib_upload_next_floor");

void mibReset(benchmark::State& state)
{
    bench::dropReports();
    for (auto _ : state) {
        benchmark::DoNotOptimize(bench::adapter(2).mibReset());
    }
}
BENCHMARK(mibReset)->Name("mib_reset")->Unit(benchmark::kMicrosecond);
BENCHMARK(registerEverythingFloor)->Name("mib_reset_floor")->Unit(benchmark::kMicrosecond);

}  // namespace
