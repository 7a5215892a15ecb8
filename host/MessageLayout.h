#ifndef HOST_MESSAGE_LAYOUT_H
#define HOST_MESSAGE_LAYOUT_H

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "FrameCodec.h"

/// The contents of each message, as G.988 11.2 and annex A lay them out, for both ends. Each `parse...` yields nothing
/// when the contents are too short; octets behind the last field are left to the caller. Each `write` fills `contents`,
/// which holds kMaximumContentLength octets, and yields the length of the contents without baseline padding, or 0 when
/// they do not fit the format. Views point into the frame's octets.
namespace omci {

/// Octets that belong to somebody else.
struct Octets
{
    const std::uint8_t* data = nullptr;  ///< null when there are none
    std::size_t size = 0;                ///< how many
};

/// @name Room in a baseline frame
/// @{
constexpr std::size_t kBaselineGetRoom = 25;      ///< values of a get response
constexpr std::size_t kBaselineSetRoom = 30;      ///< values of a set request
constexpr std::size_t kBaselineGetNextRoom = 29;  ///< data of a get next response
constexpr std::size_t kBaselineUploadRoom = 26;   ///< values in a MIB upload next response
constexpr std::size_t kBaselineSectionRoom = 31;  ///< data of a download section
/// @}
/// Octets of values in an extended get response.
constexpr std::size_t kExtendedGetRoom = kMaximumContentLength - 7;
/// Octets of data in an extended download section.
constexpr std::size_t kExtendedSectionRoom = kMaximumContentLength - 1;
/// Octets of an alarm bitmap on the wire, for 224 alarms.
constexpr std::size_t kAlarmBitmapLength = 28;

/// Contents that are one mask: get, get current data.
struct MaskRequest
{
    std::uint16_t mask = 0;  ///< the attributes asked for

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<MaskRequest> parseMaskRequest(const FrameView& frame);

/// Set and set table. The values follow each other in attribute order.
struct SetRequest
{
    std::uint16_t mask = 0;  ///< the attributes to be written
    Octets values;           ///< network byte order

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<SetRequest> parseSetRequest(const FrameView& frame);

/// Get next: a piece of a table.
struct GetNextRequest
{
    std::uint16_t mask = 0;      ///< the table's bit
    std::uint16_t sequence = 0;  ///< number of the piece, from 0

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<GetNextRequest> parseGetNextRequest(const FrameView& frame);

/// MIB upload next and get all alarms next.
struct SequenceRequest
{
    std::uint16_t sequence = 0;  ///< number of the command, from 0

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<SequenceRequest> parseSequenceRequest(const FrameView& frame);

/// Start software download.
struct StartDownloadRequest
{
    std::uint8_t windowSizeMinusOne = 0;  ///< sections of a window, less one
    std::uint32_t imageSize = 0;          ///< octets
    Octets instances;                     ///< two octets per circuit pack

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<StartDownloadRequest> parseStartDownloadRequest(const FrameView& frame);

/// Download section.
struct SectionRequest
{
    std::uint8_t section = 0;  ///< number within the window, from 0
    Octets data;               ///< baseline: all 31 octets, padding included

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<SectionRequest> parseSectionRequest(const FrameView& frame);

/// End software download.
struct EndDownloadRequest
{
    std::uint32_t crc = 0;        ///< of the image without padding
    std::uint32_t imageSize = 0;  ///< octets
    Octets instances;             ///< two octets per circuit pack

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<EndDownloadRequest> parseEndDownloadRequest(const FrameView& frame);

/// Synchronize time, in UTC.
struct TimeRequest
{
    std::uint16_t year = 0;   ///< for example 2026
    std::uint8_t month = 0;   ///< 1 to 12
    std::uint8_t day = 0;     ///< 1 to 31
    std::uint8_t hour = 0;    ///< 0 to 23
    std::uint8_t minute = 0;  ///< 0 to 59
    std::uint8_t second = 0;  ///< 0 to 59

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<TimeRequest> parseTimeRequest(const FrameView& frame);

/// Contents that are one octet: reboot and activate flags, test selector, alarm retrieval mode.
struct OctetRequest
{
    std::uint8_t value = 0;  ///< flags, mode or selector

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Contents without an octet read as 0: an OLT may leave a zero mode or flags out of an extended frame.
OctetRequest parseOctetRequest(const FrameView& frame);

/// A response of which only the result matters. Every response but those of counts and snapshots begins with it.
struct ResultResponse
{
    Result result = Result::Success;  ///< result and reason

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<ResultResponse> parseResultResponse(const FrameView& frame);

/// Create.
struct CreateResponse
{
    Result result = Result::Success;  ///< result and reason
    std::uint16_t executionMask = 0;  ///< the attributes refused, with a parameter error

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<CreateResponse> parseCreateResponse(const FrameView& frame);

/// Set and set table.
struct SetResponse
{
    Result result = Result::Success;  ///< result and reason
    std::uint16_t optionalMask = 0;   ///< attributes that the ONU does not have
    std::uint16_t executionMask = 0;  ///< attributes that the ONU refused

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<SetResponse> parseSetResponse(const FrameView& frame);

/// Get and get current data.
struct GetResponse
{
    Result result = Result::Success;  ///< result and reason
    std::uint16_t mask = 0;           ///< the attributes whose values follow
    std::uint16_t optionalMask = 0;   ///< attributes that the ONU does not have
    std::uint16_t executionMask = 0;  ///< attributes that could not be read or did not fit
    Octets values;                    ///< network byte order, in attribute order

