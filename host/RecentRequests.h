#ifndef HOST_RECENT_REQUESTS_H
#define HOST_RECENT_REQUESTS_H

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

#include "FrameCodec.h"

namespace omci {

/// Knows the requests of the last few seconds that changed something, and the last replies to them, so that a copy of
/// one that arrives after later requests is not run again: a Set would bring back a value that the OLT has replaced
/// since, a Create would be refused. An optical line keeps the order of frames and doubles none; what carries them
/// elsewhere may do both.
///
/// A copy comes from the same peer, with the same transaction id and the same octets. A peer that gives one id to
/// different requests does not count its transactions, and its requests are all new. Requests that read are not known:
/// they may run twice, and are to tell what holds now.
///
/// Download sections are known too, for one that comes in a later window would be taken for that window's; so would one
/// that was on its way for so long that a whole window has overtaken it, which the id tells where the OLT counts its
/// sections. The sections of a refused window come again: with ids of their own from an OLT that counts, else with the
/// same.
class RecentRequests
{
public:
    /// Steady: what it tells is compared only.
    using Clock = std::chrono::steady_clock;

    /// Transactions of one peer that are known. A power of 2.
    static constexpr std::size_t kKnown = 1024;
    /// Of the last ones, the reply is still there.
    static constexpr std::size_t kReplies = 16;
    /// So many sections with neighbouring ids show that the OLT counts them.
    static constexpr unsigned kCounts = 8;

    /// Octets of a reply; null when it is not there any more, and the OLT does not wait for it any more either.
    struct Reply
    {
        const std::uint8_t* data = nullptr;  ///< the octets
        std::size_t length = 0;              ///< of a whole frame
    };
    struct Found
    {
        bool isCopy = false;
        Reply reply;
    };

    /// Whether this is a copy of a request that is not older than `longest`, and its reply, good until `remember`.
    /// `bytes` are the octets up to the end of the contents.
    Found find(std::uint64_t peer, const FrameHeader& header, const std::uint8_t* bytes, std::size_t length,
               Clock::time_point now, Clock::duration longest);
    /// The reply to the request that `find` did not know.
    void remember(const std::uint8_t* reply, std::size_t length);
    /// Everything, for an ONU that starts anew.
    void forget();
    /// The last section of a window was run.
    void endWindow(bool isRefused);

private:
    struct Entry
    {
        std::uint64_t peer = 0;
        std::uint64_t digest = 0;
        Clock::time_point time{};
        std::uint64_t replyNumber = 0;    ///< Counts all replies from 1.
        std::uint16_t transactionId = 0;  ///< 0: none
        std::uint32_t window = 0;         ///< Of a section; 0: none.
    };
    struct KeptReply
    {
        std::size_t length = 0;
        std::array<std::uint8_t, kMaximumFrameLength> octets;
    };

    struct Sender
    {
        std::uint64_t peer = 0;
        std::uint16_t transactionId = 0;  ///< 0: none
    };

    bool isSentAgain(const Entry& entry) const;
    bool isBehindItsWindow(const Sender& sender) const;
    void noteSection(const Sender& sender);
    bool isLateSection(const Sender& sender, bool endsWindow, bool isNewId);
    Reply replyOf(const Entry& entry) const;
    void forgetPeer(std::uint64_t peer);

    /// By transaction id, from a place of each peer's own: one that counts fills them one after the other.
    std::array<Entry, kKnown> m_Entries{};
    std::array<KeptReply, kReplies> m_Replies{};
    std::uint64_t m_LastReply = 0;
    /// What `find` was last asked for and did not know; null when it is not to be known.
    Entry* m_Asked = nullptr;
    std::uint32_t m_Window = 1;
    /// 0: none, or the OLT has sent a section with a new id since.
    std::uint32_t m_RefusedWindow = 0;
    /// The last section that was new, and the last one that ended a window of the present download.
    Sender m_LastSection;
    /// New sections in a row whose id was near that of the one before.
    unsigned m_Counted = 0;
    Sender m_WindowEnd;
};

}  // namespace omci

#endif
