#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace wardlock::fuzz {

/// Settings for scripts within this process, without bus, mail, web and real time. The demonstration device
/// is its own, in memory where the machine has a folder there. Ends the process when a reply differs from the
/// form in docs/automation.md, or when the document on disk is not whole.
class ScriptedSettings {
public:
    ScriptedSettings();
    ~ScriptedSettings();
    ScriptedSettings(const ScriptedSettings&) = delete;
    ScriptedSettings& operator=(const ScriptedSettings&) = delete;

    /// Runs a script from start to end, on a new device with `accounts` accounts.
    void run(std::string_view script, std::size_t accounts);

private:
    std::filesystem::path folder_;
};

} // namespace wardlock::fuzz
