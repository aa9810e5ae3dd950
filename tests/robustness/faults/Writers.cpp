#include "tests/robustness/faults/Writers.h"

#include "platform/plist/PropertyList.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"

#include <algorithm>

namespace wardlock::test {

namespace {

const std::string openRoot = R"({"do":"tap","row":"Wardlock"})";
const std::string openAccount = R"({"do":"tap","row":"Tom"})";
const std::string switchMaster = R"({"do":"tap","key":"kEnabled"})";
const std::string openKeypad = R"({"do":"tap","row":"Passcode"})";
// Whether it asks for the passcode or for a new one depends on what was stored.
const std::string cancelKeypad = R"({"do":"keypad","press":"cancel"})";
const std::string fade = R"({"do":"step","seconds":0.4})";

std::string typeInto(const std::string& row, const std::string& text) {
    return R"({"do":"type","row":")" + row + R"(","text":")" + text + R"("})";
}

std::string digits(const std::string& keys) {
    return R"({"do":"keypad","digits":")" + keys + R"("})";
}

platform::Dictionary account(std::string_view name, bool enabled) {
    const platform::Dictionary defaults = DefaultSettings();
    platform::MutableDictionary record(defaults.find(kAccounts)->array().at(0).dictionary());
    record.set(kAccountName, name);
    record.set(kAccountEnabled, enabled);
    record.set(kAppsRestricted, platform::Array{"org.example.stored"});
    return record.copy();
}

platform::Dictionary before() {
    return {{"comment", "<\"kept\" & 'whole'>\r\n"},
            {kEnabled, true},
            {kPasscode, ""},
            {"foreign", platform::Dictionary{{"data", platform::Value::data(std::string(300, '\xFE'))},
                                             {"number", std::uint64_t(18446744073709551615u)},
                                             {"real", 0.1}}},
            {kAccounts, platform::Array{account("Ann", true), account("Tom", false)}}};
}

void setInAccount(platform::MutableDictionary& document, std::size_t index, std::string_view key,
                  const platform::Value& value) {
    platform::MutableArray accounts(document.find(kAccounts)->array());
    platform::MutableDictionary record(accounts.at(index).dictionary());
    record.set(key, value);
    accounts.replace(index, record.copy());
    document.set(kAccounts, accounts.copy());
}

void switchOff(platform::MutableDictionary& document) {
    document.set(kEnabled, false);
}

void renameTom(platform::MutableDictionary& document) {
    setInAccount(document, 1, kAccountName, "Kim");
}

void setPasscode(platform::MutableDictionary& document) {
    document.set(kPasscode, "1234");
}

void addKim(platform::MutableDictionary& document) {
    platform::MutableArray accounts(document.find(kAccounts)->array());
    accounts.append(DefaultSettings().find(kAccounts)->array().at(0));
    document.set(kAccounts, accounts.copy());
    setInAccount(document, 2, kAccountName, "Kim");
}

void restrictSiri(platform::MutableDictionary& document) {
    setInAccount(document, 1, kRestrictSiri, true);
}

void enableTom(platform::MutableDictionary& document) {
    setInAccount(document, 0, kAccountEnabled, false);
    setInAccount(document, 1, kAccountEnabled, true);
}

void deleteTom(platform::MutableDictionary& document) {
    platform::MutableArray accounts(document.find(kAccounts)->array());
    accounts.remove(1);
    document.set(kAccounts, accounts.copy());
}

void restrictChess(platform::MutableDictionary& document) {
    setInAccount(document, 1, kAppsRestricted, platform::Array{"org.example.stored", "org.example.chess"});
}

void disableAnn(platform::MutableDictionary& document) {
    setInAccount(document, 0, kAccountEnabled, false);
}

void allowStored(platform::MutableDictionary& document) {
    setInAccount(document, 1, kAppsRestricted, platform::Array{});
}

std::string changedDocument(const Writer& writer) {
    platform::MutableDictionary document(before());
    writer.change(document);
    return platform::dataWithPropertyList(document.copy());
}

constexpr const char* importedText = "<plist><dict><key>kEnabled</key><false/></dict></plist>";

} // namespace

std::string Writer::documentBefore() const {
    return earlier.empty() ? firstDocument() : changedDocument(*this);
}

std::string Writer::documentAfter() const {
    return earlier.empty() ? changedDocument(*this) : firstDocument();
}

std::string Writer::firstDocument() const {
    return platform::dataWithPropertyList(before());
}

const std::vector<Writer>& writers() {
    static const std::vector<Writer> all = {
        {"Switch", {openRoot}, switchMaster, {switchMaster}, switchOff},
        {"TextField",
         {openRoot, openAccount, typeInto("Account Name", "Kim")},
         R"({"do":"return"})",
         {typeInto("Account Name", "Ida"), R"({"do":"return"})"},
         renameTom},
        {"Passcode",
         {openRoot, openKeypad, fade, digits("123")},
         digits("4"),
         {fade, openKeypad, fade, cancelKeypad, fade, switchMaster},
         setPasscode},
        {"AccountCreation",
         {openRoot, R"({"do":"button"})", R"({"do":"type","text":"Kim"})"},
         R"({"do":"choose","action":"Create"})",
         {R"({"do":"button"})", R"({"do":"type","text":"Ida"})", R"({"do":"choose","action":"Create"})"},
         addKim},
        {"AccountSwitch",
         {openRoot, openAccount},
         R"({"do":"tap","key":"kRestrictSiri"})",
         {R"({"do":"tap","key":"kRestrictSiri"})"},
         restrictSiri},
        {"AccountEnabling",
         {openRoot, openAccount},
         R"({"do":"tap","key":"kAccountEnabled"})",
         {R"({"do":"tap","key":"kAccountEnabled"})"},
         enableTom},
        {"AccountDeletion",
         {openRoot, openAccount, R"({"do":"tap","row":"Delete Account"})"},
         R"({"do":"choose","action":"Delete"})",
         {switchMaster},
         deleteTom},
        {"Picker",
         {openRoot, openAccount, R"({"do":"tap","row":"Apps"})"},
         R"({"do":"tap","key":"org.example.chess"})",
         {R"({"do":"tap","key":"org.example.chess"})"},
         restrictChess},
        {"PropertyListSet",
         {},
         "",
         {},
         switchOff,
         {"plist", "set", "DOCUMENT", "kEnabled", "bool", "false"},
         "",
         false},
        {"SetVerb", {}, "", {}, restrictSiri, {"set", "--account", "Tom", "siri", "on"}},
        {"MasterVerb", {}, "", {}, switchOff, {"set", "kEnabled", "off"}},
        {"AccountAddVerb", {}, "", {}, addKim, {"account", "add", "Kim"}},
        {"AccountRenameVerb", {}, "", {}, renameTom, {"account", "rename", "Tom", "Kim"}},
        {"AccountEnableVerb", {}, "", {}, enableTom, {"account", "enable", "Tom"}},
        {"AccountDisableVerb", {}, "", {}, disableAnn, {"account", "disable", "Ann"}},
        {"AccountDeleteVerb", {}, "", {}, deleteTom, {"account", "delete", "Tom"}},
        {"RestrictVerb",
         {},
         "",
         {},
         restrictChess,
         {"restrict", "--account", "Tom", "org.example.chess"},
         "",
         true,
         true},
        {"AllowVerb", {}, "", {}, allowStored, {"allow", "--account", "Tom", "org.example.stored"}},
        {"PasscodeVerb", {}, "", {}, setPasscode, {"passcode", "set"}, "1234\n"},
        {"ImportVerb", {}, "", {}, switchOff, {"import", "-"}, importedText},
        {"UndoVerb", {}, "", {}, switchOff, {"undo"}, "", true, false, {"set", "kEnabled", "off"}},
        {"RestoreVerb",
         {},
         "",
         {},
         renameTom,
         {"restore", "1"},
         "",
         true,
         false,
         {"account", "rename", "Tom", "Kim"}},
    };
    return all;
}

std::vector<std::string> wordsFor(const Writer& writer, const std::string& path) {
    std::vector<std::string> words = writer.words;
    std::ranges::replace(words, "DOCUMENT", path);
    return words;
}

std::string applicationInfo() {
    return platform::dataWithPropertyList(
        {{"CFBundleIdentifier", "org.example.chess"}, {"CFBundleDisplayName", "Chess"}});
}

} // namespace wardlock::test
