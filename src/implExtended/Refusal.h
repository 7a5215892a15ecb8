#ifndef NRVK_IMPL_EXTENDED_REFUSAL_H
#define NRVK_IMPL_EXTENDED_REFUSAL_H

namespace nrvk {

/// The result of a setter that refuses a value: -1, with `text` at level 3 in the setter's name. `text` is a printf
/// format with one place for the value.
int refuse(const char* text, unsigned char value, const char* function = __builtin_FUNCTION(),
           const char* file = __builtin_FILE(), unsigned int line = __builtin_LINE());

}  // namespace nrvk

#endif
