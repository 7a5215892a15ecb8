#ifndef NRVK_BENCH_ROADS_H
#define NRVK_BENCH_ROADS_H

namespace bench {

/// A road through the library whose instructions are counted from the entry of `run` to its end.
struct Road
{
    /// Of `run`, as a profiler names it.
    const char* function;
    /// What is to be there first; runs the road once, so that what is made at first use is made.
    void (*prepare)();
    /// Goes the road `operations` times.
    void (*run)(unsigned int operations);
    unsigned int operations;
    void (*cleanUp)();
};

const Road* firstRoad();
const Road* endOfRoads();

}  // namespace bench

#endif
