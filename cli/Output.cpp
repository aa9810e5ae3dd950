#include "cli/Output.h"

#include "cli/CommandError.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>

namespace wardlock::cli {

namespace {

[[noreturn]] void fail() {
    throw CommandError(ExitCode::Failed, std::string("cannot write the output: ") + std::strerror(errno));
}

} // namespace

void Output::prepare() {
    std::signal(SIGPIPE, SIG_IGN);
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        // Opened the wrong way round on purpose: a write to a closed standard output has to fail, not to
        // vanish.
        if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(open("/dev/null", descriptor == 0 ? O_WRONLY : O_RDONLY));
    }
}

void Output::line(std::string_view text) {
    Output::text(text);
    Output::text("\n");
}

void Output::text(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
        fail();
}

void Output::flush() {
    if (std::fflush(stdout) != 0)
        fail();
}

void Output::error(std::string_view text) {
    const std::string line = std::string(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace wardlock::cli
