#include "window/Options.h"

#include "window/items/TextScale.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace wardlock::window {

namespace {

/// Returns the scale that the text gives; none if it is not a number or out of range.
std::optional<double> textScaleOf(const std::string& text) {
    double scale = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
    if (error != std::errc() || end != text.data() + text.size() || !isTextScale(scale))
        return std::nullopt;
    return scale;
}

constexpr OptionText darkText{"--dark", "", "use the dark appearance instead of the system's"};
constexpr OptionText lightText{"--light", "", "use the light appearance instead of the system's"};
constexpr OptionText textScaleText{"--text-scale", "N",
                                   "scale the text by N, from 0.8 to 2.5, instead of by the\nsystem's scale"};
constexpr OptionText highContrastText{
    "--high-contrast", "", "use the strong colours for high contrast, whatever the\nsystem's setting"};
constexpr OptionText reducedMotionText{"--reduced-motion", "",
                                       "let nothing slide, grow or shake, whatever the\nsystem's setting"};
constexpr OptionText deviceRootText{"--device-root", "DIR",
                                    "show the device whose files are in the folder DIR,\ninstead of "
                                    "WARDLOCK_DEVICE_ROOT or the user's default"};
constexpr OptionText screenshotsText{"--screenshots", "DIR",
                                     "write a picture of every page, light and dark, to DIR\nand exit; needs "
                                     "no display"};
constexpr OptionText orTerminalText{"--or-terminal", "",
                                    "open Settings in the terminal if no window can be\nopened"};
constexpr OptionText activatedText{"--activated", "",
                                   "for the message bus, which starts Settings by its\nname there"};
constexpr OptionText helpText{"--help", "", "print this help"};
constexpr OptionText versionText{"--version", "", "print the version"};
constexpr std::array allTexts{darkText,          lightText,      textScaleText,   highContrastText,
                              reducedMotionText, deviceRootText, screenshotsText, orTerminalText,
                              activatedText,     helpText,       versionText};

bool takesValue(const std::string& name) {
    const auto found = std::ranges::find(allTexts, name, &OptionText::name);
    return found != allTexts.end() && !found->value.empty();
}

void takeTextScale(Options& options, const std::string& text) {
    options.textScale = textScaleOf(text);
    if (!options.textScale)
        options.error = "option '--text-scale' needs a number from 0.8 to 2.5";
}

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        const std::string& name = arguments[i];
        const bool hasValue = takesValue(name);
        if (hasValue && i + 1 == arguments.size()) {
            options.error = "option '" + name + "' needs a value";
            break;
        }
        if (name == helpText.name)
            options.help = true;
        else if (name == versionText.name)
            options.version = true;
        else if (name == orTerminalText.name)
            options.orTerminal = true;
        else if (name == activatedText.name)
            options.activated = true;
        else if (name == highContrastText.name)
            options.highContrast = true;
        else if (name == reducedMotionText.name)
            options.reducedMotion = true;
        else if (name == darkText.name || name == lightText.name)
            options.dark = name == darkText.name;
        else if (name == deviceRootText.name)
            options.deviceRoot = arguments[++i];
        else if (name == screenshotsText.name)
            options.screenshots = arguments[++i];
        else if (name == textScaleText.name)
            takeTextScale(options, arguments[++i]);
        else if (!hasValue)
            options.error =
                (name.starts_with('-') ? "unknown option '" : "unexpected argument '") + name + '\'';
    }
    return options;
}

std::span<const OptionText> Options::texts() {
    return allTexts;
}

std::string Options::usage() {
    constexpr std::size_t column = 23;
    std::string text = "Usage: wardlock-settings [OPTION]...\n\nOpens Settings in a window.\n\n";
    for (const OptionText& option : allTexts) {
        std::string line = "  " + std::string(option.name);
        if (!option.value.empty())
            line += ' ' + std::string(option.value);
        line.append(column - line.size(), ' ');
        for (const char c : option.help)
            line += c == '\n' ? '\n' + std::string(column, ' ') : std::string(1, c);
        text += line + '\n';
    }
    return text;
}

} // namespace wardlock::window
