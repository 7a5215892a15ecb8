#ifndef TESTS_MODEL_CLASS_LIST_H
#define TESTS_MODEL_CLASS_LIST_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace model {

using Bytes = std::vector<std::uint8_t>;

struct Attribute
{
    std::uint16_t mask = 0;
    std::size_t size = 0;  ///< octets; of a table, those of one row
    bool isTable = false;
    std::string access;  ///< letters: C set by create, R read, W write, U in the MIB upload, N served by get next
    Bytes defaultValue;  ///< in network order; zeros where the list keeps none; of a table, its count of rows
    std::string name;

    bool has(char letter) const { return access.find(letter) != std::string::npos; }
    /// Octets of the answer to a get.
    std::size_t readSize() const { return defaultValue.size(); }
};

struct EntityClass
{
    std::uint16_t number = 0;
    std::string name;
    bool isInMibUpload = false;
    bool isCreatedByOlt = false;
    bool isCreatedByOnu = false;
    std::vector<Attribute> attributes;

    /// Null for a bit that is no attribute of the class.
    const Attribute* find(std::uint16_t mask) const;
    /// All attributes with the letter.
    std::uint16_t maskOf(char letter) const;
};

using ClassList = std::map<std::uint16_t, EntityClass>;

/// Reads the second list, classes-*.txt in `directory`. Throws std::runtime_error when there is none.
ClassList readClassList(const std::string& directory);

}  // namespace model

#endif
