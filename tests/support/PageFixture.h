#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/ui/UIWindow.h"
#include "platform/values/Value.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/FakeDevice.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/ManualClock.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A test of pages, with a device root of its own that contains the document. The distributed centre is
/// recorded, the clock is stepped, the device is made up, and there is a key window.
class PageFixture : public DeviceRootFixture {
protected:
    PageFixture();
    ~PageFixture() override;

    void writeDocument(const platform::Dictionary& document) const;
    /// The document on disk; a failed expectation and an empty one when there is none.
    platform::Dictionary document() const;
    platform::Array accounts() const;
    platform::Dictionary account(std::size_t index) const;
    /// A document with these accounts, the master switch and an empty passcode.
    void writeAccounts(const platform::Array& accounts) const;
    /// Gives the document other bytes of the same meaning, and returns the bytes that a write of the same
    /// entries puts in their place.
    std::string markDocument() const;

    /// Expects exactly one post since the last call, in the form of every change notification, made when
    /// the document on disk was already the one that is there now.
    void expectOneChange(std::string_view key, const platform::Value& object);
    void expectNoChange();

    /// From now on no file can be written; existing files can still be read.
    void refuseWrites();

    FakeDevice device;
    doubles::ManualClock clock;
    RecordingNotificationCenter changes;
    /// The document as it was on disk when each of the changes was posted.
    std::vector<std::optional<platform::Dictionary>> documentThen;
    std::shared_ptr<platform::UIWindow> window;

private:
    FaultyFileSystem faulty_{platform::FileSystem::current()};
};

/// The account record of the defaults, under another name.
platform::Dictionary accountNamed(std::string_view name, bool enabled = false);

/// The first row with the label; null when the page has none.
std::shared_ptr<platform::PSSpecifier> rowNamed(platform::PSListController& page, std::string_view label);
/// The row of the key; null when the page has none.
std::shared_ptr<platform::PSSpecifier> rowOfKey(platform::PSListController& page, std::string_view key);
/// What a tap on the row does.
void tap(platform::PSListController& page, std::string_view label);
/// The labels of the page's rows and groups in their order.
std::vector<std::string> names(platform::PSListController& page);

} // namespace wardlock::test
