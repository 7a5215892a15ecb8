#include "Roads.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <vector>

#include "Download.h"
#include "Frames.h"
#include "ManyEntities.h"
#include "Mib.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "Requests.h"
#include "TaggedUni.h"
#include "host/Dispatcher.h"
#include "host/Mic.h"
#include "sandbox/Sandbox.h"

// A road's body, and the function whose instructions count: of C, so that its name in a profile is plain. What goes the
// road for warmth calls the body.
#define NRVK_ROAD(name)                                                                                                \
    static void name(unsigned int operations);                                                                         \
    extern "C" [[gnu::noinline]] void nrvk_road_##name(unsigned int operations)                                        \
    {                                                                                                                  \
        name(operations);                                                                                              \
    }                                                                                                                  \
    static void name(unsigned int operations)

namespace {

using omci::MessageType;

/// A refusal would be a shorter road.
void mustBe(bool right, const char* what)
{
    if (!right) {
        std::fprintf(stderr, "instruction_roads: %s\n", what);
        std::exit(1);
    }
}

void nothing()
{}

constexpr unsigned short kAniG = 263;
constexpr unsigned short kAniGInstance = 1025;
constexpr unsigned short kGemBlockLength = 0x2000;

const attributeDefinition& gemBlockLength()
{
    static const attributeDefinition definition = bench::definition(kAniG, kGemBlockLength);
    return definition;
}

omci::Dispatcher& dispatcher()
{
    static omci::Dispatcher one{omci::Mic()};
    return one;
}

std::unique_ptr<bench::ManyEntities> manyEntities;
std::unique_ptr<bench::TaggedUni> taggedUni;
unsigned short nextVid = 0;

void setRows(unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i) {
        mustBe(taggedUni->set(bench::translation(nextVid++)) == 0, "the row was refused");
    }
}

std::vector<OmciFrame>& sections()
{
    static std::vector<OmciFrame> frames = bench::window(omci::Format::Baseline);
    return frames;
}

void upload(unsigned int times)
{
    OmciFrame frame = bench::request(MessageType::MibUpload, {});
    for (unsigned int i = 0; i < times; ++i) {
        mustBe(bench::adapter(2).mibUpload(&frame) == 0, "the upload was refused");
    }
}

void reset(unsigned int times)
{
    for (unsigned int i = 0; i < times; ++i) {
        mustBe(bench::adapter(2).mibReset() == 0, "the reset failed");
    }
}

}  // namespace

NRVK_ROAD(set_u16)
{
    const OmciMe& me = bench::adapter(kAniG);
    std::array<unsigned char, 8> value{};
    for (unsigned int i = 0; i < operations; ++i) {
        value[1] = static_cast<unsigned char>(i);
        mustBe(me.setAttribute(kAniGInstance, &gemBlockLength(), value.data()) == 0, "the set was refused");
    }
}

NRVK_ROAD(get_u16)
{
    const OmciMe& me = bench::adapter(kAniG);
    std::array<unsigned char, 8> value{};
    for (unsigned int i = 0; i < operations; ++i) {
        mustBe(me.getAttribute(kAniGInstance, &gemBlockLength(), value.data(), OMCI_ACTION_GET) == 0, "the get failed");
    }
}

NRVK_ROAD(get_frame)
{
    static std::vector<unsigned char> frame =
        bench::baselineRequest(MessageType::Get, kAniG, kAniGInstance, {kGemBlockLength >> 8, 0});
    static unsigned short transaction = 0;
    for (unsigned int i = 0; i < operations; ++i) {
        bench::setTransactionId(frame, ++transaction);
        mustBe(dispatcher().handle(frame.data(), frame.size()).length != 0, "no reply to the get");
    }
}

NRVK_ROAD(update_unsigned_int)
{
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    for (unsigned int i = 0; i < operations; ++i) {
        mustBe(registrar->updateManagedEntity<unsigned int>(257, 0, 0x0040, i) == 0, "the update failed");
    }
}

