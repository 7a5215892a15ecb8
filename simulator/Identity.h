#ifndef SIMULATOR_IDENTITY_H
#define SIMULATOR_IDENTITY_H

#include <optional>
#include <string>

/// Who the ONU says it is, where the board file replaces the start-up value. Each lands on one attribute, in the
/// start-up picture as well, so that a MIB reset keeps it.
struct Identity
{
    std::optional<std::string> vendorId;         ///< ONU-G (256) VendorId, up to 4 characters
    std::optional<std::string> hardwareVersion;  ///< ONU-G (256) Version, up to 14 characters
    std::optional<std::string> equipmentId;      ///< ONU2-G (257) EquipmentId, up to 20 characters
    std::optional<unsigned char> omccVersion;    ///< ONU2-G (257) OmccVersion
    std::optional<unsigned short> productCode;   ///< ONU2-G (257) VendorProductCode
};

/// Once the start-up MIB stands. std::runtime_error when the picture has no such attribute.
void writeIdentity(const Identity& identity);

/// The OMCC version of G.988 that the start-up value 0xB3 becomes when the ONU takes baseline messages only.
constexpr unsigned char kBaselineOmccVersion = 0xA3;

#endif
