#include "MessageLayout.h"

#include <cstring>

#include "ByteOrder.h"

namespace omci {

namespace {

std::size_t capacity(Format format)
{
    return format == Format::Baseline ? kBaselineContentLength : kMaximumContentLength;
}

/// Puts `octets` at `contents + offset`, where they may stand already; 0 when they do not fit.
std::size_t append(Format format, std::uint8_t* contents, std::size_t offset, const Octets& octets)
{
    if (offset + octets.size > capacity(format)) {
        return 0;
    }
    if (octets.size != 0 && octets.data != contents + offset) {
        std::memmove(contents + offset, octets.data, octets.size);
    }
    return offset + octets.size;
}

Octets rest(const FrameView& frame, std::size_t offset)
{
    return {frame.contents + offset, frame.contentsLength - offset};
}

/// A counted list whose count stands at `offset`; nothing when the contents end before the list does.
std::optional<Octets> counted(const FrameView& frame, std::size_t offset, std::size_t entryLength)
{
    const std::size_t size = frame.contents[offset] * entryLength;
    if (offset + 1 + size > frame.contentsLength) {
        return std::nullopt;
    }
    return Octets{frame.contents + offset + 1, size};
}

std::uint8_t count(const Octets& list, std::size_t entryLength)
{
    return static_cast<std::uint8_t>(list.size / entryLength);
}

constexpr std::size_t kInstanceLength = 2;
constexpr std::size_t kInstanceResultLength = 3;

Result resultOf(const FrameView& frame)
{
    return static_cast<Result>(frame.contents[0]);
}

}  // namespace

std::size_t MaskRequest::write(std::uint8_t* contents) const
{
    write16(contents, mask);
    return 2;
}

std::optional<MaskRequest> parseMaskRequest(const FrameView& frame)
{
    if (frame.contentsLength < 2) {
        return std::nullopt;
    }
    return MaskRequest{read16(frame.contents)};
}

std::size_t SetRequest::write(Format format, std::uint8_t* contents) const
{
    write16(contents, mask);
    return append(format, contents, 2, values);
}

std::optional<SetRequest> parseSetRequest(const FrameView& frame)
{
    if (frame.contentsLength < 2) {
        return std::nullopt;
    }
    return SetRequest{read16(frame.contents), rest(frame, 2)};
}

std::size_t GetNextRequest::write(std::uint8_t* contents) const
{
    write16(contents, mask);
    write16(contents + 2, sequence);
    return 4;
}

std::optional<GetNextRequest> parseGetNextRequest(const FrameView& frame)
{
    if (frame.contentsLength < 4) {
        return std::nullopt;
    }
    return GetNextRequest{read16(frame.contents), read16(frame.contents + 2)};
}

std::size_t SequenceRequest::write(std::uint8_t* contents) const
{
    write16(contents, sequence);
    return 2;
}

std::optional<SequenceRequest> parseSequenceRequest(const FrameView& frame)
{
    if (frame.contentsLength < 2) {
        return std::nullopt;
    }
    return SequenceRequest{read16(frame.contents)};
}

std::size_t StartDownloadRequest::write(Format format, std::uint8_t* contents) const
{
    contents[0] = windowSizeMinusOne;
    write32(contents + 1, imageSize);
    contents[5] = count(instances, kInstanceLength);
    return append(format, contents, 6, instances);
}

std::optional<StartDownloadRequest> parseStartDownloadRequest(const FrameView& frame)
{
    if (frame.contentsLength < 6) {
        return std::nullopt;
    }
    const std::optional<Octets> instances = counted(frame, 5, kInstanceLength);
    if (!instances) {
        return std::nullopt;
    }
    return StartDownloadRequest{frame.contents[0], read32(frame.contents + 1), *instances};
}

std::size_t SectionRequest::write(Format format, std::uint8_t* contents) const
{
    contents[0] = section;
    return append(format, contents, 1, data);
}

std::optional<SectionRequest> parseSectionRequest(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    return SectionRequest{frame.contents[0], rest(frame, 1)};
}

std::size_t EndDownloadRequest::write(Format format, std::uint8_t* contents) const
{
    write32(contents, crc);
    write32(contents + 4, imageSize);
    contents[8] = count(instances, kInstanceLength);
    return append(format, contents, 9, instances);
}

std::optional<EndDownloadRequest> parseEndDownloadRequest(const FrameView& frame)
{
    if (frame.contentsLength < 9) {
        return std::nullopt;
    }
    const std::optional<Octets> instances = counted(frame, 8, kInstanceLength);
    if (!instances) {
        return std::nullopt;
    }
    return EndDownloadRequest{read32(frame.contents), read32(frame.contents + 4), *instances};
}

std::size_t TimeRequest::write(std::uint8_t* contents) const
{
    write16(contents, year);
    const std::uint8_t fields[] = {month, day, hour, minute, second};
    std::memcpy(contents + 2, fields, sizeof fields);
    return 2 + sizeof fields;
}

std::optional<TimeRequest> parseTimeRequest(const FrameView& frame)
{
    if (frame.contentsLength < 7) {
        return std::nullopt;
    }
    const std::uint8_t* c = frame.contents;
    return TimeRequest{read16(c), c[2], c[3], c[4], c[5], c[6]};
}

std::size_t OctetRequest::write(std::uint8_t* contents) const
{
    contents[0] = value;
    return 1;
}

OctetRequest parseOctetRequest(const FrameView& frame)
{
    return {frame.contentsLength == 0 ? std::uint8_t{0} : frame.contents[0]};
}

std::size_t ResultResponse::write(std::uint8_t* contents) const
{
    contents[0] = static_cast<std::uint8_t>(result);
    return 1;
}

std::optional<ResultResponse> parseResultResponse(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    return ResultResponse{resultOf(frame)};
}

std::size_t CreateResponse::write(std::uint8_t* contents) const
{
    contents[0] = static_cast<std::uint8_t>(result);
    write16(contents + 1, executionMask);
    return 3;
}

std::optional<CreateResponse> parseCreateResponse(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    return CreateResponse{resultOf(frame), frame.contentsLength < 3 ? std::uint16_t{0} : read16(frame.contents + 1)};
}

std::size_t SetResponse::write(Format format, std::uint8_t* contents) const
{
    contents[0] = static_cast<std::uint8_t>(result);
    if (format == Format::Extended && result != Result::AttributesFailed) {
        return 1;
    }
    write16(contents + 1, optionalMask);
    write16(contents + 3, executionMask);
    return 5;
}

std::optional<SetResponse> parseSetResponse(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    SetResponse response{resultOf(frame), 0, 0};
    if (frame.contentsLength >= 5) {
        response.optionalMask = read16(frame.contents + 1);
        response.executionMask = read16(frame.contents + 3);
    }
    return response;
}

std::size_t GetResponse::write(Format format, std::uint8_t* contents) const
{
    if (values.size > room(format)) {
        return 0;
    }
    // The values first: they may stand in the contents already, where the masks of the other format would be.
    const std::size_t offset = valuesOffset(format);
    const std::size_t length = append(format, contents, offset, values);
    contents[0] = static_cast<std::uint8_t>(result);
    write16(contents + 1, mask);
    if (format == Format::Extended) {
        write16(contents + 3, optionalMask);
        write16(contents + 5, executionMask);
        return length;
    }
    std::memset(contents + length, 0, offset + kBaselineGetRoom - length);
    write16(contents + 28, optionalMask);
    write16(contents + 30, executionMask);
    return kBaselineContentLength;
}

std::optional<GetResponse> parseGetResponse(const FrameView& frame)
{
    const bool baseline = frame.header.format == Format::Baseline;
    const std::size_t masks = baseline ? 28 : 3;
    const std::size_t values = GetResponse::valuesOffset(frame.header.format);
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    GetResponse response;
    response.result = resultOf(frame);
    if (frame.contentsLength < (baseline ? kBaselineContentLength : values)) {
        // An error without masks is complete; a success is not.
        return response.result == Result::Success ? std::nullopt : std::optional<GetResponse>(response);
    }
    response.mask = read16(frame.contents + 1);
    // ONUs are met that put values where a baseline answer has its masks, when there is nothing to say there.
    if (baseline && response.result == Result::Success) {
        response.values = {frame.contents + values, kBaselineContentLength - values};
        return response;
    }
    response.optionalMask = read16(frame.contents + masks);
    response.executionMask = read16(frame.contents + masks + 2);
    response.values = {frame.contents + values, baseline ? kBaselineGetRoom : frame.contentsLength - values};
    return response;
}

std::size_t GetNextResponse::write(Format format, std::uint8_t* contents) const
{
    const std::size_t length = append(format, contents, 3, data);
    contents[0] = static_cast<std::uint8_t>(result);
    write16(contents + 1, mask);
    return length;
}

std::optional<GetNextResponse> parseGetNextResponse(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    GetNextResponse response;
    response.result = resultOf(frame);
    if (frame.contentsLength < 3) {
        return response.result == Result::Success ? std::nullopt : std::optional<GetNextResponse>(response);
    }
    response.mask = read16(frame.contents + 1);
    response.data = rest(frame, 3);
    return response;
}

std::size_t CountResponse::write(std::uint8_t* contents) const
{
    write16(contents, count);
    return 2;
}

std::optional<CountResponse> parseCountResponse(const FrameView& frame)
{
    if (frame.contentsLength < 2) {
        return std::nullopt;
    }
    return CountResponse{read16(frame.contents)};
}

std::size_t StartDownloadResponse::write(Format format, std::uint8_t* contents) const
{
    contents[0] = static_cast<std::uint8_t>(result);
    contents[1] = windowSizeMinusOne;
    contents[2] = count(instances, kInstanceResultLength);
    return append(format, contents, 3, instances);
}

std::optional<StartDownloadResponse> parseStartDownloadResponse(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    StartDownloadResponse response;
    response.result = resultOf(frame);
    if (frame.contentsLength < 2) {
        return response.result == Result::Success ? std::nullopt : std::optional<StartDownloadResponse>(response);
    }
    response.windowSizeMinusOne = frame.contents[1];
    if (frame.contentsLength > 2) {
        const std::optional<Octets> instances = counted(frame, 2, kInstanceResultLength);
        if (!instances) {
            return std::nullopt;
        }
        response.instances = *instances;
    }
    return response;
}

std::size_t SectionResponse::write(std::uint8_t* contents) const
{
    contents[0] = static_cast<std::uint8_t>(result);
    contents[1] = section;
    return 2;
}

std::optional<SectionResponse> parseSectionResponse(const FrameView& frame)
{
    if (frame.contentsLength < 2) {
        return std::nullopt;
    }
    return SectionResponse{resultOf(frame), frame.contents[1]};
}

std::size_t EndDownloadResponse::write(Format format, std::uint8_t* contents) const
{
    contents[0] = static_cast<std::uint8_t>(result);
    contents[1] = count(instances, kInstanceResultLength);
    return append(format, contents, 2, instances);
}

std::optional<EndDownloadResponse> parseEndDownloadResponse(const FrameView& frame)
{
    if (frame.contentsLength < 1) {
        return std::nullopt;
    }
    EndDownloadResponse response;
    response.result = resultOf(frame);
    if (frame.contentsLength > 1) {
        const std::optional<Octets> instances = counted(frame, 1, kInstanceResultLength);
        if (!instances) {
            return std::nullopt;
        }
        response.instances = *instances;
    }
    return response;
}

DownloadInstanceResult instanceResult(const Octets& instances, std::size_t index)
{
    const std::uint8_t* entry = instances.data + index * kInstanceResultLength;
    return {read16(entry), static_cast<Result>(entry[2])};
}

}  // namespace omci
