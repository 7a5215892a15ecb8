#ifndef HOST_ATTRIBUTE_LISTS_H
#define HOST_ATTRIBUTE_LISTS_H

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <shared_mutex>
#include <vector>

#include "ont_omci_managed_entity/attributeDefinition.h"

class OmciMe;

namespace omci {

/// The attribute lists of one class as its adapter gave them, so that a message does not copy them again.
struct AttributeLists
{
    /// Asks the adapter for its lists.
    explicit AttributeLists(const OmciMe& me);

    /// Octets that op `getAttribute` writes: a table yields its size.
    static std::uint16_t readLength(const attributeDefinition& definition)
    {
        return definition.isTableAttribute != 0 ? std::uint16_t{4} : definition.attributeSize;
    }
    /// Octets on the wire by a single-bit mask, of one row for a table; 0 when the class has no such attribute.
    std::uint16_t size(std::uint16_t mask) const;

    std::vector<attributeDefinition> get;     ///< readable by get
    std::vector<attributeDefinition> set;     ///< writable by set
    std::vector<attributeDefinition> create;  ///< set by create
    std::vector<attributeDefinition> avc;     ///< report attribute value changes
    /// Without tables, which G.988 keeps out of the upload.
    std::vector<attributeDefinition> upload;
    std::uint16_t getMask = 0;  ///< the mask that the class announces for get
    std::uint16_t setMask = 0;  ///< the mask that the class announces for set
    /// All attributes of any list.
    std::uint16_t knownMask = 0;
    /// Octets of all set-by-create values.
    std::uint16_t createLength = 0;

private:
    void learn(const std::vector<attributeDefinition>& definitions);

    std::array<std::uint16_t, 16> m_Sizes{};
};

/// The lists of every class, each taken from the adapter at its first use. Any thread may call.
class AttributeListCache
{
public:
    /// The one object of the process.
    static AttributeListCache& instance();

    /// The lists of `me`'s class. Good for as long as the caller holds them.
    std::shared_ptr<const AttributeLists> of(const OmciMe& me);
    /// To be called when the class gets another adapter, or loses it.
    void forget(std::uint16_t classId);

private:
    struct Entry
    {
        const OmciMe* owner = nullptr;
        std::shared_ptr<const AttributeLists> lists;
    };

    std::shared_mutex m_Mutex;
    std::map<std::uint16_t, Entry> m_Entries;
};

}  // namespace omci

#endif
