#ifndef TESTS_HOST_FAKE_ME_H
#define TESTS_HOST_FAKE_ME_H

#include <cstring>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Hex.h"
#include "omci_host/OmciFrame.h"
#include "omci_host/OmciMe.h"
#include "omci_host/OmciMeFactory.h"
#include "ont_omci_managed_entity/attributeDefinition.h"

constexpr unsigned char C = ATTRIBUTE_FLAG_SET_BY_CREATE;
constexpr unsigned char R = ATTRIBUTE_FLAG_READ;
constexpr unsigned char W = ATTRIBUTE_FLAG_WRITE;
constexpr unsigned char U = ATTRIBUTE_FLAG_MIB_UPLOAD;
constexpr unsigned char A = ATTRIBUTE_FLAG_AVC;
constexpr unsigned char N = ATTRIBUTE_FLAG_GET_NEXT;

inline attributeDefinition attribute(unsigned short mask, unsigned short size, int flags, bool table = false)
{
    return {mask,
            size,
            ATTRIBUTE_KIND_UNSIGNED_8,
            static_cast<unsigned char>(table ? 1 : 0),
            0,
            static_cast<unsigned char>(flags)};
}

/// An adapter with its own instances, made to behave as the library's do. Registers and unregisters itself.
class FakeMe : public OmciMe
{
public:
    struct Instance
    {
        bool createdByOlt = false;
        std::map<unsigned short, Bytes> values;
        std::map<unsigned short, unsigned> rows;
        std::bitset<223> alarms;
    };

    FakeMe(unsigned short classId, std::vector<attributeDefinition> definitions)
        : m_ClassId(classId), m_Definitions(std::move(definitions))
    {
        OmciMeFactory::getInstance()->registerManagedEntity(classId, this);
    }
    ~FakeMe() override { OmciMeFactory::getInstance()->unregisterManagedEntity(m_ClassId); }

    Instance& add(unsigned short id, bool byOlt = false) const
    {
        Instance& made = instances[id];
        made.createdByOlt = byOlt;
        for (const attributeDefinition& definition : m_Definitions) {
            if (definition.isTableAttribute == 0) {
                made.values[definition.attributeMask] = Bytes(definition.attributeSize);
            }
        }
        return made;
    }

