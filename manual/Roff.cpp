#include "manual/Roff.h"

#include <algorithm>
#include <sstream>

namespace wardlock::manual {

namespace {

bool isCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

std::string escaped(std::string_view text, bool minus) {
    std::string result;
    for (const char c : text) {
        if (c == '\\')
            result += "\\e";
        else if (c == '-' && minus)
            result += "\\-";
        else if (c == '\'')
            result += "\\(aq";
        else if (c == '`')
            result += "\\(ga";
        else if (c == '^')
            result += "\\(ha";
        else if (c == '~')
            result += "\\(ti";
        else
            result += c;
    }
    return result;
}

/// Escapes a leading full stop, which would make the line a request.
std::string line(const std::string& text) {
    return text.starts_with('.') ? "\\&" + text : text;
}

std::string bold(std::string_view text) {
    return "\\fB" + escaped(text, true) + "\\fR";
}

/// Breaks the text at blanks into lines of at most 78 characters, as the source of manual pages should have.
std::string lines(std::string_view text) {
    constexpr std::size_t width = 78;
    std::string result;
    while (text.size() > width) {
        const std::size_t blank = text.substr(0, width).rfind(' ');
        if (blank == std::string_view::npos)
            break;
        result += line(std::string(text.substr(0, blank))) + '\n';
        text.remove_prefix(blank + 1);
    }
    return result + line(std::string(text));
}

/// Makes options ("--json", "-o") and variables ("WARDLOCK_DEVICE_ROOT") bold, without the punctuation behind
/// them.
std::string roffWord(std::string_view word) {
    const std::size_t end = word.find_last_not_of(",.;:)");
    const std::string_view core = word.substr(0, end == std::string_view::npos ? 0 : end + 1);
    const bool isOption = core.size() > 1 && core[0] == '-' && (core[1] == '-' || core.size() == 2);
    const bool isVariable = core.find('_') != std::string_view::npos && isCapital(core[0]) &&
                            std::ranges::all_of(core, [](char c) { return c == '_' || isCapital(c); });
    if (!isOption && !isVariable)
        return escaped(word, false);
    return bold(core) + escaped(word.substr(core.size()), false);
}

std::string roffWords(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        result += roffWord(text.substr(0, end));
        text.remove_prefix(end);
        const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
        result.append(blanks, ' ');
        text.remove_prefix(blanks);
    }
    return result;
}

} // namespace

std::string roffText(std::string_view text) {
    std::string result;
    bool quoted = false;
    while (true) {
        const std::size_t end = text.find('`');
        const std::string_view part = text.substr(0, end);
        result += quoted ? bold(part) : roffWords(part);
        if (end == std::string_view::npos)
            return lines(result);
        quoted = !quoted;
        text.remove_prefix(end + 1);
    }
}

std::string roffVerbatim(std::string_view text) {
    return line(escaped(text, true));
}

std::string roffParagraphs(std::string_view description) {
    std::istringstream lines{std::string(description)};
    std::string result;
    bool example = false;
    for (std::string text; std::getline(lines, text);) {
        const bool isExample = text.starts_with("  ");
        if (isExample != example)
            result += isExample ? ".RS\n.nf\n" : ".fi\n.RE\n";
        example = isExample;
        if (text.empty())
            result += ".PP\n";
        else
            result += (isExample ? roffVerbatim(text.substr(2)) : roffText(text)) + '\n';
    }
    return result + (example ? ".fi\n.RE\n" : "");
}

std::string roffSynopsis(std::string_view synopsis) {
    std::string result;
    for (std::size_t at = 0; at < synopsis.size();) {
        const std::size_t begin = synopsis.find_first_not_of(" [].", at);
        result += synopsis.substr(at, begin - at);
        if (begin == std::string_view::npos)
            break;
        at = std::min(synopsis.find_first_of(" [].", begin), synopsis.size());
        const std::string_view word = synopsis.substr(begin, at - begin);
        const bool placeholder = std::ranges::all_of(word, isCapital);
        result += placeholder ? "\\fI" + escaped(word, true) + "\\fR" : bold(word);
    }
    return result;
}

} // namespace wardlock::manual
