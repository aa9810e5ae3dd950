#include "platform/plist/PropertyListError.h"

#include "platform/plist/PropertyListBounds.h"

#include <string>

namespace platform {

namespace {

class Category : public std::error_category {
public:
    const char* name() const noexcept override { return "property list"; }
    std::string message(int error) const override {
        if (static_cast<PropertyListError>(error) == PropertyListError::TooDeep)
            return "a property list of more than " + std::to_string(deepestPropertyList) +
                   " levels cannot be read again";
        return "a property list of more than " + std::to_string(largestDocument >> 20) +
               " MiB cannot be read again";
    }
};

} // namespace

std::error_code make_error_code(PropertyListError error) {
    // Never destroyed: its errors may be printed until the process has ended.
    static const Category& category = *new Category;
    return {static_cast<int>(error), category};
}

} // namespace platform
