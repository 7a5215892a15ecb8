#ifndef TESTS_SOAK_ONU_MODEL_H
#define TESTS_SOAK_ONU_MODEL_H

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "WindowedPeer.h"

namespace soak {

/// Sends requests of all kinds, drawn by a seed, and knows what the ONU has to answer: it keeps what it has created and
/// set. Everything is checked when the answer comes against what held when the request was sent, which is the same as
/// long as the ONU answers in order.
class OnuModel
{
public:
    OnuModel(WindowedPeer& peer, unsigned seed) : m_Peer(peer), m_Chance(seed) {}

    /// Makes the MIB empty and reads what never changes.
    void begin();
    /// Sends at least one request.
    void step();

private:
    static constexpr unsigned kGemPorts = 64;
    static constexpr unsigned kTConts = 8;
    static constexpr unsigned kVlanRows = 32;

    /// A GEM port network CTP, class 268.
    struct GemPort
    {
        std::uint16_t portId = 0;
        std::uint16_t upstreamDescriptor = 0;
    };
    /// Values that nobody sets, as they were read first.
    struct Constant
    {
        std::uint16_t entityClass;
        std::uint16_t entityInstance;
        std::uint16_t mask;
        std::vector<std::uint8_t> values;
    };

    unsigned draw(unsigned below) { return static_cast<unsigned>(m_Chance() % below); }
    omci::Format drawFormat() { return draw(3) == 0 ? omci::Format::Extended : omci::Format::Baseline; }
    void send(omci::MessageType type, std::uint16_t entityClass, std::uint16_t entityInstance,
              std::vector<std::uint8_t> contents, Check check);
    void changed();
    void useGemPort();
    void createGemPort(unsigned number);
    void setGemPort(unsigned number);
    void getGemPort(unsigned number);
    void deleteGemPort(unsigned number);
    void useTCont();
    void useVlanRow();
    void readConstant();
    void readDataSync();
    void askForWhatIsNotThere();
    void sendRubbish();
    void doOnuWide();
    void testAndSetTime();
    void upload();
    void downloadDamaged();
    void readAlarms();
    void resetMib();
    void reboot();
    void forget();

    WindowedPeer& m_Peer;
    std::mt19937 m_Chance;
    std::uint64_t m_Steps = 0;
    std::uint8_t m_DataSync = 0;
    std::array<std::optional<GemPort>, kGemPorts> m_GemPorts;
    std::array<std::optional<std::uint16_t>, kTConts> m_AllocIds;
    std::array<bool, kVlanRows> m_VlanRows{};
    bool m_HasTagging = false;
    std::vector<Constant> m_Constants;
};

}  // namespace soak

#endif
