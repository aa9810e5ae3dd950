#include "manual/Pages.h"

#include <algorithm>

namespace wardlock::manual {

namespace {

std::string functionName(const Program& program) {
    std::string name = "_" + program.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// Returns the call that offers the candidates.
std::string offer(const std::string& function, const Candidates& candidates) {
    switch (candidates.kind) {
    case Candidates::Kind::Files:
        return function + "_paths default";
    case Candidates::Kind::Folders:
        return function + "_paths dirnames";
    case Candidates::Kind::Words:
        return function + "_words '" + joined(candidates.words) + '\'';
    case Candidates::Kind::Names:
        return function + "_names " + joined(candidates.words);
    case Candidates::Kind::Nothing:
        break;
    }
    return ":";
}

std::string label(const Use& use, const std::string& word) {
    return use.verb.empty() ? word : use.verb + ' ' + word;
}

std::string optionNames(const Use& use) {
    std::vector<std::string> names;
    for (const OptionEntry& entry : use.options)
        names.emplace_back(entry.option.name);
    return joined(names);
}

/// Returns the branches of `case "$verb $word"`: for the values of options, the options themselves, and the
/// operands by number.
std::string branches(const Program& program, const std::string& function) {
    std::string values;
    std::string options;
    std::string operands;
    const auto branch = [](const std::string& pattern, const std::string& body) {
        return "    " + pattern + ") " + body + " ;;\n";
    };
    for (const Use& use : program.uses) {
        for (const OptionEntry& entry : use.options)
            if (!entry.option.value.empty())
                values += branch('\'' + label(use, std::string(entry.option.name)) + '\'',
                                 offer(function, entry.values) + "; return");
        options += branch('\'' + use.verb + '\'', function + "_words '" + optionNames(use) + '\'');
        for (std::size_t i = 0; i < use.operands.size(); ++i)
            operands += branch(use.operands[i].repeated ? '\'' + use.verb + " '*"
                                                        : '\'' + label(use, std::to_string(i + 1)) + '\'',
                               offer(function, use.operands[i].values));
    }
    std::string text = "    case \"${verb:+$verb }$previous\" in\n" + values +
                       "    esac\n"
                       "    if [[ $current == -* ]]; then\n        case $verb in\n";
    text += options + "        esac\n        return\n    fi\n";
    text +=
        "    case \"${verb:+$verb }$(" + function + "_operand \"$first\")\" in\n" + operands + "    esac\n";
    return text;
}

/// Returns a pattern of the options that take a value, for counting the operands.
std::string valued(const Program& program) {
    std::vector<std::string> names;
    for (const Use& use : program.uses)
        for (const OptionEntry& entry : use.options)
            if (!entry.option.value.empty() &&
                std::ranges::find(names, std::string(entry.option.name)) == names.end())
                names.emplace_back(entry.option.name);
    std::string pattern;
    for (const std::string& name : names)
        pattern += (pattern.empty() ? "" : "|") + name;
    return pattern;
}

/// Returns the function that offers names. A name can contain what the shell would run.
std::string namesHelper(const std::string& function) {
    return "# Offers what the program lists, escaped for the quotes that are open.\n"
           "# The shell replaces what was typed after the opening quote.\n" +
           function + R"names(_names() {
    local name c rest=$current typed='' before='' quote=''
    while [[ $rest ]]; do
        c=${rest:0:1} rest=${rest:1}
        case $quote$c in
        \"\" | \'\') quote= ;;
        \" | \') quote=$c before=$typed ;;
        \\) typed+=${rest:0:1} rest=${rest:1} ;;
        \"\\)
            [[ ${rest:0:1} == [\\\"\$\`] ]] || typed+=$c
            typed+=${rest:0:1} rest=${rest:1}
            ;;
        *) typed+=$c ;;
        esac
    done
    while IFS= read -r name; do
        [[ $name == "$typed"* ]] || continue
        case $quote in
        '') printf -v name %q "$name" ;;
        \') name=${name#"$before"} name=${name//\'/\'\\\'\'} ;;
        \")
            name=${name#"$before"} name=${name//\\/\\\\} name=${name//\"/\\\"}
            name=${name//\$/\\\$} name=${name//\`/\\\`} name=${name//!/\"\'!\'\"}
            ;;
        esac
        COMPREPLY+=("$name")
    done < <("${COMP_WORDS[0]}" complete "$1" 2>/dev/null)
}

)names";
}

std::string helpers(const Program& program, const std::string& function) {
    return function +
           "_words() {\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$current\")\n}\n\n" +
           function +
           "_paths() {\n"
           "    # The shell itself completes paths, since a file name may contain a line end.\n"
           "    compopt -o \"$1\"\n}\n\n" +
           namesHelper(function) +
           "# Prints the number of the operand being typed, from 1, when the operands begin at word $1.\n" +
           function +
           "_operand() {\n"
           "    local i number=1\n"
           "    for ((i = $1; i < COMP_CWORD; ++i)); do\n"
           "        case ${COMP_WORDS[i]} in\n"
           "        " +
           valued(program) +
           ") [[ ${COMP_WORDS[i + 1]} != = ]] || ((++i)); ((++i)) ;;\n"
           "        -*) ;;\n"
           "        *) ((++number)) ;;\n"
           "        esac\n"
           "    done\n"
           "    echo \"$number\"\n}\n\n";
}

const Use* useOf(const Program& program, const std::string& verb) {
    const auto found = std::ranges::find(program.uses, verb, &Use::verb);
    return found == program.uses.end() ? nullptr : &*found;
}

std::string familyOnly(const std::vector<std::string>& words, const std::string& function) {
    return "        if ((COMP_CWORD == 2)); then\n            " + function + "_words '" + joined(words) +
           " --help'\n            return\n        fi\n"
           "        verb=\"$verb ${COMP_WORDS[2]}\" first=3\n";
}

/// The same for a word that is a verb, too: its first operand stands beside the verbs of the family.
std::string verbOrFamily(const Use& own, const std::vector<std::string>& words, const std::string& function) {
    std::vector<std::string> first = words;
    if (!own.operands.empty())
        first.insert(first.end(), own.operands[0].values.words.begin(), own.operands[0].values.words.end());
    std::string pattern;
    for (const std::string& word : words)
        pattern += (pattern.empty() ? "" : "|") + word;
    return "        if ((COMP_CWORD == 2)) && [[ $current != -* ]]; then\n            " + function +
           "_words '" + joined(first) +
           "'\n            return\n        fi\n"
           "        case ${COMP_WORDS[2]} in\n        " +
           pattern + ") verb=\"$verb ${COMP_WORDS[2]}\" first=3 ;;\n        esac\n";
}

/// Returns the code that finds the verb, or completes it.
std::string verbPart(const Program& program, const std::string& function) {
    std::string text = "    if ((COMP_CWORD == 1)); then\n        " + function + "_words '" +
                       joined(firstWords(program)) +
                       " --device-root --help --version'\n        return\n    fi\n"
                       "    verb=${COMP_WORDS[1]} first=2\n    case $verb in\n";
    for (const std::string& family : firstWords(program)) {
        const auto words = secondWords(program, family);
        if (words.empty())
            continue;
        const Use* own = useOf(program, family);
        text += "    " + family + ")\n" +
                (own ? verbOrFamily(*own, words, function) : familyOnly(words, function)) + "        ;;\n";
    }
    return text + "    esac\n";
}

} // namespace

std::string bashCompletion(const Program& program) {
    const std::string function = functionName(program);
    std::string text =
        "# bash completion for " + program.name + ", generated from the tables of --help.\n\n" +
        helpers(program, function) + function +
        "() {\n"
        "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} verb='' first=1\n"
        "    COMPREPLY=()\n"
        "    # \"--option=value\" comes as three words.\n"
        "    if [[ $current == = ]]; then\n        current=\n"
        "    elif [[ $previous == = ]]; then\n        previous=${COMP_WORDS[COMP_CWORD - 2]}\n    fi\n";
    if (program.hasVerbs())
        text += verbPart(program, function);
    return text + branches(program, function) + "}\n\ncomplete -F " + function + ' ' + program.name + '\n';
}

} // namespace wardlock::manual
