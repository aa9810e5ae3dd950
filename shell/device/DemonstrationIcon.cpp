#include "shell/device/DemonstrationIcon.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace wardlock::shell {
namespace {

struct Shape {
    Glyph glyph;
    std::string_view svg;
};

/// On a square of 24, drawn in lines of 2 without filling unless they say otherwise.
constexpr Shape shapes[] = {
    {Glyph::Bag, R"(<path d="M4 8h16l-1 13H5z"/><path d="M8 10V7a4 4 0 0 1 8 0v3"/>)"},
    {Glyph::Bell, R"(<path d="M5 17c2-2 2-4 2-7a5 5 0 0 1 10 0c0 3 0 5 2 7z"/><path d="M10 21h4"/>)"},
    {Glyph::Book,
     R"(<path d="M12 6c-2-2-5-2-9-2v14c4 0 7 0 9 2 2-2 5-2 9-2V4c-4 0-7 0-9 2z"/><path d="M12 6v14"/>)"},
    {Glyph::Card, R"(<rect x="3" y="8" width="18" height="12" rx="2"/><path d="M5 5h14M3 13h18"/>)"},
    {Glyph::Chart, R"(<path d="M4 20V11M10 20V4M16 20v-7M21 20H3"/>)"},
    {Glyph::Clock, R"(<circle cx="12" cy="12" r="9"/><path d="M12 7v5l4 2"/>)"},
    {Glyph::Cloud, R"(<path d="M7 19a5 5 0 0 1 0-10 6 6 0 0 1 11-1 5.5 5.5 0 0 1 0 11z"/>)"},
    {Glyph::Dice, R"(<rect x="4" y="4" width="16" height="16" rx="3"/><g fill="#fff" stroke="none">)"
                  R"(<circle cx="9" cy="9" r="1.5"/><circle cx="15" cy="15" r="1.5"/>)"
                  R"(<circle cx="9" cy="15" r="1.5"/><circle cx="15" cy="9" r="1.5"/></g>)"},
    {Glyph::Drop, R"(<path d="M12 3c4 5 6 8 6 11a6 6 0 0 1-12 0c0-3 2-6 6-11z" fill="#fff"/>)"},
    {Glyph::Envelope, R"(<rect x="3" y="5" width="18" height="14" rx="2"/><path d="M4 7l8 6 8-6"/>)"},
    {Glyph::Flag, R"(<path d="M6 21V4h12l-3 4 3 4H6"/>)"},
    {Glyph::Game, R"(<path d="M7 7h10a5 5 0 0 1 5 6c0 6-4 6-6 3H8c-2 3-6 3-6-3a5 5 0 0 1 5-6z"/>)"
                  R"(<path d="M8 10v4M6 12h4M16 11v0.010M18 13v0.01"/>)"},
    {Glyph::Gear,
     R"(<circle cx="12" cy="12" r="6"/><circle cx="12" cy="12" r="2"/>)"
     R"(<path d="M12 2v4M12 18v4M2 12h4M18 12h4M5 5l2.8 2.800M16.2 16.200L19 19M5 19l2.8-2.800M16.2 7.800L19 5"/>)"},
    {Glyph::Globe,
     R"(<circle cx="12" cy="12" r="9"/><ellipse cx="12" cy="12" rx="4" ry="9"/><path d="M3 12h18"/>)"},
    {Glyph::Grid,
     R"(<g fill="#fff" stroke="none"><rect x="4" y="4" width="7" height="7" rx="1.5"/>)"
     R"(<rect x="13" y="4" width="7" height="7" rx="1.5"/><rect x="4" y="13" width="7" height="7" rx="1.5"/>)"
     R"(<rect x="13" y="13" width="7" height="7" rx="1.5"/></g>)"},
    {Glyph::Heart,
     R"(<path d="M12 20C5 15 3 12 3 9a4.5 4.5 0 0 1 9-1 4.5 4.5 0 0 1 9 1c0 3-2 6-9 11z" fill="#fff"/>)"},
    {Glyph::Leaf, R"(<path d="M5 19C4 9 10 4 20 4c0 10-5 16-15 15z"/><path d="M5 19l8-8"/>)"},
    {Glyph::List, R"(<path d="M9 6h11M9 12h11M9 18h11M4 6h0.010M4 12h0.010M4 18h0.01"/>)"},
    {Glyph::Map,
     R"(<path d="M12 21c-5-5-7-8-7-11a7 7 0 0 1 14 0c0 3-2 6-7 11z"/><circle cx="12" cy="10" r="2.5"/>)"},
    {Glyph::Microphone, R"(<rect x="9" y="3" width="6" height="11" rx="3" fill="#fff"/>)"
                        R"(<path d="M5 11a7 7 0 0 0 14 0M12 18v3M8 21h8"/>)"},
    {Glyph::Moon, R"(<path d="M20 14A8.5 8.5 0 1 1 10 4a7 7 0 0 0 10 10z" fill="#fff"/>)"},
    {Glyph::Music, R"(<path d="M9 18V6l11-2v12"/><g fill="#fff"><circle cx="6.5" cy="18" r="2.5"/>)"
                   R"(<circle cx="17.5" cy="16" r="2.5"/></g>)"},
    {Glyph::Note, R"(<path d="M5 3h10l4 4v14H5z"/><path d="M8 11h8M8 15h8"/>)"},
    {Glyph::Pawn,
     R"(<circle cx="12" cy="7" r="3.5" fill="#fff"/><path d="M10 11c0 4-1 6-3 8h10c-2-2-3-4-3-8" fill="#fff"/>)"
     R"(<path d="M6 21h12"/>)"},
    {Glyph::Pen, R"(<path d="M4 20l1-5L16 4l4 4L9 19z"/><path d="M13 7l4 4"/>)"},
    {Glyph::Phone,
     R"(<path d="M5 4h4l2 5-2.5 2a11 11 0 0 0 4.5 4.500L15 13l5 2v4c0 1-1 2-2 2C10 20 4 14 3 6c0-1 1-2 2-2z" fill="#fff"/>)"},
    {Glyph::Speech,
     R"(<path d="M12 4c5 0 9 3 9 7s-4 7-9 7c-1 0-2 0-3-0.300L4 20l1.3-4.300C4 14.5 3 13 3 11c0-4 4-7 9-7z" fill="#fff"/>)"},
    {Glyph::Star,
     R"(<path d="M12 3l2.7 6 6.3 0.6-4.8 4.3 1.5 6.300L12 17l-5.7 3.2 1.5-6.300L3 9.6 9.3 9z" fill="#fff"/>)"},
    {Glyph::Sun,
     R"(<circle cx="12" cy="12" r="4" fill="#fff"/>)"
     R"(<path d="M12 3v2M12 19v2M3 12h2M19 12h2M5.6 5.600L7 7M17 17l1.4 1.400M5.6 18.400L7 17M17 7l1.4-1.4"/>)"},
    {Glyph::Video,
     R"(<rect x="3" y="7" width="12" height="10" rx="2" fill="#fff"/><path d="M17 11l4-3v8l-4-3z" fill="#fff"/>)"},
};

std::string_view shapeOf(Glyph glyph) {
    const auto* found = std::find_if(std::begin(shapes), std::end(shapes),
                                     [glyph](const Shape& shape) { return shape.glyph == glyph; });
    return found == std::end(shapes) ? std::string_view() : found->svg;
}

std::string colorText(unsigned color) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text.push_back(digits[(color >> shift) & 0xF]);
    return text;
}

} // namespace

std::string demonstrationIcon(const DemonstrationApplication& application) {
    std::string svg =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="60" height="60" viewBox="0 0 60 60">)"
        R"(<defs><linearGradient id="ground" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color=")";
    svg += colorText(application.top) + R"("/><stop offset="1" stop-color=")" + colorText(application.bottom);
    svg += R"("/></linearGradient></defs><rect width="60" height="60" rx="13.5" fill='url(#ground)'/>)"
           R"(<g transform='translate(11.4 11.4) scale(1.55)' fill="none" stroke="#fff" stroke-width="2" )"
           R"(stroke-linecap="round" stroke-linejoin="round">)";
    svg.append(shapeOf(application.glyph)).append("</g></svg>\n");
    return svg;
}

} // namespace wardlock::shell
