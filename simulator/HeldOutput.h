#ifndef SIMULATOR_HELD_OUTPUT_H
#define SIMULATOR_HELD_OUTPUT_H

#include <cstddef>
#include <cstdio>

/// While one lives, what anybody prints on standard output waits; it comes out at the end. The library prints as it
/// likes, and the program's first line is promised to be another.
class HeldOutput
{
public:
    HeldOutput();
    ~HeldOutput();
    HeldOutput(const HeldOutput&) = delete;
    HeldOutput& operator=(const HeldOutput&) = delete;

    /// Prints a line ahead of all that waits.
    void printFirst(const char* line);

private:
    FILE* m_Real;
    char* m_Text = nullptr;
    std::size_t m_Size = 0;
    FILE* m_Held;
};

#endif
