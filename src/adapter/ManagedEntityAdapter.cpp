#include "adapter/ManagedEntityAdapter.h"

#include "OmciMeFactory.h"

using nrvk::AdapterDescription;
using nrvk::AttributeAccess;
using nrvk::LogName;

// Log lines carry the file of the class's own adapter.
#define LOG(level, ...) NRVK_LOG_FOR_CLASS(description(), level, __VA_ARGS__)

namespace {

constexpr unsigned char kEntryLevel = 6;

const LogName nameOfSet("setAttribute");
const LogName nameOfGet("getAttribute");

/// The lines of a Set or Get of an instance that is not there, and its result.
[[gnu::noinline]] int reportMissing(const LogName& function, const AdapterDescription& entity, unsigned short instance)
{
    entity.store.find(instance);
    nrvk::logForClass(function, entity.file, entity.line, 3, "Instance(%hu) not found", instance);
    return -1;
}

}  // namespace

ManagedEntityAdapter::ManagedEntityAdapter(const AdapterDescription& description) : m_Description(description)
{
    OmciMeFactory::getInstance()->registerManagedEntity(description.entity.classId, this);
    NRVK_LOG_FOR_CLASS(description, 6, "this(%p)", this);
}

ManagedEntityAdapter::~ManagedEntityAdapter()
{
    NRVK_LOG_IF_POSSIBLE(6, "this(%p)", this);
}

int ManagedEntityAdapter::createManagedEntityInstance(unsigned short instance, bool createdByOlt) const
{
    if (!description().creatableByOlt) {
        LOG(3, "Instances of this managed entity can be created only by ONT");
        return -1;
    }
    LOG(6, "Instance(%hu), createdByOLt(%hhu)", instance, createdByOlt);
    if (description().store.createManagedEntityInstance(instance, createdByOlt) == nullptr) {
        LOG(3, "Failed to create instance(%hu)", instance);
        return -1;
    }
    return 0;
}

int ManagedEntityAdapter::deleteManagedEntityInstance(unsigned short instance, bool /*createdByOlt*/) const
{
    if (!description().creatableByOlt) {
        LOG(3, "Instances of this managed entity can be deleted only by ONT");
        return -1;
    }
    LOG(6, "Instance(%hu)", instance);
    if (!description().store.deleteManagedEntityInstance(instance, true)) {
        LOG(3, "Failed to delete instance(%hu)", instance);
        return -1;
    }
    return 0;
}

std::string ManagedEntityAdapter::dumpME(unsigned int instance, unsigned short attributeMask) const
{
    LOG(6, "Instance(%hu); Attribute mask(0x%X)", instance, attributeMask);
    return description().store.dumpAllME(instance, attributeMask);
}

void ManagedEntityAdapter::eraseAllManagedEntityInstances() const
{
    description().store.eraseAllManagedEntityInstance();
}

int ManagedEntityAdapter::findManagedEntityInstance(unsigned short instance) const
{
    LOG(6, "Instance(%hu)", instance);
    if (description().store.find(instance) == nullptr) {
        LOG(3, "Instance(%hu) not found", instance);
        return -1;
    }
    return 0;
}

bool ManagedEntityAdapter::getAlarmsBitmap(unsigned short instance, std::bitset<223>& bitmap) const
{
    LOG(6, "Instance(%hu)", instance);
    const void* object = description().store.find(instance);
    if (object == nullptr) {
        LOG(3, "Instance(%hu) not found", instance);
        return false;
    }
    description().object.getAlarmsBitmap(object, bitmap);
    LOG(6, "Number of active alarms(%hhu)", static_cast<unsigned char>(bitmap.count()));
    return true;
}

int ManagedEntityAdapter::updateAlarmsBitmap(unsigned short instance, unsigned char alarmNumber, bool state) const
{
    LOG(6, "Instance(%hu); Alarm(%hhu; %hhu)", instance, alarmNumber, state);
    void* object = description().store.find(instance);
    if (object == nullptr) {
        LOG(3, "Instance(%d) not found", instance);
        return -1;
    }
    description().object.updateAlarmsBitmap(object, alarmNumber, state);
    return 0;
}

