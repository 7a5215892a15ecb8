#ifndef SIMULATOR_JSON_H
#define SIMULATOR_JSON_H

#include <cstddef>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

/// Keeps members in the order written.
using Json = nlohmann::ordered_json;

/// A request that cannot be served; the text says what is wrong with it.
class BadRequest : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Lower-case hexadecimal digits.
std::string toHex(const unsigned char* bytes, std::size_t size);
std::string toHex(const std::vector<unsigned char>& bytes);
/// Throws BadRequest on an odd number of digits or anything that is no digit.
std::vector<unsigned char> fromHex(const std::string& digits);

/// One line of text, whatever bytes its strings hold.
std::string toLine(const Json& json);

/// Bytes as text: each becomes the character of that code, so that none is lost.
std::string toText(const std::string& bytes);

/// Whether two names are the same but for case and underscores, as attribute names differ between dump and interface.
bool isSameName(const std::string& left, const std::string& right);

#endif
