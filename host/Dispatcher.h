#ifndef HOST_DISPATCHER_H
#define HOST_DISPATCHER_H

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "CommandExecutor.h"
#include "FrameCodec.h"
#include "Mic.h"
#include "Statistics.h"
#include "omci_host/OmciFrame.h"

namespace omci {

class Notifier;
class RecentRequests;

/// Received octets in, reply octets out. Owns its buffers: a get or set allocates nothing once the class's attribute
/// lists are known. One thread uses it, the one that calls the library.
class Dispatcher
{
public:
    /// A retransmission that comes later than this after its request is run as a new one.
    static constexpr std::chrono::seconds kRetransmissionTime{3};

    /// `mic` checks what is received and seals what is sent. `notifier` may be null and is not owned.
    explicit Dispatcher(Mic mic, Notifier* notifier = nullptr);
    ~Dispatcher();
    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;

    /// A whole frame, good until the next `handle`. Empty when no reply is due.
    struct Reply
    {
        const std::uint8_t* data = nullptr;  ///< the frame, owned by the dispatcher
        std::size_t length = 0;              ///< octets; 0 when no reply is due
    };

    /// Runs one received frame. Never throws for what the library does: that becomes a processing error reply and a
    /// level 3 log line. Frames that nobody can be answered for are counted, logged at level 4 and dropped.
    /// `peer` is any number that stands for the sender, for hosts with several: transaction ids are each peer's own.
    Reply handle(const std::uint8_t* bytes, std::size_t length, std::uint64_t peer = 0);

    /// The request that runs, for those who are called while it does; afterwards the last one.
    const OmciFrame& request() const { return m_Frame; }

    /// Counters since the dispatcher was made. To be read on its thread.
    const Statistics& statistics() const { return m_Statistics; }

    /// Extended messages are dropped from now on, as an ONU does that has never heard of them. The OMCC version
    /// attribute (ONU2-G, class 257) is to say the same; that is the caller's affair.
    void takeBaselineOnly() { m_BaselineOnly = true; }

    /// Forgets the last requests, as at a restart of the ONU.
    void forgetRequests();

private:
    using Clock = std::chrono::steady_clock;

    /// The last request of one priority and its reply.
    struct LastRequest
    {
        std::uint64_t peer = 0;
        std::size_t requestLength = 0;
        std::size_t replyLength = 0;
        Clock::time_point time{};
        std::array<std::uint8_t, kMaximumFrameLength> request;
        std::array<std::uint8_t, kMaximumFrameLength> reply;
    };

    /// An entry of the statistics, found without a search.
    struct KnownHandler
    {
        std::uint16_t entityClass = 0;
        HandlerTime* time = nullptr;
    };

    Reply drop(DropReason reason, const FrameHeader* header, std::size_t length);
    Reply refuseMalformed(const Decoded& decoded, std::size_t length);
    Reply run(const FrameView& view, const std::uint8_t* bytes, std::uint64_t peer);
    /// Whether this is a copy of an earlier request, with the reply that one had. A new one is remembered as the last.
    bool isCopy(const FrameHeader& header, const std::uint8_t* bytes, std::size_t significant, std::uint64_t peer,
                Clock::time_point now, Reply& reply);
    void executeGuarded();
    void countTime(const FrameHeader& header, std::chrono::nanoseconds taken);
    /// Null when there is no memory for the class's first figures.
    HandlerTime* handlerTime(std::uint16_t entityClass);
    std::size_t encodeReply(const FrameHeader& request, std::uint8_t* out);
    void count(const FrameHeader& header);

    Mic m_Mic;
    Notifier* m_Notifier;
    CommandExecutor m_Executor;
    Statistics m_Statistics;
    std::array<KnownHandler, 256> m_KnownHandlers{};
    OmciFrame m_Frame;
    bool m_BaselineOnly = false;
    /// By the priority bit of the transaction id; the third is for requests that are not kept.
    std::array<LastRequest, 3> m_LastRequests;
    std::unique_ptr<RecentRequests> m_RecentRequests;
};

}  // namespace omci

#endif
