#pragma once

#include "platform/values/Value.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <optional>
#include <string_view>

namespace wardlock::test {

/// A test of the settings library: a device root without a document, a distributed centre that only records,
/// and the library's state as it is at load.
class SettingsFixture : public DeviceRootFixture {
protected:
    static constexpr std::string_view siblingFile = "/var/mobile/Library/Preferences/com.tavix.kitbay.plist";

    SettingsFixture();
    ~SettingsFixture() override;

    void writeDocument(const platform::Dictionary& dictionary) const;
    /// The document on disk; a failed expectation and an empty dictionary where there is none.
    platform::Dictionary readDocument(std::string_view devicePath = documentPath) const;

    /// A document of all three keys whose accounts are named "A", "B", ... and enabled as given.
    static platform::Dictionary documentWithAccounts(std::initializer_list<bool> enabled);

    RecordingNotificationCenter center;
};

} // namespace wardlock::test
