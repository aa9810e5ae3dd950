#include "manual/Pages.h"

#include <algorithm>

namespace wardlock::manual {

namespace {

/// Escapes a text for single quotes and for the brackets and colons of `_arguments`.
std::string described(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\'')
            result += "'\\''";
        else if (c == '\n')
            result += ' ';
        else if (c == '[' || c == ']' || c == ':' || c == '\\')
            result += std::string("\\") + c;
        else
            result += c;
    }
    return result;
}

std::string action(const Candidates& candidates) {
    switch (candidates.kind) {
    case Candidates::Kind::Files:
        return "_files";
    case Candidates::Kind::Folders:
        return "_files -/";
    case Candidates::Kind::Words: {
        std::string text = "(";
        for (const std::string& word : candidates.words)
            text += (text.size() == 1 ? "" : " ") + word;
        return text + ')';
    }
    case Candidates::Kind::Names:
        return "_wardlock_names " + candidates.words.front();
    case Candidates::Kind::Nothing:
        break;
    }
    return " ";
}

/// Returns the call of `_arguments` for one use.
std::string arguments(const Use& use, const std::string& indent) {
    std::string text = indent + "_arguments";
    for (const OptionEntry& entry : use.options) {
        text += " \\\n" + indent + "    '" + std::string(entry.option.name) + '[' +
                described(entry.option.help) + ']';
        if (!entry.option.value.empty())
            text += ":" + std::string(entry.option.value) + ':' + action(entry.values);
        text += '\'';
    }
    for (std::size_t i = 0; i < use.operands.size(); ++i) {
        const OperandEntry& operand = use.operands[i];
        text += " \\\n" + indent + "    '" + (operand.repeated ? "*" : std::to_string(i + 1)) + ':' +
                operand.name + ':' + action(operand.values) + '\'';
    }
    return text + '\n';
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

const Use* useOf(const Program& program, const std::string& verb) {
    const auto found = std::ranges::find(program.uses, verb, &Use::verb);
    return found == program.uses.end() ? nullptr : &*found;
}

/// Returns the choices as "status:show whether..."; a family is described by its verbs.
std::string choices(const Program& program, const std::vector<std::string>& words, const std::string& prefix,
                    const std::string& indent) {
    std::string text = indent + "choices=(\n";
    for (const std::string& word : words) {
        const Use* use = useOf(program, prefix + word);
        text += indent + "    '" + word + ':' +
                described(use ? use->summary : joined(secondWords(program, word))) + "'\n";
    }
    return text + indent + ")\n" + indent + "_describe verb choices\n";
}

/// Returns a function for a family: it completes the second word, or the arguments of that verb.
std::string familyFunction(const Program& program, const std::string& family) {
    const auto words = secondWords(program, family);
    std::string text = "_wardlock_" + family + "() {\n    local -a choices\n    if ((CURRENT == 2)); then\n" +
                       choices(program, words, family + ' ', "        ") +
                       (useOf(program, family) ? arguments(*useOf(program, family), "        ") : "") +
                       "        return\n    fi\n    shift words\n    ((CURRENT--))\n    case $words[1] in\n";
    for (const std::string& word : words)
        text += "    " + word + ")\n" + arguments(*useOf(program, family + ' ' + word), "        ") +
                "        ;;\n";
    if (const Use* own = useOf(program, family))
        text += "    *)\n" + arguments(*own, "        ") + "        ;;\n";
    return text + "    esac\n}\n\n";
}

std::string withVerbs(const Program& program) {
    std::string functions;
    std::string cases;
    for (const std::string& word : firstWords(program)) {
        const bool isFamily = !secondWords(program, word).empty();
        if (isFamily)
            functions += familyFunction(program, word);
        cases +=
            "    " + word + ")\n" +
            (isFamily ? "        _wardlock_" + word + '\n' : arguments(*useOf(program, word), "        ")) +
            "        ;;\n";
    }
    functions += "_wardlock_names() {\n    local -a names\n"
                 "    names=(${(f)\"$(_call_program names wardlock complete ${@[-1]} 2>/dev/null)\"})\n"
                 "    compadd \"${@[1,-2]}\" -a names\n}\n\n";
    return functions + "_wardlock() {\n    local -a choices\n    if ((CURRENT == 2)); then\n" +
           choices(program, firstWords(program), "", "        ") +
           "        _arguments '--device-root[the device root]:DIR:_files -/' '--help[print the list of "
           "verbs]' '--version[print the version]'\n"
           "        return\n    fi\n    shift words\n    ((CURRENT--))\n    case $words[1] in\n" +
           cases + "    esac\n}\n\n_wardlock \"$@\"\n";
}

} // namespace

std::string zshCompletion(const Program& program) {
    const std::string head = "#compdef " + program.name + "\n# Generated from the tables of --help.\n\n";
    return head + (program.hasVerbs() ? withVerbs(program) : arguments(program.uses.front(), ""));
}

} // namespace wardlock::manual
