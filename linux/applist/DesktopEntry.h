#pragma once

#include "linux/applist/GlibPointer.h"

#include <string>

namespace platform::applist {

/// One entry of the desktop, in its file.
class DesktopEntry {
public:
    explicit DesktopEntry(const std::string& path);

    /// Returns whether menus show it: an application that is not hidden, is installed, has something to start
    /// and is for the desktop in use.
    bool isShown() const;
    /// Returns the key "Name" in the user's language, else without a language. Menus of some desktops show
    /// other keys' names.
    std::string name() const;
    /// Returns a name for IconTheme, or the path of a file; empty when there is none.
    std::string icon() const;

private:
    std::string text(const char* key) const;
    std::string localizedText(const char* key) const;
    bool isTrue(const char* key) const;
    bool lists(const char* key, const std::string& desktop) const;
    bool isForThisDesktop() const;
    bool isInstalled() const;

    KeyFilePointer file_;
};

} // namespace platform::applist
