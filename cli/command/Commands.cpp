#include "cli/command/Commands.h"

#include <array>

namespace wardlock::cli {

std::span<const Verb* const> verbs() {
    // The verbs of a family come before a verb of the family's own name.
    static constexpr std::array all{
        &settingsVerb,      &statusVerb,        &accountsVerb,       &accountShowVerb,   &accountAddVerb,
        &accountRenameVerb, &accountEnableVerb, &accountDisableVerb, &accountDeleteVerb, &accountVerb,
        &setVerb,           &getVerb,           &appsVerb,           &restrictVerb,      &allowVerb,
        &passcodeSetVerb,   &passcodeClearVerb, &passcodeCheckVerb,  &exportVerb,        &importVerb,
        &watchVerb,         &announceVerb,      &historyShowVerb,    &historyDiffVerb,   &historyVerb,
        &undoVerb,          &redoVerb,          &restoreVerb,        &doctorVerb,        &deviceInitVerb,
        &plistDumpVerb,     &plistConvertVerb,  &plistLintVerb,      &plistSetVerb,      &completeVerb,
        &helpVerb};
    return all;
}

} // namespace wardlock::cli
