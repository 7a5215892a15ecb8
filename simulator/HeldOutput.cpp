#include "HeldOutput.h"

#include <cstdlib>

HeldOutput::HeldOutput() : m_Real(stdout), m_Held(open_memstream(&m_Text, &m_Size))
{
    if (m_Held != nullptr) {
        stdout = m_Held;
    }
}

HeldOutput::~HeldOutput()
{
    stdout = m_Real;
    if (m_Held != nullptr) {
        std::fclose(m_Held);
        std::fwrite(m_Text, 1, m_Size, m_Real);
        std::free(m_Text);
    }
    std::fflush(m_Real);
}

void HeldOutput::printFirst(const char* line)
{
    std::fputs(line, m_Real);
    std::fflush(m_Real);
}
