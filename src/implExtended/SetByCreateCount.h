#ifndef NRVK_IMPL_EXTENDED_SET_BY_CREATE_COUNT_H
#define NRVK_IMPL_EXTENDED_SET_BY_CREATE_COUNT_H

namespace nrvk {

/// The number of set-by-create attributes that the class's adapter lists; 0 when the class is not registered.
unsigned short numberOfSetByCreateAttributes(unsigned short classId);

}  // namespace nrvk

#endif
