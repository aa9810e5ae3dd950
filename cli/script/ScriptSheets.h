#pragma once

#include "cli/script/ScriptFields.h"
#include "shell/SettingsApplication.h"

#include <cstddef>

namespace wardlock::cli {

/// The script commands for alerts, the keypad and the mail sheet. Each throws ScriptError when it cannot be
/// carried out.
class ScriptSheets {
public:
    explicit ScriptSheets(shell::SettingsApplication& settings) : settings_(settings) {}

    void typeIntoAlert(const ScriptFields& fields);
    void choose(const ScriptFields& fields);
    void keypad(const ScriptFields& fields);
    void mail(const ScriptFields& fields);

private:
    void editMail(const ScriptFields& fields);
    std::size_t attachmentIndex(const ScriptFields& fields) const;

    shell::SettingsApplication& settings_;
};

} // namespace wardlock::cli
