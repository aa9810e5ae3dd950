#pragma once

#include "platform/base/Export.h"
#include "platform/base/Object.h"

#include <string>

namespace wardlock::test {

/// What the test modules' classes and their class methods return. Crosses module boundaries, so it is
/// exported.
class WARDLOCK_API Greeting {
public:
    virtual ~Greeting() = default;
    virtual std::string greeting() const = 0;
    /// Throws the platform's NSInvalidArgumentException.
    virtual void refuse() const {}
};

/// An object that greets; defined by each module for itself.
class WARDLOCK_API GreetingObject : public platform::Object, public Greeting {};

} // namespace wardlock::test
