// The walks over the MIB that MIB upload and get all alarms take their snapshots by.

#include <array>
#include <cstring>
#include <exception>
#include <new>
#include <string>

#include "AttributeLists.h"
#include "ByteOrder.h"
#include "GuardedLog.h"
#include "MessageLayout.h"
#include "omci_host/OmciFrame.h"
#include "omci_host/OmciMe.h"
#include "omci_host/OmciMeFactory.h"

using omci::Format;

namespace {

/// Calls `visit(const OmciMe&, instance)` for every instance of every class that `isPart` names, in ascending class and
/// instance order.
template <typename Visit>
void forEachInstance(bool (OmciMe::*isPart)() const, Visit visit)
{
    const OmciMeFactory& factory = *OmciMeFactory::getInstance();
    for (const OmciMe* me = factory.getFirstManagedEntity(); me != nullptr;
         me = factory.getNextManagedEntity(me->getManagedEntityClassId())) {
        if (!(me->*isPart)()) {
            continue;
        }
        unsigned short instance = 0;
        for (int result = me->getFirstManagedEntityInstance(&instance); result == 0;
             result = me->getNextManagedEntityInstance(&instance)) {
            visit(*me, instance);
        }
    }
}

/// Collects the contents of "next" responses and hands over each one that is full.
class SnapshotFrames
{
public:
    using Store = int (OmciMe::*)(unsigned short, const unsigned char*, unsigned short);

    SnapshotFrames(OmciMe& keeper, Store store, Format format)
        : m_Keeper(keeper), m_Store(store),
          m_Room(format == Format::Baseline ? omci::kBaselineContentLength : omci::kMaximumContentLength)
    {}

    /// The next free octets of the frame under construction.
    unsigned char* place() { return m_Contents.data() + m_Length; }
    std::size_t room() const { return m_Room - m_Length; }
    void take(std::size_t length) { m_Length += length; }
    bool isEmpty() const { return m_Length == 0; }

    /// Hands over the frame under construction, when it holds anything.
    void flush()
    {
        // The OLT asks for a frame by a 16-bit number, and learns their count in 16 bits.
        if (isEmpty() || m_Count == 0xFFFF) {
            m_Failed = m_Failed || !isEmpty();
            m_Length = 0;
            return;
        }
        m_Failed =
            (m_Keeper.*m_Store)(m_Count, m_Contents.data(), static_cast<unsigned short>(m_Length)) != 0 || m_Failed;
        ++m_Count;
        m_Length = 0;
    }

    unsigned short count() const { return m_Count; }
    int result() const { return m_Failed ? -1 : 0; }

private:
    OmciMe& m_Keeper;
    Store m_Store;
    std::size_t m_Room;
    std::size_t m_Length = 0;
    unsigned short m_Count = 0;
    bool m_Failed = false;
    std::array<unsigned char, OmciFrame::kMaximumContentLength + OmciFrame::kSpareLength> m_Contents;
};

/// Reads one value for a snapshot. A read that throws, as one may that asks the hardware, fails for itself alone: the
/// rest of the MIB is still worth an upload. Without memory there is none.
bool readValue(const OmciMe& me, unsigned short instance, const attributeDefinition& definition, unsigned char* value)
{
    const auto leaveOut = [&](const char* problem) {
        omci::logGuarded([&](Logger& logger) {
            logger.writeToLog(0, "readValue", "host/Snapshots.cpp", __LINE__, 3,
                              "Managed entity(%hu; %hu); Attribute mask(0x%04X) left out(%s)",
                              me.getManagedEntityClassId(), instance, definition.attributeMask, problem);
        });
        return false;
    };
    try {
        return me.getAttribute(instance, &definition, value, OMCI_ACTION_GET) == 0;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& exception) {
        return leaveOut(exception.what());
    } catch (...) {
        return leaveOut("unknown exception");
    }
}

/// Packs entities into MIB upload frames. Baseline: one entity a frame, split where its values exceed it. Extended:
/// entities follow each other; one that does not fit the rest of the frame opens the next.
class UploadPacker
{
public:
    UploadPacker(SnapshotFrames& frames, Format format) : m_Frames(frames), m_Format(format) {}

    void add(const OmciMe& me, unsigned short instance)
    {
        const auto lists = omci::AttributeListCache::instance().of(me);
        std::size_t total = 0;
        for (const attributeDefinition& definition : lists->upload) {
            total += definition.attributeSize;
        }
        if (!m_Frames.isEmpty() && m_Frames.room() < head() + total) {
            m_Frames.flush();
        }
        open(me, instance);
        for (const attributeDefinition& definition : lists->upload) {
            addAttribute(me, instance, definition);
        }
        close();
    }

private:
    std::size_t head() const { return omci::UploadedEntity::headLength(m_Format); }

