#ifndef TESTS_FAULTS_UPGRADE_H
#define TESTS_FAULTS_UPGRADE_H

#include <functional>

#include "SlotBoard.h"
#include "model/Message.h"

/// An OLT that upgrades the software of an ONU: it repeats what was refused, polls while the ONU is busy, and looks
/// before it commits. Each answer is held against the results that G.988 has for its message.
class Upgrade
{
public:
    /// Hands a request to the ONU and yields the contents of the answer.
    using Ask = std::function<model::Bytes(const model::Request&)>;
    /// The ONU restarts.
    using Restart = std::function<void()>;

    Upgrade(Ask ask, Restart restart, SlotBoard& board, bool isExtended);

    /// Whether all of it went well: the image is written, runs and is committed.
    bool play(const model::Bytes& image);
    /// What was no answer that G.988 permits; empty when all were.
    const std::string& complaint() const { return m_Complaint; }

    bool isCommitted(unsigned int instance) { return read(instance, 0x4000); }
    bool isActive(unsigned int instance) { return read(instance, 0x2000); }
    bool isValid(unsigned int instance) { return read(instance, 0x1000); }

private:
    bool read(unsigned int instance, unsigned int mask);
    /// The result of a command, anything but success being told apart from it.
    unsigned int command(std::uint8_t type, model::Bytes contents);
    bool start(const model::Bytes& image);
    bool sendImage(const model::Bytes& image);
    bool sendWindow(const model::Bytes& image, std::size_t begin, std::size_t end);
    bool end(const model::Bytes& image);
    bool activate();
    bool commit();

    Ask m_Ask;
    Restart m_Restart;
    SlotBoard& m_Board;
    bool m_IsExtended;
    std::uint16_t m_Target = 1;
    std::string m_Complaint;
};

#endif
