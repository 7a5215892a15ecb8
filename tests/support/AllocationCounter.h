#ifndef TESTS_SUPPORT_ALLOCATION_COUNTER_H
#define TESTS_SUPPORT_ALLOCATION_COUNTER_H

#include <cstddef>

/// How often the calling thread has called operator new so far.
std::size_t allocationsOfThisThread();

#endif
