#include "cli/Output.h"

#include "cli/CommandError.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace wardlock::cli {

namespace {

[[noreturn]] void fail() {
    throw CommandError(ExitCode::Failed, std::string("cannot write the output: ") + std::strerror(errno));
}

} // namespace

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