// The roads of a Set and of a Get that have nothing to report end in jumps, so that they need no frames: the attribute
// is found first, since what it is found by is needed no more then.
int ManagedEntityAdapter::setAttribute(unsigned short instance, const attributeDefinition* definition,
                                       const unsigned char* buffer) const
{
    if (nrvk::isDropped(kEntryLevel) && definition != nullptr && buffer != nullptr) {
        const AdapterDescription& entity = description();
        if (const AttributeAccess* access = entity.find(definition->attributeMask)) {
            void* object = entity.store.lookUp(instance);
            return object != nullptr ? nrvk::setFromWire(*access, object, buffer)
                                     : reportMissing(nameOfSet, entity, instance);
        }
    }
    return setAttributeWithLines(instance, definition, buffer);
}

// The lines of both roads carry the name of the operation.
#define LINE_OF_CLASS(level, ...) nrvk::logForClass(function, entity.file, entity.line, level, __VA_ARGS__)

int ManagedEntityAdapter::setAttributeWithLines(unsigned short instance, const attributeDefinition* definition,
                                                const unsigned char* buffer) const
{
    const LogName& function = nameOfSet;
    const AdapterDescription& entity = description();
    LINE_OF_CLASS(6, "Instance(%hu); Attribute definition(%p); Buffer(%p)", instance, definition, buffer);
    if (definition == nullptr || buffer == nullptr) {
        LINE_OF_CLASS(3, "NULL 'attributeDefinition(%p)' or 'buffer(%p)' pointer", definition, buffer);
        return -1;
    }
    void* object = entity.store.lookUp(instance);
    if (object == nullptr) {
        return reportMissing(function, entity, instance);
    }
    const AttributeAccess* access = entity.find(definition->attributeMask);
    if (access == nullptr) {
        LINE_OF_CLASS(3, "Attribute mask(0x%X) not supported", definition->attributeMask);
        return -1;
    }
    return nrvk::setFromWire(*access, object, buffer);
}

int ManagedEntityAdapter::getAttribute(unsigned short instance, const attributeDefinition* definition,
                                       unsigned char* buffer, EnumOmciAction action) const
{
    if (nrvk::isDropped(kEntryLevel) && definition != nullptr && buffer != nullptr) {
        const AdapterDescription& entity = description();
        if (const AttributeAccess* access = entity.find(definition->attributeMask)) {
            const void* object = entity.store.lookUp(instance);
            return object != nullptr ? nrvk::getToWire(*access, object, buffer, action)
                                     : reportMissing(nameOfGet, entity, instance);
        }
    }
    return getAttributeWithLines(instance, definition, buffer, action);
}

int ManagedEntityAdapter::getAttributeWithLines(unsigned short instance, const attributeDefinition* definition,
                                                unsigned char* buffer, EnumOmciAction action) const
{
    const LogName& function = nameOfGet;
    const AdapterDescription& entity = description();
    LINE_OF_CLASS(6, "Instance(%hu); Attribute(%p); Buffer(%p); Action(%d)", instance, definition, buffer, action);
    if (definition == nullptr || buffer == nullptr) {
        LINE_OF_CLASS(3, "NULL 'attributeDefinition(%p)' or 'buffer(%p)' pointer", definition, buffer);
        return -1;
    }
    const void* object = entity.store.lookUp(instance);
    if (object == nullptr) {
        return reportMissing(function, entity, instance);
    }
    const AttributeAccess* access = entity.find(definition->attributeMask);
    if (access == nullptr) {
        LINE_OF_CLASS(3, "Attribute mask(0x%X) not supported", definition->attributeMask);
        return 0;  // unlike a Set: the OLT's Get of an attribute that the class lacks succeeds with nothing written
    }
    return nrvk::getToWire(*access, object, buffer, action);
}

int ManagedEntityAdapter::copyAttributes(std::list<attributeDefinition>* list, EnumAttributeFlag flag,
                                         const LogName& function) const
{
    const AdapterDescription& entity = description();
    if (list == nullptr) {
        nrvk::logForClass(function, entity.file, entity.line, 3, "NULL AttributeDefinition list pointer");
        return -1;
    }
    list->clear();
    for (unsigned int i = 0; i < entity.definitionCount; ++i) {
        const attributeDefinition& definition = entity.entity.attributes[i].definition;
        if ((definition.attributeFlags & flag) != 0) {
            list->push_back(definition);
        }
    }
    nrvk::logForClass(function, entity.file, entity.line, 6, "Number of attributes(%u)",
                      static_cast<unsigned int>(list->size()));
    return 0;
}

