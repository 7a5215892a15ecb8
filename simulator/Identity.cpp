#include "Identity.h"

#include <stdexcept>

#include "OmciManagedEntityRegistrar.h"

namespace {
constexpr unsigned short kClassOnuG = 256;
constexpr unsigned short kClassOnu2G = 257;

template <typename T>
void write(const std::optional<T>& value, unsigned short classId, unsigned short mask, const char* field)
{
    if (value && OmciManagedEntityRegistrar::getInstance()->updateManagedEntity(classId, 0, mask, *value) != 0) {
        throw std::runtime_error(std::string("[identity] ") + field + ": the start-up MIB has no such attribute");
    }
}
}  // namespace

void writeIdentity(const Identity& identity)
{
    write(identity.vendorId, kClassOnuG, 0x8000, "vendor_id");
    write(identity.hardwareVersion, kClassOnuG, 0x4000, "hardware_version");
    write(identity.equipmentId, kClassOnu2G, 0x8000, "equipment_id");
    write(identity.omccVersion, kClassOnu2G, 0x4000, "omcc_version");
    write(identity.productCode, kClassOnu2G, 0x2000, "product_code");
}
