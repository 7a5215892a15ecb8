#include "Mic.h"

#include <openssl/core_names.h>
#include <openssl/evp.h>
#include <openssl/params.h>

#include <stdexcept>

#include "ByteOrder.h"
#include "FrameCodec.h"
#include "omci_host/CRC32.h"

namespace omci {

/// The keyed context, made once: starting it again for a frame costs no key schedule.
struct Mic::Cmac
{
    explicit Cmac(const Key& key)
    {
        EVP_MAC* const mac = EVP_MAC_fetch(nullptr, "CMAC", nullptr);
        m_Context = mac == nullptr ? nullptr : EVP_MAC_CTX_new(mac);
        EVP_MAC_free(mac);
        char cipher[] = "AES-128-CBC";
        const OSSL_PARAM parameters[] = {OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_CIPHER, cipher, 0),
                                         OSSL_PARAM_construct_end()};
        if (m_Context == nullptr || EVP_MAC_init(m_Context, key.data(), key.size(), parameters) != 1) {
            EVP_MAC_CTX_free(m_Context);
            throw std::runtime_error("AES-128-CMAC is not available in this OpenSSL");
        }
    }
    ~Cmac() { EVP_MAC_CTX_free(m_Context); }
    Cmac(const Cmac&) = delete;
    Cmac& operator=(const Cmac&) = delete;

    std::uint32_t compute(const std::uint8_t* frame, std::size_t length, Direction direction)
    {
        const auto directionOctet = static_cast<std::uint8_t>(direction);
        std::uint8_t mac[16] = {};
        std::size_t macLength = 0;
        const bool computed =
            EVP_MAC_init(m_Context, nullptr, 0, nullptr) == 1 && EVP_MAC_update(m_Context, &directionOctet, 1) == 1 &&
            EVP_MAC_update(m_Context, frame, length) == 1 && EVP_MAC_final(m_Context, mac, &macLength, sizeof mac) == 1;
        if (!computed) {
            throw std::runtime_error("AES-128-CMAC failed");
        }
        return read32(mac);
    }

    EVP_MAC_CTX* m_Context;
};

namespace {

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool parseKey(std::string_view digits, Mic::Key& key)
{
    if (digits.size() != 2 * key.size()) {
        return false;
    }
    for (std::size_t i = 0; i < key.size(); ++i) {
        const int high = hexDigit(digits[2 * i]);
        const int low = hexDigit(digits[2 * i + 1]);
        if (high < 0 || low < 0) {
            return false;
        }
        key[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return true;
}

}  // namespace

Mic::Mic() = default;
Mic::Mic(const Key& key) : m_Mode(Mode::Cmac), m_Cmac(std::make_unique<Cmac>(key))
{}
Mic::~Mic() = default;
Mic::Mic(Mic&&) noexcept = default;
Mic& Mic::operator=(Mic&&) noexcept = default;

std::optional<Mic> Mic::parse(std::string_view text, std::string& problem)
{
    if (text == "none") {
        return Mic();
    }
    if (text == "crc32") {
        Mic mic;
        mic.m_Mode = Mode::Crc32;
        return mic;
    }
    constexpr std::string_view prefix = "cmac:";
    if (text.substr(0, prefix.size()) != prefix) {
        problem = "unknown MIC mode '" + std::string(text) + "': use none, crc32 or cmac:KEY";
        return std::nullopt;
    }
    Key key{};
    if (!parseKey(text.substr(prefix.size()), key)) {
        problem = "the MIC key must be 32 hexadecimal digits";
        return std::nullopt;
    }
    return Mic(key);
}

std::uint32_t Mic::compute(const std::uint8_t* frame, std::size_t length, Direction direction) const
{
    if (m_Mode == Mode::Crc32) {
        CRC32 crc;
        crc.m_Crc = 0xFFFFFFFF;
        return crc.getCRC(const_cast<std::uint8_t*>(frame), static_cast<int>(length));
    }
    return m_Mode == Mode::Cmac ? m_Cmac->compute(frame, length, direction) : 0;
}

bool Mic::check(const std::uint8_t* frame, std::size_t length, Direction direction) const
{
    if (m_Mode == Mode::None) {
        return true;
    }
    return length > kMicLength && read32(frame + length - kMicLength) == compute(frame, length - kMicLength, direction);
}

void Mic::seal(std::uint8_t* frame, std::size_t length, Direction direction) const
{
    if (length > kMicLength) {
        write32(frame + length - kMicLength, compute(frame, length - kMicLength, direction));
    }
}

}  // namespace omci