int ManagedEntityAdapter::getAttributesListForAvc(std::list<attributeDefinition>* list) const
{
    static const LogName function(__func__);
    return copyAttributes(list, ATTRIBUTE_FLAG_AVC, function);
}

int ManagedEntityAdapter::getAttributesListForCreate(std::list<attributeDefinition>* list) const
{
    static const LogName function(__func__);
    if (description().createMask == 0) {
        return 0;  // with nothing set by create the list is left untouched
    }
    return copyAttributes(list, ATTRIBUTE_FLAG_SET_BY_CREATE, function);
}

int ManagedEntityAdapter::getAttributesListForGet(std::list<attributeDefinition>* list) const
{
    static const LogName function(__func__);
    return copyAttributes(list, ATTRIBUTE_FLAG_READ, function);
}

int ManagedEntityAdapter::getAttributesListForGetNext(std::list<attributeDefinition>* list) const
{
    static const LogName function(__func__);
    return copyAttributes(list, ATTRIBUTE_FLAG_GET_NEXT, function);
}

int ManagedEntityAdapter::getAttributesListForMibUpload(std::list<attributeDefinition>* list) const
{
    static const LogName function(__func__);
    return copyAttributes(list, ATTRIBUTE_FLAG_MIB_UPLOAD, function);
}

int ManagedEntityAdapter::getAttributesListForSet(std::list<attributeDefinition>* list) const
{
    static const LogName function(__func__);
    return copyAttributes(list, ATTRIBUTE_FLAG_WRITE, function);
}

unsigned short ManagedEntityAdapter::getCreateAttributesMask() const
{
    return description().createMask;
}

unsigned short ManagedEntityAdapter::getGetAttributesMask() const
{
    return description().getMask;
}

unsigned short ManagedEntityAdapter::getGetNextAttributesMask() const
{
    return description().getNextMask;
}

unsigned short ManagedEntityAdapter::getSetAttributesMask() const
{
    return description().setMask;
}

int ManagedEntityAdapter::getFirstManagedEntityInstance(unsigned short* instance) const
{
    if (instance == nullptr) {
        LOG(3, "NULL pointer");
        return -1;
    }
    if (!description().store.firstId(*instance)) {
        LOG(6, "Empty list");
        return -1;
    }
    LOG(6, "Return instance(%hu)", *instance);
    return 0;
}

int ManagedEntityAdapter::getNextManagedEntityInstance(unsigned short* instance) const
{
    if (instance == nullptr) {
        LOG(3, "NULL pointer");
        return -1;
    }
    if (!description().store.nextId(*instance)) {
        LOG(6, "Reached end of list");
        return -1;
    }
    LOG(6, "Return instance(%hu)", *instance);
    return 0;
}

unsigned short ManagedEntityAdapter::getManagedEntityClassId() const
{
    return description().entity.classId;
}

std::string ManagedEntityAdapter::getManagedEntityName() const
{
    return description().name;
}

bool ManagedEntityAdapter::isPartOfAlarmsUpload() const
{
    const bool partOfUpload = description().partOfAlarmsUpload;
    LOG(6, partOfUpload ? "Alarms upload(true)" : "Alarms upload(false)");
    return partOfUpload;
}

bool ManagedEntityAdapter::isPartOfMibUpload() const
{
    const bool partOfUpload = description().partOfMibUpload;
    LOG(6, partOfUpload ? "MIB upload(true)" : "MIB upload(false)");
    return partOfUpload;
}

int ManagedEntityAdapter::applyConfigurationToHardwareForSet(unsigned short instance) const
{
    const AdapterDescription& entity = description();
    NRVK_LOG_FOR_CLASS(entity, 6, "Instance(%hu);", instance);
    if (entity.object.applyConfigurationToHardwareForSet == nullptr) {
        return 0;
    }
    void* object = entity.store.find(instance);
    return object != nullptr ? entity.object.applyConfigurationToHardwareForSet(object) : -1;
}
