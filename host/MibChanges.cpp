// Create, delete, set and set table: the commands that change the MIB.

#include <algorithm>
#include <array>

#include "AttributeLists.h"
#include "ByteOrder.h"
#include "CommandExecutor.h"
#include "CommandReply.h"
#include "GuardedLog.h"
#include "omci_host/OmciFrame.h"
#include "omci_host/OmciMe.h"
#include "omci_host/OmciMeFactory.h"

namespace omci {

namespace {

/// The one class whose apply tells a refusal by -1; in all others -1 means that there was nothing to apply.
constexpr std::uint16_t kIpHostConfigData = 134;

void stepMibDataSync()
{
    if (OmciMe* const onuData = OmciMeFactory::getInstance()->getManagedEntity(kOnuDataClass)) {
        onuData->incrementMibDataSyncAttribute();
    }
}

bool applyFailed(const OmciMe& me, std::uint16_t instance)
{
    return me.applyConfigurationToHardwareForSet(instance) != 0 && me.getManagedEntityClassId() == kIpHostConfigData;
}

/// What a set's mask and values come to, before anything is changed.
struct SetPlan
{
    struct Value
    {
        const attributeDefinition* definition;
        const unsigned char* octets;
    };

    SetPlan(const AttributeLists& lists, const OmciFrame& frame);

    const Value* begin() const { return m_Values.data(); }
    const Value* end() const { return m_Values.data() + m_Count; }

    /// The values end early, or go on behind the last attribute.
    bool hasWrongLength = false;
    std::uint16_t optionalMask = 0;
    std::uint16_t executionMask = 0;

private:
    void place(const AttributeLists& lists, std::uint16_t mask, const unsigned char* octets);

    std::array<Value, 16> m_Values;
    std::size_t m_Count = 0;
};

SetPlan::SetPlan(const AttributeLists& lists, const OmciFrame& frame)
{
    const unsigned char* const contents = frame.getMessageContent();
    const std::uint16_t requested = read16(contents);
    std::size_t offset = 2;
    for (std::uint16_t mask = 0x8000; mask != 0; mask = static_cast<std::uint16_t>(mask >> 1)) {
        if ((requested & mask) == 0) {
            continue;
        }
        const std::size_t size = lists.size(mask);
        if (size == 0) {
            optionalMask = static_cast<std::uint16_t>(optionalMask | mask);
        } else if (optionalMask != 0) {
            // Behind an attribute of unknown size no value can be found.
            executionMask = static_cast<std::uint16_t>(executionMask | mask);
        } else {
            place(lists, mask, contents + offset);
            offset += size;
        }
    }
    const std::size_t length = frame.getMessageContentLength();
    const bool exact = frame.getDeviceId() == OmciFrame::kExtendedDeviceId && optionalMask == 0;
    hasWrongLength = offset > length || (exact && offset != length);
}

void SetPlan::place(const AttributeLists& lists, std::uint16_t mask, const unsigned char* octets)
{
    const auto found = std::find_if(lists.set.begin(), lists.set.end(), [mask](const attributeDefinition& definition) {
        return definition.attributeMask == mask;
    });
    if (found == lists.set.end()) {
        executionMask = static_cast<std::uint16_t>(executionMask | mask);
        return;
    }
    m_Values[m_Count++] = {&*found, octets};
}

/// The set-by-create values, in attribute order. Yields the mask of those refused.
std::uint16_t writeCreateValues(const OmciMe& me, const AttributeLists& lists, const OmciFrame& frame)
{
    std::uint16_t refused = 0;
    const unsigned char* value = frame.getMessageContent();
    for (const attributeDefinition& definition : lists.create) {
        if (me.setAttribute(frame.getManagedEntityInstance(), &definition, value) != 0) {
            refused = static_cast<std::uint16_t>(refused | definition.attributeMask);
        }
        value += definition.attributeSize;
    }
    return refused;
}

/// An instance that goes again unless it is kept: after a failed create, OLT and ONU must agree that there is none.
class NewInstance
{
public:
    NewInstance(const OmciMe& me, std::uint16_t instance) : m_Me(me), m_Instance(instance) {}
    ~NewInstance()
    {
        if (!m_Kept) {
            remove();
        }
    }
    NewInstance(const NewInstance&) = delete;
    NewInstance& operator=(const NewInstance&) = delete;

    void keep() { m_Kept = true; }

private:
    void remove() const noexcept
    {
        try {
            m_Me.deleteManagedEntityInstance(m_Instance, true);
        } catch (...) {
            logGuarded([this](Logger& logger) {
                logger.writeToLog(0, "remove", "host/MibChanges.cpp", __LINE__, 3, "Managed entity(%hu; %hu) stays",
                                  m_Me.getManagedEntityClassId(), m_Instance);
            });
        }
    }

