#include <benchmark/benchmark.h>

#include "Logger.h"
#include "Mib.h"

int main(int argc, char** argv)
{
    bench::dropReports();
    bench::startUp();
    Logger::getInstance(150)->setLevel(5);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
