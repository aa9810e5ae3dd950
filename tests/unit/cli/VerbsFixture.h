#pragma once

#include "platform/plist/PropertyList.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"

#include <optional>
#include <string>
#include <vector>

namespace wardlock::test {

/// The verbs that show and change the settings, over a document of three accounts: Ada (1), Ben (2, enabled)
/// and Cleo (3).
class VerbsFixture : public BusFixture {
protected:
    VerbsFixture() { write(document()); }

    static platform::Dictionary account(std::string_view name, bool enabled) {
        const platform::Dictionary defaults = DefaultSettings();
        platform::MutableDictionary record(defaults.find(kAccounts)->array().at(0).dictionary());
        record.set(kAccountName, name);
        record.set(kAccountEnabled, enabled);
        record.set(kAppsRestricted, platform::Array{"org.example.stored"});
        return record.copy();
    }
    static platform::Dictionary document(std::string_view passcode = "") {
        return {{"foreign", 7},
                {kEnabled, true},
                {kPasscode, passcode},
                {kAccounts,
                 platform::Array{account("Ada", false), account("Ben", true), account("Cleo", false)}}};
    }
    void write(const platform::Dictionary& dictionary) const {
        writeFile(documentPath, platform::dataWithPropertyList(dictionary));
    }
    platform::Dictionary stored() const {
        const auto value = platform::propertyListWithData(readFile(documentPath));
        EXPECT_TRUE(value);
        return value ? value->dictionary() : platform::Dictionary();
    }
    /// A key of an account on disk, by its position.
    platform::Value stored(std::size_t position, std::string_view key) const {
        const platform::Array accounts = stored().find(kAccounts)->array();
        return *accounts.at(position).dictionary().find(key);
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        const platform::Array accounts = stored().find(kAccounts)->array();
        for (const platform::Value& record : accounts)
            names.emplace_back(record.dictionary().find(kAccountName)->string());
        return names;
    }

    static ProcessResult run(const std::vector<std::string>& words, const std::string& input = "") {
        ProcessSetup setup;
        setup.input = input;
        return wardlockCommand(words, setup);
    }
    /// The verb succeeds and prints this.
    static void expectPrints(const std::vector<std::string>& words, const std::string& output) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(result.output, output);
        EXPECT_EQ(result.errors, "");
    }
    /// The verb ends with the code and this line on standard error, and has changed nothing.
    void expectRefuses(const std::vector<std::string>& words, int code, const std::string& error,
                       const std::string& input = "") const {
        const std::optional<std::string> before =
            exists(documentPath) ? std::optional(readFile(documentPath)) : std::nullopt;
        const ProcessResult result = run(words, input);
        EXPECT_EQ(result.exitCode, code) << result.errors;
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "wardlock " + error + '\n');
        EXPECT_EQ(exists(documentPath) ? std::optional(readFile(documentPath)) : std::nullopt, before);
    }
    /// The verb writes once, and other processes receive these lines of `wardlock watch --json`.
    static void expectAnnounces(const std::vector<std::string>& words,
                                const std::vector<std::string>& changes, const std::string& input = "") {
        Process watch(command, {"watch", "--json"});
        ASSERT_TRUE(watch.waitForError("Watching"));
        const ProcessResult result = run(words, input);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        // What is announced last ends the list of what came before.
        EXPECT_EQ(wardlockCommand({"announce", "foreign"}).exitCode, 0);
        for (const std::string& change : changes) {
            const std::string line = watch.readLine().value_or("");
            EXPECT_TRUE(line.starts_with(change)) << line;
        }
        EXPECT_TRUE(watch.readLine().value_or("").starts_with(R"({"key":"foreign")"));
    }
};

} // namespace wardlock::test
