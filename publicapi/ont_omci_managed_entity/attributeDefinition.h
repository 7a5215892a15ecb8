#ifndef ONT_OMCI_MANAGED_ENTITY_ATTRIBUTE_DEFINITION_H
#define ONT_OMCI_MANAGED_ENTITY_ATTRIBUTE_DEFINITION_H

/// What a getter is read for. The values are OMCI message types; hosts may pass others.
enum EnumOmciAction : int
{
    OMCI_ACTION_SET = 8,
    OMCI_ACTION_GET = 9,  ///< an ordinary read; all reads inside the library
    OMCI_ACTION_GET_CURRENT_DATA = 28
};

/// How a value is coded on the wire.
enum EnumAttributeKind : unsigned int
{
    ATTRIBUTE_KIND_UNSIGNED_8 = 0,  ///< also octet strings and tables
    ATTRIBUTE_KIND_UNSIGNED_16 = 1,
    ATTRIBUTE_KIND_UNSIGNED_32 = 2,
    ATTRIBUTE_KIND_UNSIGNED_64 = 3,
    ATTRIBUTE_KIND_SIGNED_8 = 4,
    ATTRIBUTE_KIND_SIGNED_16 = 5
};

/// Bits of attributeDefinition::attributeFlags.
enum EnumAttributeFlag : unsigned char
{
    ATTRIBUTE_FLAG_SET_BY_CREATE = 1,
    ATTRIBUTE_FLAG_READ = 2,
    ATTRIBUTE_FLAG_WRITE = 4,
    ATTRIBUTE_FLAG_MIB_UPLOAD = 8,
    ATTRIBUTE_FLAG_AVC = 16,
    ATTRIBUTE_FLAG_GET_NEXT = 32
};

/// One attribute of a class. Attribute 1 has mask 0x8000, attribute 16 has 0x0001.
struct attributeDefinition
{
    unsigned short attributeMask;     ///< the attribute's single bit
    unsigned short attributeSize;     ///< bytes on the wire; of one row for a table
    EnumAttributeKind attributeKind;  ///< how the value is coded on the wire
    unsigned char isTableAttribute;   ///< 1 for a table, which is read by get next
    unsigned short
        tableWriteMode;  ///< 1 on the three write-only tables of enhanced security control; for the host alone
    unsigned char attributeFlags;  ///< EnumAttributeFlag bits
};

#endif
