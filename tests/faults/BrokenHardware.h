#ifndef TESTS_FAULTS_BROKEN_HARDWARE_H
#define TESTS_FAULTS_BROKEN_HARDWARE_H

#include <gmock/gmock.h>

#include <stdexcept>
#include <vector>

/// While one lives, mocks of the hardware answer each call alike.
class BrokenHardware
{
public:
    enum class Manner
    {
        Fails,  ///< -1, all bits, false, nothing
        Throws
    };

    explicit BrokenHardware(Manner manner)
    {
        if (manner == Manner::Throws) {
            throwFrom<int, unsigned int, unsigned char, bool, std::vector<unsigned char>>();
            return;
        }
        ::testing::DefaultValue<int>::Set(-1);
        ::testing::DefaultValue<unsigned int>::Set(0xFFFFFFFF);
        ::testing::DefaultValue<unsigned char>::Set(0xFF);
    }
    ~BrokenHardware() { clear<int, unsigned int, unsigned char, bool, std::vector<unsigned char>>(); }
    BrokenHardware(const BrokenHardware&) = delete;
    BrokenHardware& operator=(const BrokenHardware&) = delete;

private:
    template <typename... Results>
    static void throwFrom()
    {
        (::testing::DefaultValue<Results>::SetFactory([]() -> Results { throw std::runtime_error("broken hardware"); }),
         ...);
    }

    template <typename... Results>
    static void clear()
    {
        (::testing::DefaultValue<Results>::Clear(), ...);
    }
};

#endif
