#include "cli/command/AccountNames.h"
#include "cli/command/Commands.h"
#include "cli/command/Confirmation.h"
#include "cli/command/PropertyListCommand.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingsChange.h"
#include "cli/io/Output.h"
#include "cli/io/Terminal.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"

#include <array>
#include <optional>
#include <string>

namespace wardlock::cli {

namespace {

using platform::Value;

ExitCode add(const Arguments& arguments) {
    const std::string_view name = arguments.operand(0);
    requireText(name);
    if (name.empty())
        throw CommandError(ExitCode::WrongUsage, "the name of an account must not be empty");
    loadToChange();
    const DocumentChange change = createAccount(documentPath(BundleIdentifier), name);
    if (!change.update.changed)
        throw CommandError(ExitCode::Failed, "the document has no list of accounts");
    finish(change);
    Output::line(std::to_string(Accounts::of(change.update.dictionary.find(kAccounts))->size()));
    return ExitCode::Done;
}

ExitCode store(std::string_view account, std::string_view key, const Value& value) {
    loadToChange();
    finish(setAccountValue(documentPath(BundleIdentifier), choiceOfNamed(account), key, &value));
    return ExitCode::Done;
}

ExitCode rename(const Arguments& arguments) {
    requireText(arguments.operand(1));
    return store(arguments.operand(0), kAccountName, arguments.operand(1));
}

ExitCode enable(const Arguments& arguments) {
    return store(arguments.operand(0), kAccountEnabled, true);
}

ExitCode disable(const Arguments& arguments) {
    return store(arguments.operand(0), kAccountEnabled, false);
}

constexpr Option yesOption{"--yes", "", "do not ask whether to delete it"};
constexpr Option shortYesOption{"-y", "", "the same as --yes"};

/// Asks whether to delete the account, and ends the verb where the user does not confirm it. Returns its
/// name.
std::string confirmDeletion(std::string_view named) {
    const Accounts accounts = loadedAccounts();
    const std::size_t position = accountNamed(accounts, named);
    if (!confirms("Delete account " + numberAndName(accounts, position) + '?'))
        throw CommandError(ExitCode::Failed, "the account was not deleted");
    return accounts.name(position);
}

ExitCode remove(const Arguments& arguments) {
    const std::string_view named = arguments.operand(0);
    loadToChange();
    std::optional<std::string> confirmed;
    if (!arguments.has(yesOption.name) && !arguments.has(shortYesOption.name) && Terminal::readsInput())
        confirmed = confirmDeletion(named);
    finish(deleteAccount(documentPath(BundleIdentifier), [&](const Accounts& accounts) {
        const std::size_t position = accountNamed(accounts, named);
        // Another process may have changed the list while the question was shown.
        if (confirmed && accounts.name(position) != *confirmed)
            throw CommandError(ExitCode::Failed, "the accounts were changed meanwhile");
        return position;
    }));
    return ExitCode::Done;
}

constexpr std::array deleteOptions{yesOption, shortYesOption};

} // namespace

const Verb accountAddVerb{
    "account add",
    "NAME",
    "create an account",
    "Adds an account with the initial settings at the end of the list, and prints its\n"
    "number. The account is not enabled. Several accounts may have the same name.\n",
    {},
    1,
    1,
    onReadableSettings<add>,
    "wardlock account add Kim\n",
};

const Verb accountRenameVerb{
    "account rename",
    "NAME NEW-NAME",
    "give an account another name",
    "Renames the account. NAME is its name, or its number in `wardlock accounts`. An\n"
    "empty NEW-NAME becomes \"Blank\".\n",
    {},
    2,
    2,
    onReadableSettings<rename>,
    "wardlock account rename Default Kim\n",
};

const Verb accountEnableVerb{
    "account enable",
    "NAME",
    "enable an account, so that its restrictions apply",
    "Enables the account. In the same step, disables the first account that was\n"
    "enabled: only one account is enabled at a time. NAME is its name, or its number\n"
    "in `wardlock accounts`.\n",
    {},
    1,
    1,
    onReadableSettings<enable>,
    "wardlock account enable Kim\n",
};

const Verb accountDisableVerb{
    "account disable",
    "NAME",
    "disable an account",
    "Disables the account. No other account is enabled instead. NAME is its name, or\n"
    "its number in `wardlock accounts`.\n",
    {},
    1,
    1,
    onReadableSettings<disable>,
    "wardlock account disable Kim\n",
};

const Verb accountDeleteVerb{
    "account delete",
    "NAME",
    "delete an account",
    "Deletes the account and its settings. If it was the only account, the default\n"
    "account replaces it. NAME is its name, or its number in `wardlock accounts`.\n"
    "\n"
    "In a terminal, the command asks first; only \"y\" or \"yes\" deletes the account.\n"
    "It does not ask with --yes, or where standard input is not a terminal.\n",
    deleteOptions,
    1,
    1,
    onReadableSettings<remove>,
    "wardlock account delete Kim\nwardlock account delete --yes 2\n",
};

} // namespace wardlock::cli
