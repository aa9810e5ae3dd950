#pragma once

#include "cli/command/Verb.h"

namespace wardlock::cli {

/// The verbs, each defined in the source of its family.
extern const Verb settingsVerb;
extern const Verb statusVerb;
extern const Verb getVerb;
extern const Verb accountVerb;
extern const Verb watchVerb;
extern const Verb announceVerb;
extern const Verb doctorVerb;
extern const Verb deviceInitVerb;
extern const Verb plistDumpVerb;
extern const Verb plistConvertVerb;
extern const Verb plistLintVerb;
extern const Verb plistSetVerb;

} // namespace wardlock::cli
