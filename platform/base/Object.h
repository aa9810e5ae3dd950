#pragma once

#include "platform/base/Export.h"

#include <memory>

namespace platform {

/// What can be the target of a selector, the observer of a notification or the instance of a class made by
/// name. Objects live in std::shared_ptr; whoever does not own one holds std::weak_ptr. Protocols do not
/// derive from Object, so that a class has exactly one enable_shared_from_this.
class WARDLOCK_API Object : public std::enable_shared_from_this<Object> {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

protected:
    Object() = default;

    /// The owning pointer of this object, as the class that asks for it.
    template <class T>
    std::shared_ptr<T> self(T* object) {
        return std::shared_ptr<T>(shared_from_this(), object);
    }
};

} // namespace platform
