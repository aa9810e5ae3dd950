#pragma once

#include <span>
#include <string_view>

namespace wardlock::shell {

/// The shape on an application's icon.
enum class Glyph {
    Bag,
    Bell,
    Book,
    Card,
    Chart,
    Clock,
    Cloud,
    Dice,
    Drop,
    Envelope,
    Flag,
    Game,
    Gear,
    Globe,
    Grid,
    Heart,
    Leaf,
    List,
    Map,
    Microphone,
    Moon,
    Music,
    Note,
    Pawn,
    Pen,
    Phone,
    Speech,
    Star,
    Sun,
    Video
};

enum class InfoForm { Xml, Binary };

/// An application of the demonstration device.
struct DemonstrationApplication {
    /// The name of its .app folder, without the extension.
    std::string_view folder;
    std::string_view identifier;
    std::string_view name;
    Glyph glyph;
    /// Top and bottom of the icon's ground, 0xRRGGBB.
    unsigned top;
    unsigned bottom;
    InfoForm form = InfoForm::Xml;
};

std::span<const DemonstrationApplication> demonstrationApplications();

} // namespace wardlock::shell