    int createManagedEntityInstance(unsigned short id, bool byOlt) const override
    {
        if (!creatable) {
            return -1;
        }
        if (instances.count(id) == 0) {
            add(id, byOlt);
        }
        return 0;
    }
    int deleteManagedEntityInstance(unsigned short id, bool byOlt) const override
    {
        const auto found = instances.find(id);
        if (!creatable || found == instances.end()) {
            return -1;
        }
        if (found->second.createdByOlt == byOlt) {
            instances.erase(found);
        }
        return 0;
    }
    std::string dumpME(unsigned int, unsigned short mask) const override
    {
        std::string text = "Fake(1; 1)\n----\n";
        if ((mask & 0x8000) != 0) {
            text += "  ARC_INTERVAL (1 byte) = 0\n";
        }
        if ((mask & arcMask) != 0) {
            text += "  ARC (1 byte) = 0\n";
        }
        return text;
    }
    void eraseAllManagedEntityInstances() const override { instances.clear(); }
    int findManagedEntityInstance(unsigned short id) const override { return instances.count(id) != 0 ? 0 : -1; }
    bool getAlarmsBitmap(unsigned short id, std::bitset<223>& bitmap) const override
    {
        const auto found = instances.find(id);
        if (found == instances.end()) {
            return false;
        }
        bitmap = found->second.alarms;
        return true;
    }
    int getAttribute(unsigned short id, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override
    {
        const auto found = instances.find(id);
        if (found == instances.end()) {
            return -1;
        }
        if (throws) {
            throw std::out_of_range("row out of range");
        }
        lastAction = action;
        ++reads;
        if (definition->isTableAttribute != 0) {
            const unsigned rows = found->second.rows[definition->attributeMask];
            const unsigned char size[4] = {0, 0, 0, static_cast<unsigned char>(rows)};
            std::memcpy(buffer, size, 4);
            return 0;
        }
        const Bytes& value = found->second.values.at(definition->attributeMask);
        std::memcpy(buffer, value.data(), value.size());
        return (unreadable & definition->attributeMask) != 0 ? -1 : 0;
    }
    int getAttributesListForAvc(std::list<attributeDefinition>* list) const override { return take(list, A); }
    int getAttributesListForCreate(std::list<attributeDefinition>* list) const override { return take(list, C); }
    int getAttributesListForGet(std::list<attributeDefinition>* list) const override { return take(list, R); }
    int getAttributesListForGetNext(std::list<attributeDefinition>* list) const override { return take(list, N); }
    int getAttributesListForMibUpload(std::list<attributeDefinition>* list) const override { return take(list, U); }
    int getAttributesListForSet(std::list<attributeDefinition>* list) const override { return take(list, W); }
    unsigned short getCreateAttributesMask() const override { return mask(C); }
    unsigned short getGetAttributesMask() const override { return mask(R); }
    unsigned short getGetNextAttributesMask() const override { return mask(N); }
    unsigned short getSetAttributesMask() const override { return mask(W); }
    int getFirstManagedEntityInstance(unsigned short* id) const override
    {
        if (instances.empty()) {
            return -1;
        }
        *id = instances.begin()->first;
        return 0;
    }
    unsigned short getManagedEntityClassId() const override { return m_ClassId; }
    std::string getManagedEntityName() const override { return "FAKE"; }
    int getNextManagedEntityInstance(unsigned short* id) const override
    {
        const auto next = instances.upper_bound(*id);
        if (next == instances.end()) {
            return -1;
        }
        *id = next->first;
        return 0;
    }
    bool isPartOfAlarmsUpload() const override { return inAlarms; }
    bool isPartOfMibUpload() const override { return inUpload; }
    int setAttribute(unsigned short id, const attributeDefinition* definition,
                     const unsigned char* buffer) const override
    {
        if (throwsOnSet) {
            throw std::runtime_error("hardware is gone");
        }
        const auto found = instances.find(id);
        if (found == instances.end() || (refused & definition->attributeMask) != 0) {
            return -1;
        }
        if (definition->isTableAttribute != 0) {
            ++found->second.rows[definition->attributeMask];
            return 0;
        }
        found->second.values[definition->attributeMask].assign(buffer, buffer + definition->attributeSize);
        return 0;
    }
    int applyConfigurationToHardwareForSet(unsigned short) const override
    {
        ++applies;
        return applyResult;
    }
    int updateAlarmsBitmap(unsigned short id, unsigned char alarm, bool state) const override
    {
        instances.at(id).alarms.set(alarm, state);
        return 0;
    }

    mutable std::map<unsigned short, Instance> instances;
    bool creatable = true;
    bool inUpload = true;
    bool inAlarms = true;
    bool throws = false;
    bool throwsOnSet = false;
    unsigned short refused = 0;
    unsigned short unreadable = 0;
    unsigned short arcMask = 0;
    int applyResult = 0;
    mutable unsigned applies = 0;
    mutable unsigned reads = 0;
    mutable int lastAction = 0;

private:
    int take(std::list<attributeDefinition>* list, unsigned char flag) const
    {
        ++listReads;
        list->clear();
        for (const attributeDefinition& definition : m_Definitions) {
            if ((definition.attributeFlags & flag) != 0) {
                list->push_back(definition);
            }
        }
        return 0;
    }
    unsigned short mask(unsigned char flag) const
    {
        unsigned mask = 0;
        for (const attributeDefinition& definition : m_Definitions) {
            mask |= (definition.attributeFlags & flag) != 0 ? definition.attributeMask : 0U;
        }
        return static_cast<unsigned short>(mask);
    }

    unsigned short m_ClassId;
    std::vector<attributeDefinition> m_Definitions;

public:
    mutable unsigned listReads = 0;
};

/// ONU data with snapshots and data sync, as far as the host needs them.
class FakeOnuData : public FakeMe
{
public:
    FakeOnuData() : FakeMe(2, {attribute(0x8000, 1, R | W | U)})
    {
        creatable = false;
        inAlarms = false;
        add(0);
    }

    int setMibUploadMessage(unsigned short sequence, const unsigned char* buffer, unsigned short length) override
    {
        uploads[sequence] = Bytes(buffer, buffer + length);
        return 0;
    }
    int setGetAllAlarmsMessage(unsigned short sequence, const unsigned char* buffer, unsigned short length) override
    {
        alarms[sequence] = Bytes(buffer, buffer + length);
        return 0;
    }
    int mibUpload(OmciFrame* frame) override
    {
        unsigned short count = 0;
        uploads.clear();
        mibUploadExec(frame, count);
        frame->setFrameToSendBackToOLT(0, count, 0, 0, nullptr, 0);
        return 0;
    }
    int getAllAlarms(OmciFrame* frame) override
    {
        unsigned short count = 0;
        alarms.clear();
        getAllAlarmsExec(frame, count);
        frame->setFrameToSendBackToOLT(0, count, 0, 0, nullptr, 0);
        return 0;
    }
    int mibUploadNext(OmciFrame* frame) const override { return next(frame, uploads); }
    int getAllAlarmsNext(OmciFrame* frame) const override { return next(frame, alarms); }
    int mibReset(OmciFrame* frame) const override
    {
        return findManagedEntityInstance(frame->getManagedEntityInstance());
    }
    int incrementMibDataSyncAttribute() override
    {
        ++dataSync;
        return 0;
    }

    std::map<unsigned short, Bytes> uploads;
    std::map<unsigned short, Bytes> alarms;
    unsigned dataSync = 0;

private:
    static int next(OmciFrame* frame, const std::map<unsigned short, Bytes>& snapshot)
    {
        const unsigned char* contents = frame->getMessageContent();
        Bytes octets(frame->getDeviceId() == OmciFrame::kBaselineDeviceId ? 32 : 1966);
        const auto found = snapshot.find(static_cast<unsigned short>(contents[0] << 8 | contents[1]));
        if (found != snapshot.end()) {
            octets = found->second;
        }
        frame->setFrameToSendBackToOLT(0, 0, 0, 0, octets.data(), static_cast<unsigned short>(octets.size()));
        return 0;
    }
};

#endif
