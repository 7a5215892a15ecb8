# Turns a file into a C++ source that holds its octets.
#   cmake -D INPUT=file -D OUTPUT=source.cpp -D NAME=identifier -D NAMESPACE=namespace -P EmbedFile.cmake

file(READ "${INPUT}" octets HEX)
string(LENGTH "${octets}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," octets "${octets}")
# Lines of a hundred octets: some tools give up on a line of a megabyte.
string(REPEAT "....." 100 hundred)
string(REGEX REPLACE "(${hundred})" "\\1\n" octets "${octets}")
file(WRITE "${OUTPUT}" "// Generated from ${NAME}'s file; not to be edited.
namespace ${NAMESPACE} {
extern const unsigned char ${NAME}[];
extern const unsigned long ${NAME}Size;
const unsigned char ${NAME}[] = {
${octets}
};
const unsigned long ${NAME}Size = ${size};
}  // namespace ${NAMESPACE}
")
