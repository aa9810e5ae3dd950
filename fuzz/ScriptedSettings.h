#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace wardlock::fuzz {

/// Settings for scripts within this process: on a demonstration device of its own, in memory where the
/// machine has a folder there, without bus, mails, web and real time. Ends the process when an answer has not
/// the form that docs/automation.md promises, or when the document on disk is not whole.
class ScriptedSettings {
public:
    ScriptedSettings();
    ~ScriptedSettings();
    ScriptedSettings(const ScriptedSettings&) = delete;
    ScriptedSettings& operator=(const ScriptedSettings&) = delete;

    /// A script from start to end, on a device as new with that many accounts.
    void run(std::string_view script, std::size_t accounts);

private:
    std::filesystem::path folder_;
};

} // namespace wardlock::fuzz
