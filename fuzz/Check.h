#ifndef FUZZ_CHECK_H
#define FUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>

namespace fuzz {

[[noreturn]] inline void fail(const char* condition, const char* file, int line)
{
    std::fprintf(stderr, "%s:%d: broken: %s\n", file, line, condition);
    std::abort();
}

}  // namespace fuzz

/// Stops the fuzzer: an answer was wrong.
#define FUZZ_CHECK(condition) ((condition) ? (void)0 : ::fuzz::fail(#condition, __FILE__, __LINE__))

#endif
