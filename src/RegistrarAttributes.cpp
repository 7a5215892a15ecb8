// Values on their way into live instances: start-up values, and changes at run time.
#include <algorithm>
#include <array>
#include <cstddef>
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

}  // namespace

struct OmciManagedEntityRegistrar::ReportedValue
{
    /// For a log line, without the heap.
    using Text = std::array<char, 64>;

    explicit ReportedValue(const std::string& value) : text(&value) {}
    ReportedValue(unsigned long long value, std::size_t width) : number(value), bytes(width) {}

    Text render() const
    {
        Text rendered;
        if (text == nullptr) {
            std::snprintf(rendered.data(), rendered.size(), "%llu", number);
        } else {
            rendered[text->copy(rendered.data(), rendered.size() - 1)] = '\0';
        }
        return rendered;
    }

    void store(std::vector<unsigned char>& stored) const
    {
        if (text == nullptr) {
            stored.resize(bytes);
            nrvk::writeBigEndian(stored.data(), bytes, number);
            return;
        }
        // A shorter text is filled up with zeros, a longer one makes the value longer.
        stored.resize(std::max(stored.size(), text->size()));
        std::fill(std::copy(text->begin(), text->end(), stored.begin()), stored.end(), static_cast<unsigned char>(0));
    }

    unsigned long long number = 0;
    std::size_t bytes = 0;
    const std::string* text = nullptr;
};

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
    const auto& values = managedEntity.attributeValues;
    // By key: the hardware layer may come back from inside a call, and rename an instance of the record.
    for (auto entry = values.begin(); entry != values.end();) {
        const unsigned int key = entry->first;
        const auto instance = static_cast<unsigned short>(key >> 16);
        const auto attributeMask = static_cast<unsigned short>(key);
        const int result = setManagedEntityAttribute(managedEntity.classId, instance, attributeMask, entry->second);
        entry = values.upper_bound(key);
        if (result != 0) {
            NRVK_LOG(3, "setManagedEntityAttribute(%hu; %u; %u) failed(%d)", managedEntity.classId, instance,
                     attributeMask, result);
        }
    }
}

std::vector<unsigned char>* OmciManagedEntityRegistrar::updateAttribute(Picture::iterator managedEntity,
                                                                        unsigned short instance,
                                                                        unsigned short attributeMask,
                                                                        const ReportedValue& value)
{
    const unsigned int key = attributeKey(instance, attributeMask);
    const auto entry = managedEntity->attributeValues.find(key);
    const bool found = entry != managedEntity->attributeValues.end();
    if (found) {
        NRVK_LOG_RENDERED(6, "Updating with (%s)", value.render().data());
        value.store(entry->second);
    } else {
        NRVK_LOG(4, "Key(%d) not found", key);
    }
    NRVK_LOG(6, "Result(%d)", found ? 0 : -1);
    return found ? &entry->second : nullptr;
}

int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short classId, unsigned short instance,
                                                    unsigned short attributeMask, const ReportedValue& value)
{
    NRVK_LOG_RENDERED(6, "Managed entity(%hu; %hu; 0x%X); Value(%s)", classId, instance, attributeMask,
                      value.render().data());
    const auto managedEntity = std::find_if(m_ConfigManagedEntityVector.begin(), m_ConfigManagedEntityVector.end(),
                                            [classId](const auto& record) { return record.classId == classId; });
    if (managedEntity == m_ConfigManagedEntityVector.end()) {
        NRVK_LOG(6, "Number of managed entities supported(%u)",
                 static_cast<unsigned int>(m_ConfigManagedEntityVector.size()));
        return -1;
    }
    const std::vector<unsigned char>* stored = updateAttribute(managedEntity, instance, attributeMask, value);
    if (stored == nullptr) {
        NRVK_LOG(3, "Failed to update managed entity(%hu; %hu; 0x%X)", classId, instance, attributeMask);
        return -1;
    }
    NRVK_LOG(6, "Managed entity(%hu; %hu); Attribute mask(0x%X); Attribute value size(%u)", classId, instance,
             attributeMask, static_cast<unsigned int>(stored->size()));
    const int written = writeAttribute(classId, instance, attributeMask, stored->data(), stored->size());
    if (written != 0) {
        NRVK_LOG(3, "setManagedEntityAttribute(%hu; %hu; 0x%X) failed(%d)", classId, instance, attributeMask, written);
    }
    return 0;
}

template <typename T>
int OmciManagedEntityRegistrar::updateManagedEntity(unsigned short classId, unsigned short instance,
                                                    unsigned short attributeMask, T value)
{
    if constexpr (std::is_integral_v<T>) {
        return updateManagedEntity(classId, instance, attributeMask, ReportedValue(value, sizeof(T)));
    } else {
        return updateManagedEntity(classId, instance, attributeMask, ReportedValue(value));
    }
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