    const OmciMe& m_Me;
    std::uint16_t m_Instance;
    bool m_Kept = false;
};

bool createValuesHaveWrongLength(const AttributeLists& lists, const OmciFrame& frame)
{
    const std::size_t length = frame.getMessageContentLength();
    return frame.getDeviceId() == OmciFrame::kExtendedDeviceId ? length != lists.createLength
                                                               : length < lists.createLength;
}

}  // namespace

void CommandExecutor::create(OmciMe& me, OmciFrame& frame) const
{
    const std::uint16_t instance = frame.getManagedEntityInstance();
    const bool existed = me.findManagedEntityInstance(instance) == 0;
    const auto lists = AttributeListCache::instance().of(me);
    const bool creatable = me.getCreateAttributesMask() != 0;
    if (!existed && creatable && createValuesHaveWrongLength(*lists, frame)) {
        reply(frame, Result::ParameterError);
        return;
    }
    NewInstance created(me, instance);
    if (existed) {
        created.keep();
    }
    // On an instance that exists this changes nothing, and it is the only way to learn whether the OLT may create.
    if (me.createManagedEntityInstance(instance, true) != 0) {
        created.keep();
        reply(frame, Result::NotSupported);
        return;
    }
    if (existed) {
        reply(frame, Result::InstanceExists);
        return;
    }
    const std::uint16_t refused = writeCreateValues(me, *lists, frame);
    if (refused != 0) {
        reply(frame, Result::ParameterError, 0, refused);
        return;
    }
    me.applyConfigurationToHardwareForSet(instance);
    created.keep();
    stepMibDataSync();
    reply(frame, Result::Success);
}

void CommandExecutor::remove(OmciMe& me, OmciFrame& frame) const
{
    const std::uint16_t instance = frame.getManagedEntityInstance();
    if (me.findManagedEntityInstance(instance) != 0) {
        reply(frame, Result::UnknownInstance);
        return;
    }
    if (me.deleteManagedEntityInstance(instance, true) != 0) {
        reply(frame, Result::NotSupported);
        return;
    }
    stepMibDataSync();
    reply(frame, Result::Success);
}

void CommandExecutor::set(OmciMe& me, OmciFrame& frame) const
{
    const std::uint16_t instance = frame.getManagedEntityInstance();
    if (me.findManagedEntityInstance(instance) != 0) {
        reply(frame, Result::UnknownInstance);
        return;
    }
    const auto lists = AttributeListCache::instance().of(me);
    SetPlan plan(*lists, frame);
    if (plan.hasWrongLength) {
        reply(frame, Result::ParameterError);
        return;
    }
    for (const SetPlan::Value& value : plan) {
        if (me.setAttribute(instance, value.definition, value.octets) != 0) {
            plan.executionMask = static_cast<std::uint16_t>(plan.executionMask | value.definition->attributeMask);
        }
    }
    const bool refusedByHardware = applyFailed(me, instance);
    if ((plan.optionalMask | plan.executionMask) != 0) {
        reply(frame, Result::AttributesFailed, plan.optionalMask, plan.executionMask);
        return;
    }
    if (refusedByHardware) {
        reply(frame, Result::ProcessingError);
        return;
    }
    // The OLT's own value of the counter must stand, 0 included.
    if (me.getManagedEntityClassId() != kOnuDataClass) {
        stepMibDataSync();
    }
    reply(frame, Result::Success);
}

void CommandExecutor::setTable(OmciMe& me, OmciFrame& frame) const
{
    const std::uint16_t instance = frame.getManagedEntityInstance();
    if (me.findManagedEntityInstance(instance) != 0) {
        reply(frame, Result::UnknownInstance);
        return;
    }
    const auto lists = AttributeListCache::instance().of(me);
    const std::uint16_t mask = read16(frame.getMessageContent());
    const auto table = std::find_if(lists->set.begin(), lists->set.end(), [mask](const attributeDefinition& candidate) {
        return candidate.attributeMask == mask && candidate.isTableAttribute != 0;
    });
    const std::size_t length = frame.getMessageContentLength() - 2U;
    if (table == lists->set.end() || length == 0 || length % table->attributeSize != 0) {
        reply(frame, Result::ParameterError);
        return;
    }
    const unsigned char* row = frame.getMessageContent() + 2;
    const unsigned char* const end = row + length;
    while (row != end && me.setAttribute(instance, &*table, row) == 0) {
        row += table->attributeSize;
    }
    const bool refusedByHardware = applyFailed(me, instance);
    if (row != end) {
        reply(frame, Result::AttributesFailed, 0, mask);
    } else if (refusedByHardware) {
        reply(frame, Result::ProcessingError);
    } else {
        stepMibDataSync();
        reply(frame, Result::Success);
    }
}

}  // namespace omci