    /// The values' place in the contents, where they may be put before `write`.
    static std::size_t valuesOffset(Format format) { return format == Format::Baseline ? 3 : 7; }
    /// The octets that values may have.
    static std::size_t room(Format format) { return format == Format::Baseline ? kBaselineGetRoom : kExtendedGetRoom; }
    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short. A baseline success has no masks: `values` then reach over the
/// octets of the masks to the end of the contents, where some ONUs put values.
std::optional<GetResponse> parseGetResponse(const FrameView& frame);

/// Get next: a piece of a table.
struct GetNextResponse
{
    Result result = Result::Success;  ///< result and reason
    std::uint16_t mask = 0;           ///< the table's bit
    Octets data;                      ///< baseline: all 29 octets, whatever the table's size

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<GetNextResponse> parseGetNextResponse(const FrameView& frame);

/// MIB upload and get all alarms: there is no result octet.
struct CountResponse
{
    std::uint16_t count = 0;  ///< of "next" commands

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<CountResponse> parseCountResponse(const FrameView& frame);

/// One entity's values in a MIB upload next response.
struct UploadedEntity
{
    std::uint16_t entityClass = 0;     ///< G.988 class number
    std::uint16_t entityInstance = 0;  ///< instance id
    std::uint16_t mask = 0;            ///< the attributes whose values follow
    Octets values;                     ///< baseline: all 26 octets, whatever the mask

    /// Octets in front of the values.
    static std::size_t headLength(Format format) { return format == Format::Baseline ? 6 : 8; }
    /// Writes the head in front of values that stand at `place + headLength(format)`; yields head and values' length.
    std::size_t writeHead(Format format, std::uint8_t* place) const;
};

/// Walks the entities of a MIB upload next response, or of its stored contents.
class UploadedEntities
{
public:
    /// Walks contents that the caller keeps.
    UploadedEntities(Format format, Octets contents);
    /// Walks the contents of a received frame, which the caller keeps.
    explicit UploadedEntities(const FrameView& frame);

    /// False at the end, or where the rest is not whole. A frame that is all zero has no entity.
    bool next(UploadedEntity& entity);
    /// Whether the walk ended before the contents did.
    bool isBroken() const { return m_Broken; }

private:
    bool nextBaseline(UploadedEntity& entity);

    Format m_Format;
    Octets m_Left;
    bool m_Broken = false;
};

/// One entity's alarms in a get all alarms next response. Alarm n is bit 7 - n % 8 of octet n / 8.
struct AlarmedEntity
{
    std::uint16_t entityClass = 0;                          ///< G.988 class number
    std::uint16_t entityInstance = 0;                       ///< instance id
    std::array<std::uint8_t, kAlarmBitmapLength> bitmap{};  ///< as on the wire

