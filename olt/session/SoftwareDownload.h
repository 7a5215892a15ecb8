#ifndef OLT_SESSION_SOFTWARE_DOWNLOAD_H
#define OLT_SESSION_SOFTWARE_DOWNLOAD_H

#include <optional>

#include "session/Operations.h"

namespace olt {

struct DownloadOptions
{
    unsigned window = 32;                      ///< Sections in a window, as proposed to the ONU; 1 to 256.
    std::optional<std::uint32_t> damaged;      ///< A section, counted from 0, that goes out with a wrong octet.
    std::chrono::milliseconds pollPause{500};  ///< Between two questions whether the ONU is through.
    std::chrono::milliseconds pollLimit{600'000};
};

/// Where a download stands, or how it has ended.
struct DownloadState
{
    enum class Step
    {
        Start,
        Sections,
        End  ///< The ONU checks the image and writes it.
    };
    Step step = Step::Start;
    omci::Result result = omci::Result::Success;
    std::uint32_t crc = 0;     ///< Of the image, as the ONU computes it too.
    unsigned window = 0;       ///< Sections, as the ONU has accepted them.
    std::size_t octets = 0;    ///< Of the image, in windows that the ONU has taken.
    std::size_t sections = 0;  ///< Of those windows.
    std::size_t windows = 0;   ///< The same.
    std::size_t repeated = 0;  ///< Windows that the ONU has refused and that went out again.
    std::size_t polls = 0;

    [[nodiscard]] bool succeeded() const { return result == omci::Result::Success; }
};

/// One software download to one image (G.988 9.1.4): start, sections in windows, end, and polls until the ONU is
/// through.
///
/// A window that the ONU refuses goes out again from its first section. Where it does not arrive time and again,
/// windows become smaller, down to single sections: on a road that loses much, or to an ONU that has room for less than
/// it says, whole windows never arrive.
class SoftwareDownload
{
public:
    using Observer = std::function<void(const DownloadState&)>;

    /// `image` holds an octet at least and outlives the object.
    SoftwareDownload(Session& session, const EntityId& target, const Bytes& image, const DownloadOptions& options);

    /// The octets of the image that one section holds in a format.
    [[nodiscard]] static std::size_t room(omci::Format format);

    /// Until the ONU has the image in its place or refuses it. `observer` is called after each window and each poll.
    /// Throws what Session::request throws, and Unreachable when the ONU is busy beyond the limit.
    [[nodiscard]] DownloadState run(const Observer& observer);

private:
    bool start();
    bool sendImage(const Observer& observer);
    /// The result of the window that begins at `octet` and holds that many sections or fewer.
    omci::Result sendWindow(std::size_t octet, unsigned sections);
    Bytes section(std::size_t octet, unsigned number) const;
    bool end(const Observer& observer);

    Session& m_Session;
    EntityId m_Target;
    const Bytes& m_Image;
    DownloadOptions m_Options;
    std::size_t m_Room;
    DownloadState m_State;
};

}  // namespace olt

#endif
