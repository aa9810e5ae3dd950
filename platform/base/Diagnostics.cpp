#include "platform/base/Diagnostics.h"

#include <mutex>
#include <set>

namespace platform {

namespace {

constexpr std::size_t maximumTexts = 100;
// Long enough for paths of files.
constexpr std::size_t longestText = 8192;

struct Diagnostics {
    std::mutex guard;
    DiagnosticsHandler handler = nullptr;
    std::set<std::string> reported;
};

Diagnostics& diagnostics() {
    // Never destroyed: other threads may still report something while the process ends.
    static auto* const all = new Diagnostics;
    return *all;
}

} // namespace

void diagnose(const std::string& text) {
    DiagnosticsHandler handler = nullptr;
    const std::string shown = text.substr(0, longestText);
    {
        Diagnostics& all = diagnostics();
        const std::lock_guard lock(all.guard);
        if (all.handler && all.reported.size() < maximumTexts && all.reported.insert(shown).second)
            handler = all.handler;
    }
    if (handler)
        handler(shown);
}

void setDiagnosticsHandler(DiagnosticsHandler handler) {
    const std::lock_guard lock(diagnostics().guard);
    diagnostics().handler = handler;
}

} // namespace platform
