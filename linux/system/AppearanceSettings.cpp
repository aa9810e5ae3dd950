#include "linux/system/AppearanceSettings.h"

namespace platform::system {

namespace {

constexpr std::string_view standard = AppearanceSettings::namespaces[0];
constexpr std::string_view gnome = AppearanceSettings::namespaces[1];
constexpr std::string_view gnomeAccessibility = AppearanceSettings::namespaces[2];

/// Only the numbers of the portal's own table: all others count as no preference.
constexpr std::uint32_t dark = 1;
constexpr std::uint32_t light = 2;
constexpr std::uint32_t wanted = 1;

/// GNOME's own limits. It reports 1 where the user has chosen nothing; another desktop that passes it on
/// expresses the size of its text by the screen's dots per inch.
constexpr double smallestTextScale = 0.5;
constexpr double largestTextScale = 3;
constexpr double usualTextScale = 1;

/// Reads a variant that contains `type`; leaves `to` unchanged and skips a variant of another kind.
template <class Read, class T>
void take(sd_bus_message* message, const char* type, std::optional<T>& to) {
    Read value{};
    if (sd_bus_message_read(message, "v", type, &value) > 0)
        to = static_cast<T>(value);
    else
        sd_bus_message_skip(message, "v");
}

} // namespace

void AppearanceSettings::read(sd_bus_message* message, std::string_view space, std::string_view key) {
    // sd-bus reads a boolean as an int.
    if (space == standard && key == "color-scheme")
        take<std::uint32_t>(message, "u", colorScheme_);
    else if (space == standard && key == "contrast")
        take<std::uint32_t>(message, "u", contrast_);
    else if (space == standard && key == "reduced-motion")
        take<std::uint32_t>(message, "u", reducedMotion_);
    else if (space == gnomeAccessibility && key == "high-contrast")
        take<int>(message, "b", gnomeContrast_);
    else if (space == gnome && key == "enable-animations")
        take<int>(message, "b", gnomeAnimations_);
    else if (space == gnome && key == "text-scaling-factor")
        take<double>(message, "d", gnomeTextScale_);
    else
        sd_bus_message_skip(message, "v");
}

DesktopAppearance AppearanceSettings::appearance() const {
    DesktopAppearance appearance;
    if (colorScheme_ == dark || colorScheme_ == light)
        appearance.dark = colorScheme_ == dark;
    appearance.highContrast = contrast_ ? contrast_ == wanted : gnomeContrast_.value_or(false);
    appearance.reducedMotion = reducedMotion_ ? reducedMotion_ == wanted : !gnomeAnimations_.value_or(true);
    if (gnomeTextScale_ && *gnomeTextScale_ >= smallestTextScale && *gnomeTextScale_ <= largestTextScale &&
        *gnomeTextScale_ != usualTextScale)
        appearance.textScale = gnomeTextScale_;
    return appearance;
}

} // namespace platform::system
