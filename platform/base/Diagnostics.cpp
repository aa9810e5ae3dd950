#include "platform/base/Diagnostics.h"

#include <mutex>
#include <set>

namespace platform {

namespace {

constexpr std::size_t mostTexts = 100;
// Long enough for paths of files.
constexpr std::size_t longestText = 8192;

struct Diagnostics {
    std::mutex guard;
    DiagnosticsKeeper keeper = nullptr;
    std::set<std::string> told;
};

Diagnostics& diagnostics() {
    // Never destroyed: other threads may still report something while the process ends.
    static auto* const all = new Diagnostics;
    return *all;
}

} // namespace

void diagnose(const std::string& text) {
    DiagnosticsKeeper keeper = nullptr;
    const std::string shown = text.substr(0, longestText);
    {
        Diagnostics& all = diagnostics();
        const std::lock_guard lock(all.guard);
        if (all.keeper && all.told.size() < mostTexts && all.told.insert(shown).second)
            keeper = all.keeper;
    }
    if (keeper)
        keeper(shown);
}

void setDiagnosticsKeeper(DiagnosticsKeeper keeper) {
    const std::lock_guard lock(diagnostics().guard);
    diagnostics().keeper = keeper;
}

} // namespace platform