NRVK_ROAD(temporary_core)
{
    for (unsigned int i = 0; i < operations; ++i) {
        const OmciManagedEntitiesCore core(OmciManagedEntitiesCore::WithoutRecords{});
    }
}

NRVK_ROAD(mib_upload)
{
    upload(operations);
}

NRVK_ROAD(mib_reset)
{
    reset(operations);
}

// On a MIB that an OLT has filled. An operation is the share of one entity, so that the figures of both sizes are
// alike.
NRVK_ROAD(mib_upload_of_2000)
{
    upload(operations / 2000);
}

NRVK_ROAD(mib_upload_of_8000)
{
    upload(operations / 8000);
}

NRVK_ROAD(mib_reset_of_2000)
{
    reset(operations / 2000);
}

NRVK_ROAD(mib_reset_of_8000)
{
    reset(operations / 8000);
}

NRVK_ROAD(download_section)
{
    OmciMe& images = bench::adapter(bench::kSoftwareImage);
    for (unsigned int i = 0; i < operations; ++i) {
        mustBe(images.downloadSection(&sections()[i % bench::kWindow]) >= 0, "the section was refused");
    }
}

NRVK_ROAD(vlan_row_after_130)
{
    setRows(operations);
}

NRVK_ROAD(vlan_row_after_2100)
{
    setRows(operations);
}

namespace {

template <unsigned int Count>
void fillMib()
{
    manyEntities = std::make_unique<bench::ManyEntities>(Count);
}

void emptyMib()
{
    manyEntities.reset();
}

void startDownload()
{
    Sandbox::setFreeSpace(1U << 30);
    mustBe(bench::start(bench::adapter(bench::kSoftwareImage), omci::Format::Baseline), "the download was refused");
    download_section(bench::kWindow);
}

/// A section for the other image ends the download.
void stopDownload()
{
    bench::start(bench::adapter(bench::kSoftwareImage), omci::Format::Baseline);
}

template <unsigned int Rows>
void fillTable()
{
    taggedUni = std::make_unique<bench::TaggedUni>();
    nextVid = 0;
    setRows(Rows);
}

void emptyTable()
{
    taggedUni.reset();
}

template <void (*Run)(unsigned int)>
void once()
{
    Run(1);
}

#define NRVK_WARM_ROAD(name, operations)                                                                               \
    {                                                                                                                  \
        "nrvk_road_" #name, once<name>, nrvk_road_##name, operations, nothing                                          \
    }

constexpr bench::Road kRoads[] = {
    NRVK_WARM_ROAD(set_u16, 1000),
    NRVK_WARM_ROAD(get_u16, 1000),
    NRVK_WARM_ROAD(get_frame, 1000),
    NRVK_WARM_ROAD(update_unsigned_int, 1000),
    NRVK_WARM_ROAD(temporary_core, 10),
    NRVK_WARM_ROAD(mib_upload, 10),
    NRVK_WARM_ROAD(mib_reset, 10),
    {"nrvk_road_download_section", startDownload, nrvk_road_download_section, 1024, stopDownload},
    {"nrvk_road_vlan_row_after_130", fillTable<130>, nrvk_road_vlan_row_after_130, 100, emptyTable},
    {"nrvk_road_vlan_row_after_2100", fillTable<2100>, nrvk_road_vlan_row_after_2100, 100, emptyTable},
    {"nrvk_road_mib_upload_of_2000", fillMib<2000>, nrvk_road_mib_upload_of_2000, 2000, emptyMib},
    {"nrvk_road_mib_upload_of_8000", fillMib<8000>, nrvk_road_mib_upload_of_8000, 8000, emptyMib},
    {"nrvk_road_mib_reset_of_2000", fillMib<2000>, nrvk_road_mib_reset_of_2000, 2000, emptyMib},
    {"nrvk_road_mib_reset_of_8000", fillMib<8000>, nrvk_road_mib_reset_of_8000, 8000, emptyMib},
};

}  // namespace

const bench::Road* bench::firstRoad()
{
    return std::begin(kRoads);
}

const bench::Road* bench::endOfRoads()
{
    return std::end(kRoads);
}
