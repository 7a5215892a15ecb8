#ifndef HOST_MIC_H
#define HOST_MIC_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace omci {

/// The octet that enters the integrity check ahead of the frame.
enum class Direction : std::uint8_t
{
    Downstream = 1,  ///< OLT to ONU
    Upstream = 2     ///< ONU to OLT
};

/// Message integrity check: the last four octets of a frame. One object serves one thread.
class Mic
{
public:
    /// How the four octets come about.
    enum class Mode
    {
        None,   ///< sent as zeros, not checked
        Crc32,  ///< CRC-32 as in AAL5
        Cmac    ///< AES-128-CMAC with the OMCI integrity key (G.9807.1 annex B)
    };
    /// The OMCI integrity key.
    using Key = std::array<std::uint8_t, 16>;

    /// Mode None.
    Mic();
    /// Mode Cmac.
    explicit Mic(const Key& key);
    ~Mic();
    /// @{

    /// Takes mode and key over; the other is good for destruction only.
    Mic(Mic&&) noexcept;
    Mic& operator=(Mic&&) noexcept;
    /// @}

    /// Reads "none", "crc32" or "cmac:" and 32 hexadecimal digits. Nothing on failure, with the reason in `problem`.
    static std::optional<Mic> parse(std::string_view text, std::string& problem);

    /// How the four octets come about with this object.
    Mode mode() const { return m_Mode; }

    /// Whether the last four octets of the whole frame are right. Always true with mode None.
    bool check(const std::uint8_t* frame, std::size_t length, Direction direction) const;
    /// Writes the last four octets of the whole frame.
    void seal(std::uint8_t* frame, std::size_t length, Direction direction) const;

private:
    struct Cmac;

    /// Over `length` octets of a frame without its MIC.
    std::uint32_t compute(const std::uint8_t* frame, std::size_t length, Direction direction) const;

    Mode m_Mode = Mode::None;
    std::unique_ptr<Cmac> m_Cmac;
};

}  // namespace omci

#endif
