#pragma once

#include "cli/io/Arguments.h"
#include "settings/Accounts.h"
#include "settings/DocumentChange.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace wardlock::cli {

inline constexpr Option accountOption{
    "--account", "NAME",
    "the account, by name or number; by default the enabled\naccount, or the only one if none is enabled"};

/// Returns the position of the account with the name, or with the number in the list: "2", or "#2" where
/// another account has that name. Throws CommandError (Failed) when it fits none or several.
std::size_t accountNamed(const Accounts& accounts, std::string_view name);

/// Returns the position of the account of --account; without it, that of the enabled account, else of the
/// only one. Throws CommandError (Failed) when there is none.
std::size_t accountOf(const Arguments& arguments, const Accounts& accounts);

/// The same for a change: the account is chosen in the list that the change finds on disk.
AccountChoice choiceOfNamed(std::string_view name);
AccountChoice choiceOf(const Arguments& arguments);

/// Returns the accounts of the loaded settings. Throws CommandError (Failed) when there are none.
Accounts loadedAccounts();

/// Returns "2 (Kim)": the number, which fits one account alone, and the name.
std::string numberAndName(const Accounts& accounts, std::size_t position);

} // namespace wardlock::cli
