#ifndef NRVK_IMPL_BOUNDED_TEXT_H
#define NRVK_IMPL_BOUNDED_TEXT_H

#include <array>
#include <cstddef>

namespace nrvk {

/// An attribute's raw bytes as text for a log line, without the heap. A zero byte ends it; the attribute's size does so
/// at the latest.
template <std::size_t Size>
class BoundedText
{
public:
    explicit BoundedText(const unsigned char* bytes)
    {
        for (std::size_t i = 0; i < Size && bytes[i] != 0; ++i) {
            m_Text[i] = static_cast<char>(bytes[i]);
        }
    }

    const char* get() const { return m_Text.data(); }

private:
    std::array<char, Size + 1> m_Text{};
};

}  // namespace nrvk

#endif
