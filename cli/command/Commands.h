#pragma once

#include "cli/command/Verb.h"

namespace wardlock::cli {

/// The verbs, each defined in the source of its family.
extern const Verb settingsVerb;
extern const Verb statusVerb;
extern const Verb accountsVerb;
extern const Verb accountShowVerb;
extern const Verb accountAddVerb;
extern const Verb accountRenameVerb;
extern const Verb accountEnableVerb;
extern const Verb accountDisableVerb;
extern const Verb accountDeleteVerb;
extern const Verb accountVerb;
extern const Verb setVerb;
extern const Verb getVerb;
extern const Verb appsVerb;
extern const Verb restrictVerb;
extern const Verb allowVerb;
extern const Verb passcodeSetVerb;
extern const Verb passcodeClearVerb;
extern const Verb passcodeCheckVerb;
extern const Verb exportVerb;
extern const Verb importVerb;
extern const Verb watchVerb;
extern const Verb announceVerb;
extern const Verb historyShowVerb;
extern const Verb historyDiffVerb;
extern const Verb historyVerb;
extern const Verb undoVerb;
extern const Verb redoVerb;
extern const Verb restoreVerb;
extern const Verb doctorVerb;
extern const Verb deviceInitVerb;
extern const Verb plistDumpVerb;
extern const Verb plistConvertVerb;
extern const Verb plistLintVerb;
extern const Verb plistSetVerb;
extern const Verb completeVerb;
extern const Verb helpVerb;

} // namespace wardlock::cli
