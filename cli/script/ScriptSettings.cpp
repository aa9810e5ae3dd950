#include "cli/script/ScriptSettings.h"

#include "cli/io/Json.h"
#include "cli/io/LineReader.h"
#include "cli/io/Output.h"
#include "cli/io/TextWeb.h"
#include "cli/script/ScriptCommands.h"
#include "shell/TerminationHook.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

namespace {

/// Opens the script, and closes it in the end.
class ScriptFile {
public:
    explicit ScriptFile(std::string_view file)
        : descriptor_(file == "-" ? STDIN_FILENO : open(std::string(file).c_str(), O_RDONLY | O_CLOEXEC)) {
        if (descriptor_ < 0)
            throw CommandError(ExitCode::Failed, "cannot open " + std::string(file) + ": " +
                                                     std::generic_category().message(errno));
    }
    ~ScriptFile() {
        if (descriptor_ != STDIN_FILENO)
            close(descriptor_);
    }
    ScriptFile(const ScriptFile&) = delete;
    ScriptFile& operator=(const ScriptFile&) = delete;

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

bool isComment(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos || line[first] == '#';
}

Json replyTo(const std::string& line, bool tooLong, ScriptCommands& commands) {
    if (tooLong)
        return {{"error", "the line is longer than " + std::to_string(LineReader::longestLine) + " bytes"}};
    const auto command = parseJson(line);
    return command ? commands.run(*command) : Json{{"error", "the line is not JSON"}};
}

} // namespace

ExitCode runScriptSettings(std::string_view file) {
    const ScriptFile script(file);
    // Replies reach the reader even when the exception of a page ends the process.
    shell::installTerminationHook(Output::flushLast);
    const TextWeb web;
    shell::ManualClock clock;
    shell::SettingsApplication settings(clock);
    SettingsLoop loop(settings, nullptr);
    ScriptCommands commands(settings, clock, loop);
    LineReader lines(script.descriptor(), [&](int descriptor) { return loop.waitForInput(descriptor); });
    while (!commands.isOver()) {
        const auto line = lines.next();
        if (!line)
            break;
        if (isComment(*line))
            continue;
        settings.process();
        const Json reply = replyTo(*line, lines.tooLong(), commands);
        settings.process();
        Output::foreignLine(jsonLine(reply));
        Output::flush();
    }
    if (!settings.storeTypedText())
        throw CommandError(ExitCode::Failed, settings.screen().notice());
    return ExitCode::Done;
}

} // namespace wardlock::cli
