#include "cli/command/Commands.h"

#include <array>

namespace wardlock::cli {

std::span<const Verb* const> verbs() {
    static constexpr std::array all{&settingsVerb,  &statusVerb,       &getVerb,       &accountVerb,
                                    &watchVerb,     &announceVerb,     &doctorVerb,    &deviceInitVerb,
                                    &plistDumpVerb, &plistConvertVerb, &plistLintVerb, &plistSetVerb};
    return all;
}

} // namespace wardlock::cli
