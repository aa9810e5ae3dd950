#pragma once

#include "platform/values/Value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::bench {

/// The rows of the picker wherever the window is measured.
inline constexpr std::size_t pickerRows = 10'000;

/// Returns `count` names of applications, in mixed case, one in eight of another script; the same at each
/// call.
std::vector<std::string> sampleNames(std::size_t count);
/// Returns the identifier of the application of that number.
std::string sampleIdentifier(std::size_t number);

/// While it lives, the class "ALApplicationList" is found by name and has these applications, without icons.
/// The picker's remaining time is its own.
class InstalledApplications {
public:
    explicit InstalledApplications(std::size_t count);
    ~InstalledApplications();
    InstalledApplications(const InstalledApplications&) = delete;
    InstalledApplications& operator=(const InstalledApplications&) = delete;
};

} // namespace wardlock::bench
