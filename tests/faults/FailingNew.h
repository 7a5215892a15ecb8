#ifndef TESTS_FAULTS_FAILING_NEW_H
#define TESTS_FAULTS_FAILING_NEW_H

#include <cstddef>

/// The program's operator new as a failure point: one call of the calling thread throws std::bad_alloc.
namespace failingNew {

/// The call behind `calls` others fails, once.
void failAfter(std::size_t calls);
void disarm();
/// Calls of this thread since failAfter or disarm.
std::size_t calls();
/// Whether one of them was the failing one.
bool hasFailed();
/// Blocks that all threads hold.
std::size_t blocks();

}  // namespace failingNew

#endif
