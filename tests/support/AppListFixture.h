#pragma once

#include "platform/services/ALApplicationList.h"
#include "tests/support/DeviceRootFixture.h"

#include <optional>
#include <string>
#include <string_view>

namespace wardlock::test {

/// A test of the AppList library as it was built, over a device root and a desktop of the test's own: entries
/// and icons of the desktop lie below dataFolder(). GLib names its folders once per process.
class AppListFixture : public DeviceRootFixture {
protected:
    AppListFixture();

    /// The list the library offers; opened on first use.
    platform::ALApplicationList& list();
    std::optional<std::string> nameOf(std::string_view identifier);
    /// The icon's file name without its folder; empty when there is no icon.
    std::string iconOf(std::string_view identifier, int size = 29);

    /// A .app folder with an Info.plist of string entries; `more` are further elements of the dictionary.
    void install(const std::string& deviceFolder, std::string_view identifier, std::string_view name,
                 std::string_view more = "") const;

    /// The desktop's entries count as they do for the user's own device root.
    void useOwnRoot();
    std::string dataFolder() const { return folder() / "desktop"; }
    void writeDesktop(const std::string& path, std::string_view bytes) const;
    void writeEntry(const std::string& name, std::string_view lines) const;

    /// The beginning of a PNG file of a size.
    static std::string png(unsigned side);

private:
    platform::ALApplicationList* list_ = nullptr;
};

} // namespace wardlock::test
