#pragma once

#include <string>
#include <string_view>

/// What the child may do at this moment, asked at the moment it is done. Nothing is kept here: the settings
/// library holds the settings in memory and reads them anew when they change, and a look-up costs
/// nanoseconds. Main thread only, as all of that library.
namespace restrictions {

/// Something that this program can keep away, and the key of an account that says whether it does.
struct Feature {
    std::string_view name;
    std::string_view key;
};
/// The feature that a question names; null for an unknown one.
const Feature* feature(std::string_view name);

bool allows(const Feature& feature);
/// Whether the application of this bundle identifier may be opened.
bool allowsApplication(std::string_view identifier);

/// All that is kept away, in a line: "camera, siri, 9 applications".
std::string summary();

} // namespace restrictions
