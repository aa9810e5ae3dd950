#include "fuzz/ScriptedSettings.h"

#include "cli/io/Json.h"
#include "cli/io/SettingsLoop.h"
#include "cli/script/ScriptCommands.h"
#include "fuzz/Check.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/services/MailService.h"
#include "platform/ui/UIWebView.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "shell/device/DemonstrationDevice.h"
#include "shell/device/Provision.h"
#include "tests/support/doubles/LoopbackNotificationCenter.h"
#include "tests/support/doubles/RecordingMailService.h"
#include "tests/support/doubles/RecordingURLOpener.h"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>

namespace wardlock::fuzz {

namespace {

namespace fs = std::filesystem;
using cli::Json;
using platform::Value;

/// Serves every page at once with a text and a link. Reports wait until they are requested.
class EchoingWeb final : public platform::WebEngine {
public:
    EchoingWeb() { setCurrent(this); }
    ~EchoingWeb() override { setCurrent(nullptr); }

    void load(const std::shared_ptr<platform::UIWebView>& view,
              const platform::NSURLRequest& request) override {
        asked_ = view;
        url_ = request.url;
    }
    void report() {
        const auto view = std::exchange(asked_, {}).lock();
        if (!view)
            return;
        view->didStartLoad();
        if (url_.size() % 2 == 0)
            view->didFailLoad("no reply");
        else
            view->didFinishLoad(url_, {{"again", url_}});
    }

private:
    std::weak_ptr<platform::UIWebView> asked_;
    std::string url_;
};

void storeDocument(std::size_t accounts) {
    platform::MutableDictionary document(DefaultSettings());
    const platform::Dictionary record = document.find(kAccounts)->array().at(0).dictionary();
    platform::MutableArray records;
    for (std::size_t i = 0; i < accounts; ++i) {
        platform::MutableDictionary account(record);
        account.set(kAccountName, Value("Account " + std::to_string(i)));
        records.append(account.copy());
    }
    document.set(kAccounts, records.copy());
    const std::string path = documentPath(BundleIdentifier);
    check(platform::writeToFileAtomically(document.copy(), path, platform::Sync::None), "a new document");
}

void checkDocument() {
    const auto document = platform::dictionaryWithContentsOfFile(documentPath(BundleIdentifier));
    check(document.has_value(), "the document is one");
    check(platform::stringValue(document->find(kPasscode)).has_value(), "the passcode is a text");
    const auto* accounts = platform::arrayValue(document->find(kAccounts));
    check(accounts && !accounts->empty(), "there is an account");
    for (const Value& account : *accounts) {
        const auto* record = platform::dictionaryValue(&account);
        check(record && platform::stringValue(record->find(kAccountName)) &&
                  platform::arrayValue(record->find(kAppsRestricted)),
              "every account has its name and its list");
    }
}

/// The clock stands still here, and no input comes from elsewhere: waiting would only take time.
void shortenWait(Json& command) {
    if (!command.is_object() || command.value("do", Json()) != "wait")
        return;
    if (!command.contains("seconds") || (command["seconds"].is_number() && command["seconds"] > 0))
        command["seconds"] = 0;
}

void checkReply(const std::optional<Json>& command, const Json& reply) {
    const auto read = cli::parseJson(cli::jsonLine(reply));
    check(read && read->is_object(), "a reply is one object in one line");
    check(read->contains("ok") != read->contains("error"), "a reply is ok or an error");
    check(!read->contains("error") || (*read)["error"].is_string(), "an error is a text");
    if (command && command->is_object() && command->contains("id"))
        check(read->contains("id") && (*read)["id"] == (*command)["id"], "the reply has the command's id");
}

} // namespace

ScriptedSettings::ScriptedSettings() {
    std::error_code error;
    const fs::path memory = "/dev/shm";
    const fs::path parent = fs::is_directory(memory, error) ? memory : fs::temp_directory_path();
    std::string name = parent / "wardlock-fuzz.XXXXXX";
    check(mkdtemp(name.data()) != nullptr, "a private folder");
    folder_ = name;
    setenv("WARDLOCK_DEVICE_ROOT", (folder_ / "device").c_str(), 1);
    for (const char* variable :
         {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "XDG_DATA_DIRS"})
        setenv(variable, name.c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + name + "/none").c_str(), 1);
    const shell::Provision provision([] { check(shell::furnishDemonstration().empty(), "demonstration"); });
    for (const std::string& problem : provision.problems())
        check(false, problem.c_str());
}

ScriptedSettings::~ScriptedSettings() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void ScriptedSettings::run(std::string_view script, std::size_t accounts) {
    storeDocument(accounts);
    test::LoopbackNotificationCenter center;
    test::RecordingMailService mail;
    const test::RecordingURLOpener urls;
    EchoingWeb web;
    shell::ManualClock clock;
    shell::SettingsApplication settings(clock);
    cli::SettingsLoop loop(settings, nullptr);
    cli::ScriptCommands commands(settings, clock, loop);
    std::istringstream lines{std::string(script)};
    for (std::string line; !commands.isOver() && std::getline(lines, line);) {
        settings.process();
        settings.run([&] { web.report(); });
        auto command = cli::parseJson(line);
        if (!command)
            continue;
        shortenWait(*command);
        checkReply(command, commands.run(*command));
        settings.run([&] { mail.finish({platform::MailOutcome::Kind::HandedOver, "sent"}); });
    }
    checkReply(std::nullopt, commands.run(Json{{"do", "see"}}));
    settings.close();
    checkDocument();
}

} // namespace wardlock::fuzz
