#pragma once

#include "platform/versions/Versions.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "settings/history/History.h"
#include "settings/history/Undo.h"
#include "tests/support/SettingsFixture.h"
#include "tests/support/doubles/UnsyncedFileSystem.h"
#include "tests/unit/history/Documents.h"

#include <functional>
#include <string>
#include <vector>

namespace wardlock::test {

/// A document with history in a device root of its own, and a centre that records what is announced.
class HistoryFixture : public SettingsFixture {
protected:
    HistoryFixture() { platform::FileSystem::setCurrent(&files_); }
    ~HistoryFixture() override { platform::FileSystem::setCurrent(nullptr); }

    /// A read-modify-write of this process.
    static void change(const std::function<void(platform::MutableDictionary&)>& set) {
        updateDocument(BundleIdentifier, [&](platform::MutableDictionary& entries) {
            set(entries);
            return true;
        });
    }
    static void setTopLevel(std::string_view key, const platform::Value& value) {
        change([&](platform::MutableDictionary& entries) { entries.set(key, value); });
    }
    static void setAccount(std::size_t index, std::string_view key, const platform::Value& value) {
        changeAccounts([&](Accounts& accounts) { accounts.set(index, key, &value); });
    }
    static void addAccount(std::string_view name) {
        changeAccounts([&](Accounts& accounts) { accounts.append(account(name)); });
    }
    static void deleteAccount(std::size_t index) {
        changeAccounts([&](Accounts& accounts) { accounts.remove(index); });
    }
    static void changeAccounts(const std::function<void(Accounts&)>& set) {
        change([&](platform::MutableDictionary& entries) {
            Accounts accounts = *Accounts::of(entries.find(kAccounts));
            set(accounts);
            entries.set(kAccounts, accounts.records());
        });
    }
    /// Another program, without this library, replaces the document.
    void replaceAsAnotherProgram(const platform::Dictionary& document) const {
        removeFile(documentPath);
        writeDocument(document);
    }

    /// "key=object" of each announcement since the last call; "reload" for one without user info.
    std::vector<std::string> announced();

private:
    UnsyncedFileSystem files_{platform::FileSystem::current()};
};

} // namespace wardlock::test
