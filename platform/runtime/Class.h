#pragma once

#include "platform/base/Export.h"
#include "platform/base/Object.h"

#include <cstddef>
#include <memory>
#include <string_view>

namespace platform {

/// A class that can be named at run time. Instances have static storage duration in the module that defines
/// the class.
class WARDLOCK_API Class {
public:
    using Factory = std::shared_ptr<Object> (*)();
    using Meta = Object& (*)();

    /// `create` makes an instance (`alloc`/`init`), null where the class offers none; `meta` answers the
    /// object that carries the class methods, null where there are none.
    constexpr Class(std::string_view name, Factory create, Meta meta = nullptr)
        : name_(name), create_(create), meta_(meta) {}

    constexpr std::string_view name() const { return name_; }
    /// A new instance, or null where the class makes none.
    std::shared_ptr<Object> create() const { return create_ ? create_() : nullptr; }
    /// The class methods as the protocol asked for; null where the class has none of that kind.
    template <class Protocol>
    Protocol* classMethods() const {
        return meta_ ? dynamic_cast<Protocol*>(&meta_()) : nullptr;
    }

private:
    std::string_view name_;
    Factory create_;
    Meta meta_;
};

/// Makes a default-constructible `T` for Class.
template <class T>
std::shared_ptr<Object> makeInstance() {
    return std::make_shared<T>();
}

/// What a module hands over when it is loaded: the classes it offers by name. A module defines
///     extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();
/// Plain data, as an entry with C linkage wants it: without member initialisers, so make an empty one as
/// ClassTable(). The classes are of static storage duration.
struct ClassTable {
    ClassTable() = default;
    template <std::size_t Count>
    constexpr ClassTable(const Class* const (&table)[Count]) : classes(table), count(Count) {}

    constexpr const Class* const* begin() const { return classes; }
    constexpr const Class* const* end() const { return classes + count; }
    constexpr std::size_t size() const { return count; }

    const Class* const* classes;
    std::size_t count;
};
inline constexpr const char* classTableEntry = "wardlock_classes";

/// The class registered under the name, or null. Classes of later tables hide those of earlier ones. Any
/// thread.
WARDLOCK_API const Class* objc_getClass(std::string_view name);

/// The table's class of that name, or null.
WARDLOCK_API const Class* classInTable(const ClassTable& table, std::string_view name);

/// Registers and withdraws a table; used by dlopen/dlclose and by a program for its own classes. A table
/// registered twice is withdrawn twice.
WARDLOCK_API void registerClasses(ClassTable table);
WARDLOCK_API void withdrawClasses(ClassTable table);

} // namespace platform
