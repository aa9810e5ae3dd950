#pragma once

#include <string>
#include <string_view>

/// What the child may do at this moment, checked at the moment it is done. Nothing is kept here: the settings
/// library keeps the settings in memory and reads them again when they change, and a look-up costs
/// nanoseconds. Main thread only, as all of that library.
namespace restrictions {

/// A feature that this program can restrict, and the key of an account that restricts it.
struct Feature {
    std::string_view name;
    std::string_view key;
};
/// Returns the feature of that name; null for an unknown one.
const Feature* feature(std::string_view name);

bool allows(const Feature& feature);
/// Returns whether the application of this bundle identifier may be opened.
bool allowsApplication(std::string_view identifier);

/// Returns everything that is restricted, in one line: "camera, siri, 9 applications".
std::string summary();

} // namespace restrictions
