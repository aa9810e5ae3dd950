#include "cli/command/AccountNames.h"

#include "cli/command/NameMatch.h"
#include "cli/io/CommandError.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <charconv>
#include <optional>

namespace wardlock::cli {

namespace {

/// Returns the position that "#2" names, also where an account is called so; none for another text.
std::optional<std::size_t> positionOf(std::string_view text, std::size_t count) {
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    if (!text.starts_with('#') || std::from_chars(text.data() + 1, end, number).ptr != end || number == 0 ||
        number > count)
        return std::nullopt;
    return number - 1;
}

} // namespace

std::size_t accountNamed(const Accounts& accounts, std::string_view name) {
    if (const auto position = positionOf(name, accounts.size()))
        return *position;
    std::vector<Named> things;
    for (std::size_t position = 0; position < accounts.size(); ++position)
        things.push_back(
            {{accounts.name(position), std::to_string(position + 1)}, numberAndName(accounts, position)});
    return indexOfNamed(name, things, {"account", "accounts"}, Spelling::Exact);
}

std::size_t accountOf(const Arguments& arguments, const Accounts& accounts) {
    if (const auto name = arguments.value(accountOption.name))
        return accountNamed(accounts, *name);
    if (const auto enabled = accounts.firstEnabled())
        return *enabled;
    if (accounts.size() != 1)
        throw CommandError(ExitCode::Failed, "no account is enabled; name one with --account");
    return 0;
}

AccountChoice choiceOfNamed(std::string_view name) {
    return [name](const Accounts& accounts) { return accountNamed(accounts, name); };
}

AccountChoice choiceOf(const Arguments& arguments) {
    return [&arguments](const Accounts& accounts) { return accountOf(arguments, accounts); };
}

Accounts loadedAccounts() {
    auto accounts = Accounts::of(objectForKey(kAccounts));
    if (!accounts || accounts->empty())
        throw CommandError(ExitCode::Failed, "the document has no accounts");
    return *std::move(accounts);
}

std::string numberAndName(const Accounts& accounts, std::size_t position) {
    return std::to_string(position + 1) + " (" + accounts.name(position) + ')';
}

} // namespace wardlock::cli
