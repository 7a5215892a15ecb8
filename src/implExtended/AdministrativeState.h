#ifndef NRVK_IMPL_EXTENDED_ADMINISTRATIVE_STATE_H
#define NRVK_IMPL_EXTENDED_ADMINISTRATIVE_STATE_H

namespace nrvk {

constexpr unsigned char kUnlocked = 0;
constexpr unsigned char kLocked = 1;

constexpr unsigned char kEnabled = 0;
constexpr unsigned char kDisabled = 1;

}  // namespace nrvk

#endif
