#include "cli/command/Verb.h"

#include "cli/io/PageNames.h"
#include "shell/device/InstalledFiles.h"

#include <algorithm>
#include <array>

namespace wardlock::cli {

namespace {

std::string padded(std::string_view text, std::size_t width) {
    std::string result(text);
    result.append(std::max(width, result.size()) - result.size(), ' ');
    return result;
}

/// Returns the text with `width` blanks before each line but the first.
std::string indented(std::string_view text, std::size_t width) {
    std::string result;
    for (const char c : text) {
        result += c;
        if (c == '\n')
            result.append(width, ' ');
    }
    return result;
}

constexpr std::array allVariables{
    Variable{"WARDLOCK_DEVICE_ROOT",
             "the folder that contains the device's files; by default / where\n/var/mobile exists, "
             "otherwise wardlock/device in XDG_DATA_HOME\n(~/.local/share)"},
    Variable{"DBUS_SESSION_BUS_ADDRESS",
             "the D-Bus that carries change notifications; by default the bus\nin XDG_RUNTIME_DIR, "
             "otherwise a private bus of Wardlock"},
    Variable{"DISPLAY, WAYLAND_DISPLAY",
             "the display for the window; without one, Settings opens in the\nterminal"},
    Variable{"NO_COLOR", "if set to anything, Settings in the terminal has no colours"},
    Variable{"COLORTERM", "\"truecolor\" if the terminal shows 24-bit colours"},
    Variable{"COLORFGBG", "the numbers of the terminal's text and background colours, for\n"
                          "example \"15;0\"; the last one shows whether the terminal is dark,\n"
                          "where the terminal itself does not reply to that question"},
};

constexpr std::array allExitCodes{
    ExitCodeText{ExitCode::Done, "success"},
    ExitCodeText{ExitCode::Failed, "failure; standard error has one line about it"},
    ExitCodeText{ExitCode::WrongUsage, "usage error"},
    ExitCodeText{ExitCode::NotAPropertyList, "not a property list"},
};

/// Returns the verbs of a family, or all of them.
std::string listedVerbs(std::string_view family) {
    std::string text;
    for (const Verb* verb : verbs())
        if (family.empty() || verb->name.starts_with(std::string(family) + ' '))
            text += "  " + padded(verb->name, 17) + std::string(verb->summary) + '\n';
    return text;
}

std::string listed(std::span<const ExitCodeText> codes) {
    std::string text = "Exit codes:\n";
    for (const ExitCodeText& code : codes)
        text += "  " + std::to_string(static_cast<int>(code.code)) + "  " + std::string(code.meaning) + '\n';
    return text;
}

} // namespace

std::span<const Variable> variables() {
    return allVariables;
}

std::span<const ExitCodeText> exitCodes() {
    return allExitCodes;
}

std::vector<ExitCodeText> exitCodes(const Verb& verb) {
    std::vector<ExitCodeText> codes;
    for (const ExitCodeText& code : exitCodes())
        if (code.code != ExitCode::NotAPropertyList || verb.readsPropertyList)
            codes.push_back(code);
    return codes;
}

std::string optionSynopsis(const Option& option) {
    std::string text(option.name);
    return option.value.empty() ? text : text + ' ' + std::string(option.value);
}

std::string synopsis(const Verb& verb) {
    std::string text = "wardlock " + std::string(verb.name);
    for (const Option& option : verb.options)
        text += option.required ? ' ' + optionSynopsis(option) : " [" + optionSynopsis(option) + ']';
    if (!verb.operands.empty())
        text += ' ' + std::string(verb.operands);
    return text;
}

std::string helpText(const Verb& verb) {
    std::string text = "Usage: " + synopsis(verb) + "\n\n" +
                       withPagesIn(shell::installedPages(), verb.description) + "\nOptions:\n";
    constexpr std::size_t column = 19;
    const auto add = [&](const Option& option) {
        text += "  " + padded(optionSynopsis(option), column) + indented(option.help, column + 2) + '\n';
    };
    std::ranges::for_each(verb.options, add);
    add(deviceRootOption);
    add(helpOption);
    if (const std::string family = listedVerbs(verb.name); !family.empty())
        text += "\nVerbs of this family:\n" + family;
    if (!verb.examples.empty())
        text += "\nExamples:\n  " + indented(verb.examples.substr(0, verb.examples.size() - 1), 2) + '\n';
    return text + '\n' + listed(exitCodes(verb));
}

std::string overview(std::string_view family) {
    std::string text = "Usage: wardlock ";
    text += family.empty() ? "VERB [ARGUMENT...]\n" : std::string(family) + " VERB [ARGUMENT...]\n";
    if (family.empty())
        text += "       wardlock --help | --version\n";
    text += "\nVerbs (wardlock VERB --help describes each):\n" + listedVerbs(family);
    text += "\nEnvironment:\n";
    for (const Variable& variable : variables())
        text += "  " + std::string(variable.name) + "\n      " + indented(variable.meaning, 6) + '\n';
    return text + '\n' + listed(exitCodes());
}

} // namespace wardlock::cli
