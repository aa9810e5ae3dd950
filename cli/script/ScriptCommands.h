#pragma once

#include "cli/io/Json.h"
#include "cli/io/SettingsLoop.h"
#include "cli/script/ScriptFields.h"
#include "cli/script/ScriptSheets.h"
#include "shell/SettingsApplication.h"
#include "shell/input/ManualClock.h"

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace wardlock::cli {

/// The commands of a script: each does one action of the user, or returns what the user sees.
/// docs/automation.md documents them.
class ScriptCommands : private shell::ScreenObserver {
public:
    ScriptCommands(shell::SettingsApplication& settings, shell::ManualClock& clock, SettingsLoop& loop);

    /// Runs one command. Returns its reply, an object; it has an "error" when the command is refused.
    Json run(const Json& command);
    /// Returns whether the script has asked to quit.
    bool isOver() const { return over_; }

private:
    using Handler = void (ScriptCommands::*)(const ScriptFields&, Json& reply);
    struct Entry {
        std::string_view name;
        Handler handler;
    };
    static const std::vector<Entry>& table();
    static std::vector<std::string_view> names();

    void changeAnnounced(const shell::Announcement& announcement) override;
    void changeNotSaved(const std::string& reason) override { unsaved_ = reason; }

    void see(const ScriptFields& fields, Json& reply);
    void tap(const ScriptFields& fields, Json& reply);
    void set(const ScriptFields& fields, Json& reply);
    void type(const ScriptFields& fields, Json& reply);
    void endTyping(const ScriptFields& fields, Json& reply);
    void drag(const ScriptFields& fields, Json& reply);
    void pressButton(const ScriptFields& fields, Json& reply);
    void back(const ScriptFields& fields, Json& reply);
    void undo(const ScriptFields& fields, Json& reply);
    void redo(const ScriptFields& fields, Json& reply);
    void restore(const ScriptFields& fields, Json& reply);
    void choose(const ScriptFields& fields, Json& reply);
    void keypad(const ScriptFields& fields, Json& reply);
    void mail(const ScriptFields& fields, Json& reply);
    void follow(const ScriptFields& fields, Json& reply);
    void resign(const ScriptFields& fields, Json& reply);
    void dismiss(const ScriptFields& fields, Json& reply);
    void step(const ScriptFields& fields, Json& reply);
    void transitions(const ScriptFields& fields, Json& reply);
    void posts(const ScriptFields& fields, Json& reply);
    void wait(const ScriptFields& fields, Json& reply);
    void quit(const ScriptFields& fields, Json& reply);

    bool hasHappened(std::string_view what);

    shell::SettingsApplication& settings_;
    shell::ManualClock& clock_;
    SettingsLoop& loop_;
    ScriptSheets sheets_;
    /// Since the last "posts".
    std::vector<shell::Announcement> announced_;
    /// Why a change of the current command could not be stored; empty for none.
    std::string unsaved_;
    bool over_ = false;
    platform::Subscription subscription_;
};

} // namespace wardlock::cli
