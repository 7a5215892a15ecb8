#ifndef SIMULATOR_CONTROL_CALL_ARGUMENTS_H
#define SIMULATOR_CONTROL_CALL_ARGUMENTS_H

#include <cstddef>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "JsonValues.h"
#include "OmciManagedEntitiesCore.h"

/// Turns the JSON arguments of a call into those of a C++ function, and its results back.
///
/// A reference to something that is not constant is an out argument: it may be left out of the request, and what it
/// holds after the call stands in "out".
namespace calls {

/// One parameter of type T, held for the length of a call.
template <typename T>
class Argument
{
public:
    static constexpr bool kIsOut = std::is_lvalue_reference_v<T> && !std::is_const_v<std::remove_reference_t<T>>;

    void read(const Json& json, const std::string& what) { values::from(json, m_Value, what); }
    T pass() { return static_cast<T>(m_Value); }
    Json out() const { return values::to(m_Value); }

private:
    std::decay_t<T> m_Value{};
};

/// A text that the callee may write to.
template <>
class Argument<char*>
{
public:
    static constexpr bool kIsOut = false;

    void read(const Json& json, const std::string& what) { values::from(json, m_Value, what); }
    char* pass() { return m_Value.data(); }
    Json out() const { return nullptr; }

private:
    std::string m_Value;
};

/// A row of the start-up table, named by its class.
template <>
class Argument<DefaultConfigManagedEntity>
{
public:
    static constexpr bool kIsOut = false;

    void read(const Json& json, const std::string& what);
    DefaultConfigManagedEntity pass() { return *m_Row; }
    Json out() const { return nullptr; }

private:
    const DefaultConfigManagedEntity* m_Row = nullptr;
};

/// A call that can be made by name: JSON arguments in, the answer with "result" and "out" back.
using Call = std::function<Json(const Json& arguments)>;

/// Reads the arguments, in order. BadRequest when their number or one of them is wrong.
template <typename... T>
void readArguments(const Json& json, std::tuple<Argument<T>...>& arguments)
{
    constexpr std::size_t all = sizeof...(T);
    constexpr std::size_t wanted = (std::size_t{Argument<T>::kIsOut ? 0 : 1} + ... + 0);
    if (!json.is_array() || (json.size() != wanted && json.size() != all)) {
        throw BadRequest("takes " + std::to_string(wanted) + " arguments" +
                         (wanted == all ? "" : " (" + std::to_string(all) + " with those it writes)"));
    }
    const bool hasOut = json.size() == all;
    std::size_t index = 0;
    const auto readOne = [&](auto& argument) {
        if (!argument.kIsOut || hasOut) {
            argument.read(json[index], "argument " + std::to_string(index + 1));
            ++index;
        }
    };
    std::apply([&](auto&... argument) { (readOne(argument), ...); }, arguments);
}

/// Runs the function and makes the answer.
template <typename Result, typename Function, typename... T>
Json answer(const Function& function, std::tuple<Argument<T>...>& arguments)
{
    Json json = Json::object();
    if constexpr (std::is_void_v<Result>) {
        std::apply([&](auto&... argument) { function(argument.pass()...); }, arguments);
        json["result"] = 0;
    } else {
        json["result"] =
            values::to(std::apply([&](auto&... argument) { return function(argument.pass()...); }, arguments));
    }
    Json out = Json::array();
    const auto takeOut = [&out](const auto& argument) {
        if (argument.kIsOut) {
            out.push_back(argument.out());
        }
    };
    std::apply([&](const auto&... argument) { (takeOut(argument), ...); }, arguments);
    if (!out.empty()) {
        json["out"] = std::move(out);
    }
    return json;
}

/// A callable of the given signature.
template <typename Result, typename... T>
Call callOf(std::function<Result(T...)> function)
{
    return [function = std::move(function)](const Json& json) {
        std::tuple<Argument<T>...> arguments;
        readArguments(json, arguments);
        return answer<Result>(function, arguments);
    };
}

/// A static operation.
template <typename Result, typename... T>
Call callOf(Result (*function)(T...))
{
    return callOf(std::function<Result(T...)>(function));
}

/// An operation of the object that `provider` yields at the time of the call.
template <typename Provider, typename Object, typename Result, typename... T>
Call callOf(Provider provider, Result (Object::*operation)(T...))
{
    return callOf(std::function<Result(T...)>([provider, operation](T... argument) -> Result {
        return (provider().*operation)(std::forward<T>(argument)...);
    }));
}

template <typename Provider, typename Object, typename Result, typename... T>
Call callOf(Provider provider, Result (Object::*operation)(T...) const)
{
    return callOf(std::function<Result(T...)>([provider, operation](T... argument) -> Result {
        return (provider().*operation)(std::forward<T>(argument)...);
    }));
}

}  // namespace calls

#endif
