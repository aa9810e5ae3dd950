#include "cli/command/AccountNames.h"

#include "cli/command/NameMatch.h"
#include "cli/io/CommandError.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

namespace wardlock::cli {

std::size_t accountNamed(const Accounts& accounts, std::string_view name) {
    std::vector<Named> things;
    for (std::size_t position = 0; position < accounts.size(); ++position) {
        const std::string number = std::to_string(position + 1);
        things.push_back(
            {{accounts.name(position), number, '#' + number}, numberAndName(accounts, position)});
    }
    return indexOfNamed(name, things, {"account", "accounts"});
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
