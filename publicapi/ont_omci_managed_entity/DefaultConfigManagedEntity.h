#ifndef ONT_OMCI_MANAGED_ENTITY_DEFAULT_CONFIG_MANAGED_ENTITY_H
#define ONT_OMCI_MANAGED_ENTITY_DEFAULT_CONFIG_MANAGED_ENTITY_H

#include <string>

/// How a start-up text becomes bytes. Numbers go through atoi and come out most significant byte first.
enum EnumStartupValueKind : unsigned int
{
    STARTUP_VALUE_NONE = 0,  ///< no entry
    STARTUP_VALUE_1_BYTE = 1,
    STARTUP_VALUE_2_BYTES = 2,
    STARTUP_VALUE_4_BYTES = 3,
    STARTUP_VALUE_8_BYTES = 4,  ///< sign-extended from 32 bits
    STARTUP_VALUE_OCTETS = 5    ///< the first 25 bytes of the text field as they stand
};

/// One row of the start-up table.
struct DefaultConfigManagedEntity
{
    /// Texts of attributes 1 to 16, zero filled.
    using AttributeValues = unsigned char[16][26];
    /// The instance id of index 0, 1 ...
    using InstanceFunction = unsigned short (*)(unsigned char index);
    /// Edits the row's texts for this index, in place, before the bytes are made.
    using UpdateFunction = void (*)(unsigned char index, AttributeValues& values, const std::string& factoryFile);

    unsigned short classId;                   ///< G.988 class number
    unsigned char instanceCount;              ///< instances at the start; boards change it
    InstanceFunction instanceFunction;        ///< null when the count is 0 and no board changes it
    UpdateFunction updateFunction;            ///< may be null
    EnumStartupValueKind attributeKinds[16];  ///< what each text becomes, attribute 1 first
    AttributeValues attributeValues;          ///< the texts, attribute 1 first
};

#endif
