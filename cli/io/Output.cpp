#include "cli/io/Output.h"

#include "cli/io/CommandError.h"
#include "cli/io/Stream.h"
#include "cli/io/Terminal.h"
#include "shell/screen/EscapedText.h"

#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace wardlock::cli {

namespace {

/// The limit of what waits for a flush.
constexpr std::size_t mostUnwritten = std::size_t{64} * 1024;

std::string unwritten;

} // namespace

void Output::line(std::string_view text) {
    Output::text(text);
    Output::text("\n");
}

void Output::text(std::string_view text) {
    unwritten += text;
    if (unwritten.size() > mostUnwritten)
        flush();
}

void Output::foreignLine(std::string_view text) {
    line(Terminal::showsOutput() ? shell::escaped(text, "\n\t") : std::string(text));
}

void Output::flush() {
    const std::error_code error = writeAll(STDOUT_FILENO, std::exchange(unwritten, {}));
    if (error == std::errc::broken_pipe)
        throw ReaderGone();
    if (error)
        throw CommandError(ExitCode::Failed, "cannot write the output: " + error.message());
}

void Output::flushLast() noexcept {
    writeAll(STDOUT_FILENO, std::exchange(unwritten, {}));
}

void Output::prompt(std::string_view text) {
    writeAll(STDERR_FILENO, text);
}

void Output::error(std::string_view text) {
    writeAll(STDERR_FILENO, shell::escaped(text) + '\n');
}

} // namespace wardlock::cli
