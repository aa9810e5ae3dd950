#include "cli/command/Verb.h"
#include "manual/Pages.h"
#include "manual/Roff.h"

#include <algorithm>
#include <array>

namespace wardlock::manual {

namespace {

struct FileText {
    std::string_view path;
    std::string_view meaning;
};

/// Paths of the device, and so below the device root.
constexpr std::array files{
    FileText{
        "/var/mobile/Library/Preferences/com.tavix.wardlock.plist",
        "The preferences document. Every change replaces it in one step. A damaged document is kept beside "
        "the new one, with .damaged added to its name."},
    FileText{"/var/mobile/com.tavix.wardlock_log",
             "The log, which is attached to a support mail. It only grows, and can be removed at any time."},
    FileText{"/Library/PreferenceBundles/WardlockSettings.bundle",
             "The settings bundle, which contains the pages."},
    FileText{"/Library/MobileSubstrate/DynamicLibraries/AppList.dylib",
             "The module that lists the installed applications."},
    FileText{"/Applications", "The installed applications of the device root."},
    FileText{"/var/mobile/Library/Mail/Outbox",
             "If this folder exists, support mail that no mail program can send is saved here."},
};

struct Example {
    std::string_view purpose;
    std::string_view command;
};

constexpr std::array commandExamples{
    Example{"Create a sample device, and open its Settings in the terminal:",
            "export WARDLOCK_DEVICE_ROOT=$(wardlock device init --demo ~/my-device)\nwardlock settings "
            "--terminal"},
    Example{"Check the installation:", "wardlock doctor"},
    Example{"Turn off the master switch, and notify all processes:",
            "wardlock plist set "
            "\"$WARDLOCK_DEVICE_ROOT\"/var/mobile/Library/Preferences/com.tavix.wardlock.plist \\\n"
            "    kEnabled bool false\nwardlock announce kEnabled"},
    Example{"Tap through the pages from a script:",
            "echo '{\"do\":\"tap\",\"row\":\"Wardlock\"}' | wardlock settings --script -"},
};

constexpr std::array windowExamples{
    Example{"Show another device with the dark appearance:",
            "wardlock-settings --dark --device-root ~/my-device"},
};

std::string section(std::string_view title) {
    return ".SH " + std::string(title) + '\n';
}

std::string items(const std::vector<OptionEntry>& options) {
    std::string text;
    for (const OptionEntry& entry : options)
        text += ".TP\n" + roffSynopsis(cli::optionSynopsis(entry.option)) + '\n' +
                roffParagraphs(std::string(entry.option.help) + ".\n");
    return text;
}

/// Returns the options without --help, which every verb has.
std::vector<OptionEntry> ownOptions(const Use& use) {
    std::vector<OptionEntry> options = use.options;
    std::erase_if(options,
                  [](const OptionEntry& entry) { return entry.option.name == cli::helpOption.name; });
    return options;
}

std::string verbs(const Program& program) {
    std::string text;
    for (const Use& use : program.uses)
        text += ".SS " + roffSynopsis(use.synopsis) + '\n' + roffParagraphs(use.description) +
                items(ownOptions(use));
    return text;
}

std::string synopsis(const Program& program) {
    std::string text;
    for (const Use& use : program.uses)
        text += (text.empty() ? "" : ".br\n") + roffSynopsis(use.synopsis) + '\n';
    if (program.hasVerbs())
        text += ".br\n" + roffSynopsis(program.name + " --help") + "\n.br\n" +
                roffSynopsis(program.name + " --version") + '\n';
    return text;
}

std::string environment() {
    std::string text = section("ENVIRONMENT");
    for (const cli::Variable& variable : cli::variables())
        text +=
            ".TP\n" + roffText(variable.name) + '\n' + roffParagraphs(std::string(variable.meaning) + ".\n");
    return text;
}

std::string fileList() {
    std::string text = section("FILES") + "These are paths of the device, below the device root.\n";
    for (const FileText& file : files)
        text += ".TP\n.I " + roffVerbatim(file.path) + '\n' + roffText(file.meaning) + '\n';
    return text;
}

std::string exitStatus() {
    std::string text = section("EXIT STATUS");
    for (const cli::ExitCodeText& code : cli::exitCodes())
        text +=
            ".TP\n.B " + std::to_string(static_cast<int>(code.code)) + '\n' + roffText(code.meaning) + ".\n";
    return text;
}

std::string examples(std::span<const Example> list) {
    std::string text = section("EXAMPLES");
    for (const Example& example : list) {
        std::string indented = "  ";
        for (const char c : example.command)
            indented += c == '\n' ? "\n  " : std::string(1, c);
        text += (text.ends_with("EXAMPLES\n") ? "" : ".PP\n") + roffText(example.purpose) + '\n' +
                roffParagraphs(indented + '\n');
    }
    return text;
}

std::string upper(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return text;
}

/// The introduction for a reader who does not know the program.
constexpr std::string_view about =
    "Wardlock restricts what a child can do on a device. A parent creates an account for the child, turns "
    "restrictions on and off, and chooses the applications that are blocked. One document contains all "
    "settings. The process that enforces them is notified of every change at once.\n";

constexpr std::string_view everyVerb = "With --help, each verb prints its description.\n";

} // namespace

std::string manualPage(const Program& program) {
    const bool isCommand = program.hasVerbs();
    std::string text = ".\\\" Generated from the tables of --help.\n.TH " + upper(program.name) +
                       " 1 " WARDLOCK_RELEASE_DATE " \"Wardlock " WARDLOCK_VERSION "\" \"User Commands\"\n";
    text += section("NAME") + roffVerbatim(program.name) + " \\- " + roffText(program.summary) + '\n';
    text += section("SYNOPSIS") + ".nh\n.ad l\n" + synopsis(program) + ".ad\n.hy\n";
    text += section("DESCRIPTION") + roffParagraphs(about);
    if (isCommand)
        text += section("VERBS") + roffParagraphs(everyVerb) + verbs(program) + exitStatus();
    else
        text += ".PP\n" + roffParagraphs(program.uses.front().description) + section("OPTIONS") +
                items(program.uses.front().options);
    text += environment() + fileList();
    text += isCommand ? examples(commandExamples) : examples(windowExamples);
    text += section("SEE ALSO") + (isCommand ? ".BR wardlock\\-settings (1)\n" : ".BR wardlock (1)\n");
    return text + ".PP\nThe user guide and further documentation:\n" +
           roffParagraphs("  " WARDLOCK_PAGES_FOLDER "/index.md\n");
}

} // namespace wardlock::manual
