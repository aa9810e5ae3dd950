#include "tests/system/documentation/Console.h"

#include "tests/support/Process.h"
#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <charconv>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace wardlock::test {
namespace {

constexpr std::string_view prompt = "$ ";
constexpr std::string_view anything = "...";

void readBlock(const Block& block, std::vector<Step>& steps) {
    const std::string terminal = block.word("terminal");
    bool goesOn = false;
    if (!terminal.empty() && !block.lines.empty() && !block.lines.front().starts_with(prompt))
        steps.push_back({block.line + 1, terminal, "", {}});
    for (std::size_t at = 0; at < block.lines.size(); ++at) {
        const std::string& line = block.lines[at];
        if (goesOn)
            steps.back().command += '\n' + line;
        else if (line.starts_with(prompt))
            steps.push_back({block.line + 1 + at, terminal, line.substr(prompt.size()), {}});
        else if (at > 0 || !terminal.empty())
            steps.back().output.push_back(line);
        else
            ADD_FAILURE() << "the block at line " << block.line << " begins without a command";
        goesOn = (goesOn || line.starts_with(prompt)) && line.ends_with('\\');
    }
}

/// Whether the line is the one shown, a part that "..." replaces aside.
bool lineIsAsShown(std::string_view shown, std::string_view line) {
    const auto gap = shown.find(anything);
    if (gap == std::string_view::npos)
        return shown == line;
    if (!line.starts_with(shown.substr(0, gap)))
        return false;
    const std::string_view rest = shown.substr(gap + anything.size());
    for (std::size_t at = gap; at <= line.size(); ++at)
        if (lineIsAsShown(rest, line.substr(at)))
            return true;
    return false;
}

template <class Shown, class Line>
bool linesAreAsShown(Shown shown, Shown shownEnd, Line line, Line end) {
    if (shown == shownEnd)
        return line == end;
    if (*shown == anything) {
        for (Line next = line;; ++next) {
            if (linesAreAsShown(std::next(shown), shownEnd, next, end))
                return true;
            if (next == end)
                return false;
        }
    }
    return line != end && lineIsAsShown(*shown, *line) &&
           linesAreAsShown(std::next(shown), shownEnd, std::next(line), end);
}

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char character : text)
        result += character == '\'' ? "'\\''" : std::string(1, character);
    return result + '\'';
}

/// The script that does the steps and leaves output and exit code of each in the scratch folder.
std::string scriptFor(const std::vector<Step>& steps, const std::string& folder, const std::string& scratch) {
    std::ostringstream script;
    script << "cd " << quoted(folder) << "\nothers=()\ntrap 'kill \"${others[@]}\" 2>&-' EXIT\n"
           << "receive() { local line; for ((; $2 > 0; )); do IFS= read -r -t " << testTimeout.count() / 2
           << " -u $1 line || return; printf '%s\\n' \"$line\"; set -- $1 $(($2 - 1)); done; }\n";
    // Descriptors of the other terminals, beyond those that a shell uses itself.
    std::map<std::string, std::size_t> terminals;
    for (std::size_t at = 0; at < steps.size(); ++at) {
        const Step& step = steps[at];
        const std::string output = quoted(scratch + '/' + std::to_string(at));
        if (step.terminal.empty()) {
            script << "{ " << step.command << "\n} >" << output << " 2>&1 </dev/null\n";
        } else {
            const auto descriptor = terminals.try_emplace(step.terminal, 20 + terminals.size()).first->second;
            if (!step.command.empty())
                script << "exec " << descriptor << "< <(exec " << step.command
                       << " 2>&1 </dev/null)\nothers+=($!)\n";
            script << "receive " << descriptor << ' ' << step.output.size() << " >" << output << '\n';
        }
        script << "echo $? >" << output << ".code\n";
    }
    return script.str();
}

std::string textOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

std::vector<Step> stepsOf(const Page& page) {
    std::vector<Step> steps;
    for (const Block& block : page.blocks())
        if (block.language == "console")
            readBlock(block, steps);
    return steps;
}

bool isAsShown(const std::vector<std::string>& shown, const std::string& output) {
    std::vector<std::string> lines;
    std::istringstream text(output);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return linesAreAsShown(shown.begin(), shown.end(), lines.begin(), lines.end());
}

std::vector<StepResult> perform(const std::vector<Step>& steps, const std::string& folder,
                                const std::string& scratch) {
    const ProcessResult shell =
        runProcess("/bin/bash", {"--norc", "--noprofile", "-c", scriptFor(steps, folder, scratch)});
    EXPECT_EQ(shell.errors, "");
    std::vector<StepResult> results;
    for (std::size_t at = 0; at < steps.size(); ++at) {
        const std::string output = scratch + '/' + std::to_string(at);
        StepResult result{-1, textOf(output)};
        const std::string code = textOf(output + ".code");
        std::from_chars(code.data(), code.data() + code.size(), result.exitCode);
        results.push_back(result);
    }
    return results;
}

} // namespace wardlock::test
