// In a file of its own, so that the compiler can't see through the virtual calls.
#include "Floors.h"

#include <cstring>
#include <memory>

namespace bench {

namespace {

class StoredEntity : public FloorEntity
{
public:
    int setNumber(unsigned int value) override
    {
        m_Number = value;
        return 0;
    }
    unsigned int getNumber() const override { return m_Number; }
    int setOctets(const unsigned char* value) override
    {
        std::memcpy(m_Octets.data(), value, m_Octets.size());
        return 0;
    }
    const unsigned char* getOctets() const override { return m_Octets.data(); }

private:
    unsigned int m_Number = 0;
    std::array<unsigned char, 25> m_Octets{};
};

}  // namespace

std::map<unsigned short, FloorEntity*>& floorStore(unsigned short instance)
{
    static StoredEntity entity;
    static std::map<unsigned short, FloorEntity*> store;
    store.clear();
    store.emplace(instance, &entity);
    return store;
}

}  // namespace bench
