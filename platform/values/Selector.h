#pragma once

#include "platform/base/Object.h"
#include "platform/values/NSException.h"

#include <string>
#include <string_view>
#include <utility>

namespace platform {

template <class Signature>
class Selector;

/// A message that an object responds to: its name, for people, and the member function behind it. Copyable.
/// The empty selector (default-constructed) is the platform's null selector. The name must outlive the
/// selector: use a literal.
template <class R, class... Args>
class Selector<R(Args...)> {
public:
    constexpr Selector() = default;

    /// Returns a selector for `Method`, a pointer to a member function that takes (Args...) or fewer
    /// parameters. A method that ignores the sender takes none.
    template <auto Method>
    static constexpr Selector of(std::string_view name) {
        return Selector(name, &call<Method>);
    }

    /// Sends the message to `target`. Throws NSInvalidArgumentException when the target's class has no such
    /// method and when the selector is empty.
    R operator()(Object& target, Args... args) const {
        if (!invoke_)
            throw NSException(NSInvalidArgumentException, "empty selector sent");
        return invoke_(name_, target, std::forward<Args>(args)...);
    }

    constexpr std::string_view name() const { return name_; }
    constexpr explicit operator bool() const { return invoke_ != nullptr; }
    constexpr bool operator==(const Selector& other) const { return invoke_ == other.invoke_; }

private:
    using Invoke = R (*)(std::string_view, Object&, Args...);

    constexpr Selector(std::string_view name, Invoke invoke) : name_(name), invoke_(invoke) {}

    template <class T, class Result, class... Taken>
    static T* receiver(Object& target, Result (T::*)(Taken...)) {
        return dynamic_cast<T*>(&target);
    }
    template <class T, class Result, class... Taken>
    static T* receiver(Object& target, Result (T::*)(Taken...) const) {
        return dynamic_cast<T*>(&target);
    }

    template <auto Method>
    static R call(std::string_view name, Object& target, Args... args) {
        auto* object = receiver(target, Method);
        if (!object)
            throw NSException(NSInvalidArgumentException,
                              std::string(name) + ": unrecognized selector sent to instance");
        if constexpr (requires { (object->*Method)(std::forward<Args>(args)...); })
            return (object->*Method)(std::forward<Args>(args)...);
        else
            return (object->*Method)();
    }

    std::string_view name_;
    Invoke invoke_ = nullptr;
};

} // namespace platform
