#include "cli/command/VersionOperand.h"

#include "cli/io/CommandError.h"
#include "settings/history/KeptVersions.h"

#include <charconv>
#include <string>

namespace wardlock::cli {

std::uint64_t versionNumber(std::string_view operand) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(operand.data(), operand.data() + operand.size(), number);
    if (error != std::errc() || end != operand.data() + operand.size())
        throw CommandError(ExitCode::WrongUsage, "'" + std::string(operand) + "' is not a version number");
    return number;
}

platform::Dictionary documentOfOperand(const History& history, std::string_view operand) {
    const platform::Version* version = history.find(versionNumber(operand));
    if (const std::string reason = reasonAgainst(history.folder()); !version && !reason.empty())
        throw CommandError(ExitCode::Failed, reason);
    if (!version)
        throw CommandError(ExitCode::Failed, "no version " + std::string(operand) + " is kept");
    const auto document = history.document(*version);
    if (!document)
        throw CommandError(ExitCode::Failed,
                           "version " + std::string(operand) + " is damaged: another program wrote into it");
    return *document;
}

} // namespace wardlock::cli
