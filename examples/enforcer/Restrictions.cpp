#include "Restrictions.h"

#include <algorithm>
#include <iterator>
#include <wardlock/settings/EnabledAccount.h>
#include <wardlock/settings/Keys.h>

namespace restrictions {

namespace {

// A real enforcing process knows all of the keys in <wardlock/settings/Keys.h>.
constexpr Feature features[] = {
    {"camera", wardlock::kRestrictCamera},
    {"siri", wardlock::kRestrictSiri},
    {"volume", wardlock::kRestrictVolume},
};

/// Returns the list of restricted applications; null where the document has none. The document may contain
/// any kind of value: arrayValue, stringValue and the like read another kind as absent, where Value::array()
/// would be an error of this program.
const platform::Array* restrictedApplications() {
    return platform::arrayValue(wardlock::AccountObject(wardlock::kAppsRestricted));
}

} // namespace

const Feature* feature(std::string_view name) {
    const auto* found = std::find_if(std::begin(features), std::end(features),
                                     [&](const Feature& known) { return known.name == name; });
    return found == std::end(features) ? nullptr : found;
}

bool allows(const Feature& feature) {
    // Always ask this first: with the master switch off nothing is restricted, but the look-ups of the
    // enabled account still return its values.
    return !wardlock::TweakEnabled() || !wardlock::AccountBool(feature.key);
}

bool allowsApplication(std::string_view identifier) {
    const platform::Array* restricted = restrictedApplications();
    if (!wardlock::TweakEnabled() || !restricted)
        return true;
    return std::none_of(restricted->begin(), restricted->end(), [&](const platform::Value& entry) {
        return platform::stringValue(&entry) == identifier;
    });
}

std::string summary() {
    std::string text;
    for (const Feature& known : features)
        if (!allows(known))
            text.append(known.name).append(", ");
    const platform::Array* applications = restrictedApplications();
    if (wardlock::TweakEnabled() && applications && !applications->empty())
        return text + std::to_string(applications->size()) + " applications";
    return text.empty() ? "nothing" : text.substr(0, text.size() - 2);
}

} // namespace restrictions
