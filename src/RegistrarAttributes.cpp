// Values on their way into live instances: start-up values, and changes at run time.
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <type_traits>

#include "OmciHardwareIfc.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "OmciMeManager.h"
#include "OmciMessage.h"
#include "attributeDefinition.h"
#include "impl/BigEndian.h"
#include "impl/Log.h"

namespace {

unsigned int attributeKey(unsigned short instance, unsigned short attributeMask)
{
    return (static_cast<unsigned int>(instance) << 16) | attributeMask;
}

/// A value as text for a log line, without the heap.
class ValueText
{
public:
    template <typename T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
    explicit ValueText(T value)
    {
        std::snprintf(m_Text.data(), m_Text.size(), "%llu", static_cast<unsigned long long>(value));
    }
    explicit ValueText(const std::string& value)
    {
        const std::size_t length = value.copy(m_Text.data(), m_Text.size() - 1);
        m_Text[length] = '\0';
    }

    const char* get() const { return m_Text.data(); }

private:
    std::array<char, 64> m_Text;
};

template <typename T>
void storeNumber(std::vector<unsigned char>& stored, T value)
{
    stored.resize(sizeof(T));
    nrvk::writeBigEndian(stored.data(), stored.size(), value);
}

void storeText(std::vector<unsigned char>& stored, const std::string& value)
{
    // A shorter text is filled up with zeros, a longer one makes the value longer.
    stored.resize(std::max(stored.size(), value.size()));
    std::fill(std::copy(value.begin(), value.end(), stored.begin()), stored.end(), static_cast<unsigned char>(0));
}

}  // namespace

int OmciManagedEntityRegistrar::setManagedEntityAttribute(unsigned short classId, unsigned short instance,
                                                          unsigned short attributeMask,
                                                          std::vector<unsigned char> value)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu); Attribute mask(0x%X); Attribute value size(%u)", classId, instance,
             attributeMask, static_cast<unsigned int>(value.size()));
    return writeAttribute(classId, instance, attributeMask, value.data(), value.size());
}

int OmciManagedEntityRegistrar::writeAttribute(unsigned short classId, unsigned short instance,
                                               unsigned short attributeMask, const unsigned char* value,
                                               std::size_t length)
{
    OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr) {
        NRVK_LOG(3, "Managed entity class(%hu) not found", classId);
        return -1;
    }
    unsigned char size = 0;
    int result = OmciMeManager::getInstance()->getAttributeSize(classId, attributeMask, &size);
    if (result != 0) {
        NRVK_LOG(3, "getAttributeSize(%hu; 0x%X) failed(%d)", classId, attributeMask, result);
        return -1;
    }
    // A one-byte report of a wider attribute is legal: the rest reads as zeros. Eight bytes are the widest number.
    std::array<unsigned char, 256 + 8> padded{};
    std::copy_n(value, std::min(length, padded.size()), padded.begin());
    attributeDefinition definition{};
    definition.attributeMask = attributeMask;
    definition.attributeSize = size;
    result = me->setAttribute(instance, &definition, padded.data());
    if (result != 0) {
        NRVK_LOG(3, "setAttribute(%hu; 0x%X) for ME(%hu) failed(%d)", instance, attributeMask, classId, result);
        return -1;
    }
    const auto message = std::make_unique<OmciMessage>();
    me->buildAttributeValueChangeMessage(instance, attributeMask, message.get());
    if (message->getMessageLength() != 0 && m_OmciHardwareIfc != nullptr) {
        m_OmciHardwareIfc->sendAttributeValueChange(message.get());
    }
    return 0;
}

void OmciManagedEntityRegistrar::writeStoredAttributes(const StartupConfigManagedEntity& managedEntity)
{
    for (const auto& [key, value] : managedEntity.attributeValues) {
        const auto instance = static_cast<unsigned short>(key >> 16);
        const auto attributeMask = static_cast<unsigned short>(key);
        const int result = setManagedEntityAttribute(managedEntity.classId, instance, attributeMask, value);
        if (result != 0) {
            NRVK_LOG(3, "setManagedEntityAttribute(%hu; %u; %u) failed(%d)", managedEntity.classId, instance,
                     attributeMask, result);
        }
    }
}

template <typename T>
int OmciManagedEntityRegistrar::updateAttribute(Picture::iterator managedEntity, unsigned short instance,
                                                unsigned short attributeMask, T value)
{
    const unsigned int key = attributeKey(instance, attributeMask);
    const auto entry = managedEntity->attributeValues.find(key);
    int result = -1;
    if (entry == managedEntity->attributeValues.end()) {
        NRVK_LOG(4, "Key(%d) not found", key);
    } else {
        NRVK_LOG(6, "Updating with (%s)", ValueText(value).get());
        storeNumber(entry->second, value);
        result = 0;
    }
    NRVK_LOG(6, "Result(%d)", result);
    return result;
}

int OmciManagedEntityRegistrar::updateAttribute(Picture::iterator managedEntity, unsigned short instance,
                                                unsigned short attributeMask, const std::string& value)
{
    const unsigned int key = attributeKey(instance, attributeMask);
    const auto entry = managedEntity->attributeValues.find(key);
    int result = -1;
    if (entry == managedEntity->attributeValues.end()) {
        NRVK_LOG(4, "Key(%d) not found", key);
    } else {
        NRVK_LOG(6, "Updating with (%s)", ValueText(value).get());
        storeText(entry->second, value);
        result = 0;
    }
    NRVK_LOG(6, "Result(%d)", result);
    return result;
}

template <typename T>
int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short classId, unsigned short instance,
                                                    unsigned short attributeMask, T value)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu; 0x%X); Value(%s)", classId, instance, attributeMask, ValueText(value).get());
    const auto managedEntity = std::find_if(m_ConfigManagedEntityVector.begin(), m_ConfigManagedEntityVector.end(),
                                            [classId](const auto& record) { return record.classId == classId; });
    if (managedEntity == m_ConfigManagedEntityVector.end()) {
        NRVK_LOG(6, "Number of managed entities supported(%u)",
                 static_cast<unsigned int>(m_ConfigManagedEntityVector.size()));
        return -1;
    }
    const int updated = updateAttribute(managedEntity, instance, attributeMask, value);
    if (updated != 0) {
        NRVK_LOG(3, "Failed to update managed entity(%hu; %hu; 0x%X)", classId, instance, attributeMask);
        return updated;
    }
    const std::vector<unsigned char>& stored = managedEntity->attributeValues[attributeKey(instance, attributeMask)];
    NRVK_LOG(6, "Managed entity(%hu; %hu); Attribute mask(0x%X); Attribute value size(%u)", classId, instance,
             attributeMask, static_cast<unsigned int>(stored.size()));
    const int written = writeAttribute(classId, instance, attributeMask, stored.data(), stored.size());
    if (written != 0) {
        NRVK_LOG(3, "setManagedEntityAttribute(%hu; %hu; 0x%X) failed(%d)", classId, instance, attributeMask, written);
    }
    return 0;
}

template NRVK_EXPORT int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short, unsigned short, unsigned short,
                                                                         unsigned char);
template NRVK_EXPORT int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short, unsigned short, unsigned short,
                                                                         unsigned short);
template NRVK_EXPORT int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short, unsigned short, unsigned short,
                                                                         unsigned int);
template NRVK_EXPORT int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short, unsigned short, unsigned short,
                                                                         unsigned long long);
template NRVK_EXPORT int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short, unsigned short, unsigned short,
                                                                         bool);
template NRVK_EXPORT int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short, unsigned short, unsigned short,
                                                                         std::string);
