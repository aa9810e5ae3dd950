#include "manual/Description.h"

#include "cli/command/Verb.h"
#include "cli/io/PageNames.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "window/Options.h"

#include <algorithm>
#include <sstream>

namespace wardlock::manual {

namespace {

using Kind = Candidates::Kind;

std::vector<std::string> keysOf(const platform::Dictionary& dictionary) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : dictionary)
        keys.emplace_back(key);
    return keys;
}

/// Returns the keys that a verb takes: of the document, of an account, or of both.
std::vector<std::string> keysFor(std::string_view verb) {
    const platform::Dictionary defaults = DefaultSettings();
    const platform::Value& account = platform::arrayValue(defaults.find(kAccounts))->at(0);
    if (verb == "account")
        return keysOf(account.dictionary());
    std::vector<std::string> keys = keysOf(defaults);
    if (verb == "announce")
        std::ranges::copy(keysOf(account.dictionary()), std::back_inserter(keys));
    return keys;
}

/// Returns what `wardlock complete` lists for the word; empty for words that are not names.
std::string_view namesFor(std::string_view verb, std::string_view placeholder) {
    if (placeholder == "NAME" && verb != "account add")
        return "accounts";
    if (placeholder == "SETTING")
        return "settings";
    return placeholder == "APP" ? "apps" : "";
}

void addOnce(std::vector<std::string>& words, const std::string& word) {
    if (std::ranges::find(words, word) == words.end())
        words.push_back(word);
}

/// Returns the first words of all verbs.
std::vector<std::string> verbWords() {
    std::vector<std::string> words;
    for (const cli::Verb* verb : cli::verbs())
        addOnce(words, std::string(verb->name.substr(0, verb->name.find(' '))));
    return words;
}

Candidates candidatesFor(std::string_view verb, std::string_view placeholder) {
    if (const std::string_view kind = namesFor(verb, placeholder); !kind.empty())
        return {Kind::Names, {std::string(kind)}};
    if (placeholder == "FILE" || placeholder == "OUT")
        return {Kind::Files, {}};
    if (placeholder == "DIR")
        return {Kind::Folders, {}};
    if (placeholder == "KEY")
        return {Kind::Words, keysFor(verb)};
    if (placeholder == "TYPE")
        return {Kind::Words, {"bool", "int", "real", "string"}};
    if (placeholder == "VALUE" && verb == "set")
        return {Kind::Words, {"on", "off"}};
    if (placeholder == "KIND")
        return {Kind::Words, {"accounts", "apps", "settings"}};
    if (placeholder == "VERB")
        return {Kind::Words, verbWords()};
    if (placeholder == "MODE")
        return {Kind::Words, {"none", "data", "full"}};
    return {};
}

OptionEntry entryOf(std::string_view verb, const cli::Option& option) {
    return {option, candidatesFor(verb, option.value)};
}

std::vector<OperandEntry> operandsOf(const cli::Verb& verb) {
    std::vector<OperandEntry> operands;
    std::istringstream words{std::string(verb.operands)};
    for (std::string word; words >> word;) {
        const bool repeated = word.ends_with("...");
        if (repeated)
            word.resize(word.size() - 3);
        operands.push_back({word, repeated, candidatesFor(verb.name, word)});
    }
    return operands;
}

Use useOf(const cli::Verb& verb) {
    Use use;
    use.verb = verb.name;
    use.summary = verb.summary;
    use.synopsis = cli::synopsis(verb);
    use.description = cli::withPagesIn(WARDLOCK_PAGES_FOLDER, verb.description);
    for (const cli::Option& option : verb.options)
        use.options.push_back(entryOf(verb.name, option));
    use.options.push_back(entryOf(verb.name, cli::deviceRootOption));
    use.options.push_back(entryOf(verb.name, cli::helpOption));
    use.operands = operandsOf(verb);
    return use;
}

} // namespace

Program commandDescription() {
    Program program{"wardlock", "settings of a device-restriction extension, from the command line", {}};
    for (const cli::Verb* verb : cli::verbs())
        program.uses.push_back(useOf(*verb));
    return program;
}

Program windowDescription() {
    Use use;
    use.summary = "open Settings in a window";
    use.synopsis = "wardlock-settings [OPTION]...";
    use.description = "Opens the Settings application in a window. First creates what the device root\n"
                      "lacks: its folders, the link to the settings bundle, and the default document.\n"
                      "Every change is saved at once, and other processes are notified at once. Changes\n"
                      "by other processes are shown as they happen.\n";
    for (const window::OptionText& text : window::Options::texts())
        use.options.push_back(entryOf("", {text.name, text.value, text.help}));
    return {"wardlock-settings", "Settings in a window", {use}};
}

std::vector<std::string> firstWords(const Program& program) {
    std::vector<std::string> words;
    for (const Use& use : program.uses)
        addOnce(words, use.verb.substr(0, use.verb.find(' ')));
    return words;
}

std::vector<std::string> secondWords(const Program& program, std::string_view family) {
    std::vector<std::string> words;
    for (const Use& use : program.uses)
        if (use.verb.starts_with(std::string(family) + ' '))
            addOnce(words, use.verb.substr(family.size() + 1));
    return words;
}

} // namespace wardlock::manual
