#pragma once

#include "platform/base/Export.h"

#include <memory>

namespace platform {

/// Base of every selector target, notification observer and instance of a class created by name. Objects live
/// in std::shared_ptr; code that does not own one keeps a std::weak_ptr. Protocols do not derive from Object,
/// so that a class has exactly one enable_shared_from_this.
class WARDLOCK_API Object : public std::enable_shared_from_this<Object> {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

protected:
    Object() = default;

    /// Returns the owning pointer of this object as a pointer to `T`.
    template <class T>
    std::shared_ptr<T> self(T* object) {
        return std::shared_ptr<T>(shared_from_this(), object);
    }
};

} // namespace platform