    void open(const OmciMe& me, unsigned short instance)
    {
        m_Entity = {me.getManagedEntityClassId(), instance, 0, {nullptr, 0}};
    }

    void close()
    {
        m_Frames.take(m_Entity.writeHead(m_Format, m_Frames.place()));
        if (m_Format == Format::Baseline) {
            m_Frames.flush();
        }
    }

    void addAttribute(const OmciMe& me, unsigned short instance, const attributeDefinition& definition)
    {
        if (head() + m_Entity.values.size + definition.attributeSize > m_Frames.room()) {
            if (head() + definition.attributeSize > omci::kBaselineContentLength && m_Format == Format::Baseline) {
                return;
            }
            m_Frames.take(m_Entity.writeHead(m_Format, m_Frames.place()));
            m_Frames.flush();
            open(me, instance);
        }
        unsigned char* const value = m_Frames.place() + head() + m_Entity.values.size;
        if (readValue(me, instance, definition, value)) {
            m_Entity.mask = static_cast<std::uint16_t>(m_Entity.mask | definition.attributeMask);
            m_Entity.values.size += definition.attributeSize;
        }
    }

    SnapshotFrames& m_Frames;
    Format m_Format;
    omci::UploadedEntity m_Entity;
};

/// The mask of the class's alarm reporting control attribute; 0 when it has none. Definitions carry no names, so the
/// attribute is known by its line in the dump.
unsigned short alarmReportingControlMask(const OmciMe& me, unsigned short instance)
{
    static const std::string label = "\n  ARC (";
    if (me.dumpME(instance, 0xFFFF).find(label) == std::string::npos) {
        return 0;
    }
    unsigned short mask = 0x8000;
    while (mask != 0 && me.dumpME(instance, mask).find(label) == std::string::npos) {
        mask = static_cast<unsigned short>(mask >> 1);
    }
    return mask;
}

/// Tells which instances are under alarm reporting control, within one walk.
class AlarmReportingControl
{
public:
    bool isOn(const OmciMe& me, unsigned short instance)
    {
        if (m_Me != &me) {
            m_Me = &me;
            m_Definition.attributeMask = alarmReportingControlMask(me, instance);
            m_Definition.attributeSize = 1;
        }
        unsigned char value[OmciFrame::kSpareLength] = {};
        return m_Definition.attributeMask != 0 && readValue(me, instance, m_Definition, value) && value[0] != 0;
    }

private:
    const OmciMe* m_Me = nullptr;
    attributeDefinition m_Definition{};
};

/// Adds the instance's block when an alarm of it is raised.
void addAlarms(SnapshotFrames& frames, const OmciMe& me, unsigned short instance)
{
    std::bitset<223> bitmap;
    if (!me.getAlarmsBitmap(instance, bitmap) || bitmap.none()) {
        return;
    }
    omci::AlarmedEntity entity;
    entity.entityClass = me.getManagedEntityClassId();
    entity.entityInstance = instance;
    omci::packAlarms(bitmap, entity.bitmap);
    if (frames.room() < omci::AlarmedEntity::kLength) {
        frames.flush();
    }
    frames.take(entity.write(frames.place()));
}

}  // namespace

int OmciMe::mibUploadExec(OmciFrame* frame, unsigned short& count)
{
    count = 0;
    if (frame == nullptr) {
        return -1;
    }
    const auto format = static_cast<Format>(frame->getDeviceId());
    SnapshotFrames frames(*this, &OmciMe::setMibUploadMessage, format);
    UploadPacker packer(frames, format);
    forEachInstance(&OmciMe::isPartOfMibUpload,
                    [&packer](const OmciMe& me, unsigned short instance) { packer.add(me, instance); });
    frames.flush();
    count = frames.count();
    return frames.result();
}

int OmciMe::getAllAlarmsExec(OmciFrame* frame, unsigned short& count)
{
    count = 0;
    if (frame == nullptr) {
        return -1;
    }
    const bool honourControl = frame->getMessageContentLength() != 0 && frame->getMessageContent()[0] == 1;
    SnapshotFrames frames(*this, &OmciMe::setGetAllAlarmsMessage, static_cast<Format>(frame->getDeviceId()));
    AlarmReportingControl control;
    forEachInstance(&OmciMe::isPartOfAlarmsUpload, [&](const OmciMe& me, unsigned short instance) {
        if (!honourControl || !control.isOn(me, instance)) {
            addAlarms(frames, me, instance);
        }
    });
    frames.flush();
    count = frames.count();
    return frames.result();
}
