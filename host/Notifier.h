#ifndef HOST_NOTIFIER_H
#define HOST_NOTIFIER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>

#include "FrameCodec.h"
#include "Mic.h"

class OmciMessage;

namespace omci {

/// Frames and sends what the ONU tells unasked: attribute value changes, alarms and test results.
///
/// Frames have transaction id 0 and the format of the OLT's last request. Attribute value changes and alarms stay
/// unsent until the OLT has uploaded or reset the MIB, for before that it has nothing to apply them to. Any thread may
/// call; the sink is called by one thread at a time and must not call back.
class Notifier
{
public:
    /// Takes one finished frame, which is only good during the call.
    using Sink = std::function<void(const std::uint8_t* frame, std::size_t length)>;

    /// `sink` sends what `mic` has sealed; both are kept.
    Notifier(Sink sink, Mic mic);

    /// What the hardware layer got through sendAttributeValueChange; laid out as
    /// OmciMe::buildAttributeValueChangeMessage tells. Null or broken messages are ignored.
    void sendAttributeValueChange(OmciMessage* message);

    /// Sets or clears an alarm through the class's adapter, and notifies when that changes the bitmap of a class that
    /// is part of get all alarms. False when the class, the instance or the alarm number (0 to 222) does not exist.
    bool raiseAlarm(std::uint16_t classId, std::uint16_t instance, unsigned alarm, bool state);

    /// Sends the outcome of a test under the transaction id of its request, whatever the OLT knows of the MIB.
    void sendTestResult(std::uint16_t transactionId, std::uint16_t classId, std::uint16_t instance,
                        const std::uint8_t* contents, std::size_t length);

    /// @name Told by the dispatcher
    /// @{

    /// The format of the OLT's last request, which unsolicited messages take.
    void setFormat(Format format);
    /// The OLT has begun an upload or has reset the MIB.
    void setMibKnown(bool known);
    /// The next alarm has sequence number 1 again, as after get all alarms.
    void restartAlarmSequence();

    /// Keeps attribute value changes and alarms back while the MIB is being rebuilt.
    class Pause
    {
    public:
        /// `notifier` may be null; pauses nest.
        explicit Pause(Notifier* notifier);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        Notifier* m_Notifier;
    };
    /// @}

    /// Messages since the notifier was made.
    struct Counters
    {
        std::uint64_t attributeValueChanges = 0;  ///< sent
        std::uint64_t alarms = 0;                 ///< sent
        std::uint64_t testResults = 0;            ///< sent
        /// Kept back because the OLT did not know the MIB.
        std::uint64_t suppressed = 0;
    };
    /// Any thread.
    Counters counters() const;

private:
    bool maySend();
    void send(const FrameHeader& header, const std::uint8_t* contents, std::size_t length);

    mutable std::mutex m_Mutex;
    Sink m_Sink;
    Mic m_Mic;
    Format m_Format = Format::Baseline;
    bool m_MibKnown = false;
    unsigned m_Pauses = 0;
    std::uint8_t m_AlarmSequence = 0;
    Counters m_Counters;
    std::array<std::uint8_t, kMaximumFrameLength> m_Frame;
};

}  // namespace omci

#endif
