// Goes every fixed road once. A profiler counts; the output says how many operations each function stands for.
#include <cstdio>

#include "Mib.h"
#include "NorvikTimer.h"
#include "Roads.h"

int main()
{
    // No time passes: what the library reads again after two seconds would fall on one road or another.
    NorvikTimer::setTimeScale(0.0001);
    bench::dropReports();
    bench::startUp();
    for (const bench::Road* road = bench::firstRoad(); road != bench::endOfRoads(); ++road) {
        road->prepare();
        road->run(road->operations);
        road->cleanUp();
        std::printf("%s %u\n", road->function, road->operations);
    }
    return 0;
}
