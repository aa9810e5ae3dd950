#include "app/Options.h"

#include <charconv>

namespace wardlock::app {

namespace {

std::optional<double> number(const std::string& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        const std::string& name = arguments[i];
        const bool takesValue = name == "--device-root" || name == "--screenshots" || name == "--text-scale";
        if (takesValue && i + 1 == arguments.size()) {
            options.error = name + " needs a value";
            break;
        }
        if (name == "--help")
            options.help = true;
        else if (name == "--version")
            options.version = true;
        else if (name == "--dark" || name == "--light")
            options.dark = name == "--dark";
        else if (name == "--device-root")
            options.deviceRoot = arguments[++i];
        else if (name == "--screenshots")
            options.screenshots = arguments[++i];
        else if (name == "--text-scale" && !(options.textScale = number(arguments[++i])))
            options.error = "--text-scale needs a number, for example 1.5";
        else if (!takesValue)
            options.error = "unknown argument " + name;
    }
    return options;
}

const char* Options::usage() {
    return R"(Usage: wardlock-settings [OPTION]...

Opens Settings in a window.

  --dark, --light      the appearance, instead of the system's
  --text-scale N       the size of the text, from 0.8 to 2.5, instead of the system's
  --device-root DIR    the device to show: the folder that holds its files, instead
                       of WARDLOCK_DEVICE_ROOT or the user's own device
  --screenshots DIR    write a picture of every page, light and dark, to DIR and end;
                       needs no display
  --help               show this text
  --version            show the version
)";
}

} // namespace wardlock::app
