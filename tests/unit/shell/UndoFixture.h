#pragma once

#include "platform/plist/PropertyList.h"
#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <string>
#include <vector>

namespace wardlock::test {

/// A user of Settings who takes changes back. Records the rows to which that led, and the announced keys.
class UndoFixture : public SettingsApplicationFixture, protected shell::ScreenObserver {
protected:
    void startWith(std::initializer_list<std::string_view> accounts, double transitionSeconds = 0) {
        writeDocument(documentOf(accounts));
        start(transitionSeconds);
        observe();
    }
    void observe() { subscription_ = settings().observe(*this); }
    void installApplications() const {
        for (const std::string name : {"one", "two"})
            writeFile("/Applications/" + name + ".app/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.example." +
                          name + "</string></dict></plist>");
    }
    void openAccount(std::string_view name) {
        tap("Wardlock");
        tap(name);
    }
    void deleteAccount(std::string_view name) {
        tap(name);
        tap("Delete Account");
        chooseInAlert("Delete");
    }
    void createAccount(const std::string& name) {
        EXPECT_TRUE(settings().page().tapBarButton());
        EXPECT_TRUE(settings().sheets().typeIntoAlert(0, name));
        chooseInAlert("Create");
    }
    void back() {
        const auto result = settings().page().goBack();
        EXPECT_TRUE(result) << result.reason();
    }
    void undo() {
        const auto result = settings().history().undo();
        EXPECT_TRUE(result) << result.reason();
    }
    void redo() {
        const auto result = settings().history().redo();
        EXPECT_TRUE(result) << result.reason();
    }
    /// As a program without the settings library does that replaces the file and announces that.
    void replaceElsewhere(const platform::Dictionary& document) {
        removeFile(documentPath);
        writeFile(documentPath, platform::dataWithPropertyList(document));
        const platform::Dictionary userInfo{{"key", "kAccounts"}, {"object", true}};
        center.deliver("com.tavix.wardlock/update", &userInfo);
    }
    platform::Dictionary withAccountValue(std::size_t index, std::string_view key,
                                          const platform::Value& value) const {
        Accounts accounts = Accounts::onDisk();
        accounts.set(index, key, &value);
        platform::MutableDictionary changed(document());
        changed.set(kAccounts, accounts.records());
        return changed.copy();
    }
    bool isOn(std::size_t account, std::string_view key) const {
        return platform::boolValue(Accounts::onDisk().record(account)->find(key));
    }
    std::vector<std::string> names() const { return Accounts::onDisk().names(); }
    std::string notice() { return settings().screen().notice(); }
    std::string offer() {
        return settings().screen().offer() ? settings().screen().offer()->text : std::string();
    }
    /// The titles of the pages.
    std::vector<std::string> pages() {
        std::vector<std::string> titles;
        for (const auto& page : settings().screen().pages())
            titles.push_back(page->title());
        return titles;
    }

    std::vector<std::string> found;
    std::vector<std::string> announced;

private:
    void rowFound(shell::Page& page, platform::NSIndexPath path) override {
        found.push_back(page.title() + ": " + page.row(path).label);
    }
    void changeAnnounced(const shell::Announcement& announcement) override {
        announced.push_back((announcement.own ? "" : "other ") + announcement.key);
    }

    platform::Subscription subscription_;
};

using Names = std::vector<std::string>;

} // namespace wardlock::test
