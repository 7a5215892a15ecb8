#ifndef TESTS_FAULTS_HOOKED_HARDWARE_H
#define TESTS_FAULTS_HOOKED_HARDWARE_H

#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

/// While one lives, a mock of the hardware runs the hook in each call, on whichever thread; then it answers true, 0 or
/// nothing.
class HookedHardware
{
public:
    using Hook = std::function<void()>;

    explicit HookedHardware(Hook hook)
    {
        m_Hook = std::move(hook);
        setFactories<int, unsigned int, unsigned char, bool, std::vector<unsigned char>>();
    }
    ~HookedHardware() { clear<int, unsigned int, unsigned char, bool, std::vector<unsigned char>>(); }
    HookedHardware(const HookedHardware&) = delete;
    HookedHardware& operator=(const HookedHardware&) = delete;

private:
    template <typename Result>
    static Result answer()
    {
        m_Hook();
        if constexpr (std::is_same_v<Result, bool>) {
            return true;
        } else {
            return Result{};
        }
    }
    template <typename... Results>
    static void setFactories()
    {
        (::testing::DefaultValue<Results>::SetFactory(&answer<Results>), ...);
    }
    template <typename... Results>
    static void clear()
    {
        (::testing::DefaultValue<Results>::Clear(), ...);
    }

    inline static Hook m_Hook;
};

/// A hardware layer one call of which throws.
class ThrowingHardware
{
public:
    enum class What
    {
        Exception,
        SomethingElse  ///< than a std::exception
    };
    static constexpr std::size_t kNever = static_cast<std::size_t>(-1);

    /// The call behind `calls` others throws.
    ThrowingHardware(std::size_t calls, What what)
        : m_ThrowingCall(calls), m_Hooked([this, what] {
              if (m_Calls++ != m_ThrowingCall) {
                  return;
              }
              if (what == What::Exception) {
                  throw std::runtime_error("broken hardware");
              }
              throw 1;
          })
    {}

    std::size_t calls() const { return m_Calls; }
    bool hasThrown() const { return m_Calls > m_ThrowingCall; }

private:
    const std::size_t m_ThrowingCall;
    std::atomic<std::size_t> m_Calls{0};
    HookedHardware m_Hooked;
};

#endif
