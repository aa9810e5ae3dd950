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

    /// `create` returns a new instance (`alloc`/`init`); it is null where the class has none. `meta` returns
    /// the object with the class methods; it is null where there are none.
    constexpr Class(std::string_view name, Factory create, Meta meta = nullptr)
        : name_(name), create_(create), meta_(meta) {}

    constexpr std::string_view name() const { return name_; }
    /// Returns a new instance, or null where the class creates none.
    std::shared_ptr<Object> create() const { return create_ ? create_() : nullptr; }
    /// Returns the class methods as `Protocol`; null where the class has none of that protocol.
    template <class Protocol>
    Protocol* classMethods() const {
        return meta_ ? dynamic_cast<Protocol*>(&meta_()) : nullptr;
    }

private:
    std::string_view name_;
    Factory create_;
    Meta meta_;
};

/// Creates a default-constructible `T` for Class.
template <class T>
std::shared_ptr<Object> makeInstance() {
    return std::make_shared<T>();
}

/// The classes that a module offers by name when it is loaded. A module defines
///     extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();
/// Plain data, as C linkage requires: without member initialisers, so write an empty one as ClassTable(). The
/// classes have static storage duration.
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

/// Returns the class registered under `name`, or null. Classes of later tables hide those of earlier ones.
/// Any thread.
WARDLOCK_API const Class* objc_getClass(std::string_view name);

/// Returns the table's class of that name, or null.
WARDLOCK_API const Class* classInTable(const ClassTable& table, std::string_view name);

/// Registers and withdraws a table; used by dlopen/dlclose and by a program for its own classes. A table that
/// was registered twice must be withdrawn twice.
WARDLOCK_API void registerClasses(ClassTable table);
WARDLOCK_API void withdrawClasses(ClassTable table);

} // namespace platform
