#include "cli/io/Output.h"

#include "cli/io/CommandError.h"
#include "cli/io/Terminal.h"
#include "shell/screen/EscapedText.h"

#include <cerrno>
#include <poll.h>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace wardlock::cli {

namespace {

/// The limit of what waits for a flush.
constexpr std::size_t mostUnwritten = std::size_t{64} * 1024;

std::string unwritten;

/// Writes the whole text; returns 0 or the error of the system. Another process that shares the pipe or
/// terminal may have made it non-blocking: then this waits until it can be written.
int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            pollfd watched{descriptor, POLLOUT, 0};
            poll(&watched, 1, -1);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

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
    const int error = writeAll(STDOUT_FILENO, std::exchange(unwritten, {}));
    if (error == EPIPE)
        throw ReaderGone();
    if (error != 0)
        throw CommandError(ExitCode::Failed,
                           "cannot write the output: " + std::generic_category().message(error));
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
