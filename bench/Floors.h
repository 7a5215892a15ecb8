#ifndef NRVK_BENCH_FLOORS_H
#define NRVK_BENCH_FLOORS_H

#include <array>
#include <map>

namespace bench {

/// The least that holds an attribute behind an interface: what a Set or Get of the library is compared with.
class FloorEntity
{
public:
    virtual ~FloorEntity() = default;
    virtual int setNumber(unsigned int value) = 0;
    virtual unsigned int getNumber() const = 0;
    virtual int setOctets(const unsigned char* value) = 0;
    virtual const unsigned char* getOctets() const = 0;
};

/// A store of one entity under the given id, in ascending order of ids as the library's are.
std::map<unsigned short, FloorEntity*>& floorStore(unsigned short instance);

}  // namespace bench

#endif
