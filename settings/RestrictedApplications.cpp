#include "settings/RestrictedApplications.h"

namespace wardlock {

RestrictedApplications::RestrictedApplications(const platform::Array& stored) : elements_(stored) {
    present_.reserve(stored.size());
    for (const platform::Value& element : stored) {
        if (const auto identifier = platform::stringValue(&element))
            present_.emplace(*identifier);
    }
}

bool RestrictedApplications::contains(std::string_view identifier) const {
    return present_.contains(identifier);
}

void RestrictedApplications::append(std::string_view identifier) {
    elements_.append(identifier);
    present_.emplace(identifier);
}

void RestrictedApplications::remove(std::string_view identifier) {
    const auto found = present_.find(identifier);
    if (found == present_.end())
        return;
    elements_.removeObject(identifier);
    present_.erase(found);
}

} // namespace wardlock
