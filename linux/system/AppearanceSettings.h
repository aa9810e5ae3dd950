#pragma once

#include "platform/services/DesktopAppearance.h"

#include <systemd/sd-bus.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform::system {

/// The settings of a portal that bear on the appearance: the standard ones, and those of GNOME where the
/// portal does not report the standard one for the same thing.
class AppearanceSettings {
public:
    /// Where the settings are.
    static constexpr std::array<const char*, 3> namespaces{
        "org.freedesktop.appearance", "org.gnome.desktop.interface", "org.gnome.desktop.a11y.interface"};

    /// Reads the value at the message's position, a variant. A setting that is not of this class or has a
    /// value of another kind is skipped.
    void read(sd_bus_message* message, std::string_view space, std::string_view key);

    DesktopAppearance appearance() const;
    /// Whether any of them is the contrast.
    bool haveContrast() const { return contrast_ || gnomeContrast_; }

private:
    std::optional<std::uint32_t> colorScheme_;
    std::optional<std::uint32_t> contrast_;
    std::optional<std::uint32_t> reducedMotion_;
    std::optional<bool> gnomeContrast_;
    std::optional<bool> gnomeAnimations_;
    std::optional<double> gnomeTextScale_;
};

} // namespace platform::system