    static constexpr std::size_t kLength = 4 + kAlarmBitmapLength;  ///< octets on the wire
    /// Whether the alarm is in force; false for a number that the bitmap does not have.
    bool isRaised(unsigned number) const;
    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};

/// Alarm n of `alarms` as bit 7 - n % 8 of octet n / 8; the octets must be zero before.
template <std::size_t N>
void packAlarms(const std::bitset<N>& alarms, std::array<std::uint8_t, kAlarmBitmapLength>& octets)
{
    static_assert(N <= 8 * kAlarmBitmapLength);
    for (std::size_t number = 0; number < N; ++number) {
        if (alarms[number]) {
            octets[number / 8] = static_cast<std::uint8_t>(octets[number / 8] | (0x80U >> (number % 8)));
        }
    }
}

/// Entity `index` of a get all alarms next response; nothing behind the last one. Baseline has one.
std::optional<AlarmedEntity> parseAlarmedEntity(const FrameView& frame, std::size_t index);

/// Result of one circuit pack in a start or end download response.
struct DownloadInstanceResult
{
    std::uint16_t instance = 0;       ///< of the software image
    Result result = Result::Success;  ///< of this circuit pack
};

/// Start software download.
struct StartDownloadResponse
{
    Result result = Result::Success;      ///< result and reason
    std::uint8_t windowSizeMinusOne = 0;  ///< that the ONU takes, less one
    Octets instances;                     ///< three octets each, see instanceResult

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<StartDownloadResponse> parseStartDownloadResponse(const FrameView& frame);

/// Download section, the last of a window.
struct SectionResponse
{
    Result result = Result::Success;  ///< result and reason
    std::uint8_t section = 0;         ///< number of the section that is answered

    /// As the message lays them out.
    std::size_t write(std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<SectionResponse> parseSectionResponse(const FrameView& frame);

/// End software download.
struct EndDownloadResponse
{
    Result result = Result::Success;  ///< result and reason
    Octets instances;                 ///< three octets each, see instanceResult

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<EndDownloadResponse> parseEndDownloadResponse(const FrameView& frame);

/// Entry `index` of a start or end download response's `instances`, which must hold it.
DownloadInstanceResult instanceResult(const Octets& instances, std::size_t index);

/// Alarms of one entity, all of them whenever one changes.
struct AlarmNotification
{
    std::array<std::uint8_t, kAlarmBitmapLength> bitmap{};  ///< as on the wire
    std::uint8_t sequence = 0;                              ///< 1 to 255; 255 is followed by 1

    /// As the message lays them out.
    std::size_t write(Format format, std::uint8_t* contents) const;
};
/// Reads the contents; nothing when they are too short.
std::optional<AlarmNotification> parseAlarmNotification(const FrameView& frame);

/// Attribute value change: a mask and values, laid out as a set request.
using AttributeValueChange = SetRequest;
/// Reads the contents; nothing when they are too short.
inline std::optional<AttributeValueChange> parseAttributeValueChange(const FrameView& frame)
{
    return parseSetRequest(frame);
}

/// One measurement of an ANI-G self-test result.
struct TestMeasurement
{
    std::uint8_t type = 0;    ///< 1 voltage 20 mV, 3 and 5 power 0.002 dB, 9 bias 2 uA, 12 temperature 1/256 degree C
    std::uint16_t value = 0;  ///< in the unit of its type
};
/// Measurements of an ANI-G self-test result.
constexpr std::size_t kTestMeasurements = 5;
/// ANI-G self-test result; yields the length of the contents.
std::size_t writeTestResult(const std::array<TestMeasurement, kTestMeasurements>& measurements, std::uint8_t* contents);
/// Reads the contents; nothing when they are too short.
std::optional<std::array<TestMeasurement, kTestMeasurements>> parseTestResult(const FrameView& frame);

/// Self-test result of a class whose test has one outcome: ONU-G and circuit pack.
enum class SelfTestOutcome : std::uint8_t
{
    Failed = 0,
    Passed = 1,
    NotCompleted = 2
};
/// Yields the length of the contents.
std::size_t writeSelfTestResult(SelfTestOutcome outcome, std::uint8_t* contents);
/// Reads the contents; nothing when they are too short.
std::optional<SelfTestOutcome> parseSelfTestResult(const FrameView& frame);

}  // namespace omci

#endif
