// Read here and not by GIO, which waits at a pipe among the files, and does not end where links between
// folders form a cycle.

#include "linux/applist/DesktopEntry.h"

#include "linux/applist/KeyFile.h"

#include <cstdlib>
#include <string_view>

namespace platform::applist {
namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

std::string taken(char* text) {
    const TextPointer owned(text);
    return owned ? owned.get() : "";
}

bool isProgram(const std::string& name) {
    return !taken(g_find_program_in_path(name.c_str())).empty();
}

/// Returns the program of a command line; empty for one that a shell would refuse.
std::string programOf(const std::string& commandLine) {
    char** words = nullptr;
    if (!g_shell_parse_argv(commandLine.c_str(), nullptr, &words, nullptr))
        return {};
    const TextsPointer owned(words);
    return words[0];
}

/// XDG_CURRENT_DESKTOP: the desktop in use, then those from which it is derived.
TextsPointer desktopsInUse() {
    const char* const desktops = std::getenv("XDG_CURRENT_DESKTOP");
    return TextsPointer(g_strsplit(desktops ? desktops : "", ":", -1));
}

} // namespace

DesktopEntry::DesktopEntry(const std::string& path) : file_(readKeyFile(path)) {}

bool DesktopEntry::isShown() const {
    return file_ && text(G_KEY_FILE_DESKTOP_KEY_TYPE) == G_KEY_FILE_DESKTOP_TYPE_APPLICATION &&
           !isTrue(G_KEY_FILE_DESKTOP_KEY_HIDDEN) && !isTrue(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY) &&
           isForThisDesktop() && isInstalled();
}

std::string DesktopEntry::name() const {
    const std::string localized = localizedText(G_KEY_FILE_DESKTOP_KEY_NAME);
    return localized.empty() ? text(G_KEY_FILE_DESKTOP_KEY_NAME) : localized;
}

std::string DesktopEntry::icon() const {
    std::string icon = localizedText(G_KEY_FILE_DESKTOP_KEY_ICON);
    if (icon.starts_with('/'))
        return icon;
    for (const std::string_view extension : {".png", ".svg", ".xpm"})
        if (icon.ends_with(extension))
            icon.resize(icon.size() - extension.size());
    return icon;
}

std::string DesktopEntry::text(const char* key) const {
    return file_ ? taken(g_key_file_get_string(file_.get(), group, key, nullptr)) : "";
}

std::string DesktopEntry::localizedText(const char* key) const {
    return file_ ? taken(g_key_file_get_locale_string(file_.get(), group, key, nullptr, nullptr)) : "";
}

bool DesktopEntry::isTrue(const char* key) const {
    return g_key_file_get_boolean(file_.get(), group, key, nullptr);
}

bool DesktopEntry::lists(const char* key, const std::string& desktop) const {
    const TextsPointer names(g_key_file_get_string_list(file_.get(), group, key, nullptr, nullptr));
    return names && g_strv_contains(names.get(), desktop.c_str());
}

bool DesktopEntry::isForThisDesktop() const {
    const TextsPointer desktops = desktopsInUse();
    for (char** desktop = desktops.get(); *desktop; ++desktop) {
        if (lists(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, *desktop))
            return true;
        if (lists(G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, *desktop))
            return false;
    }
    return !g_key_file_has_key(file_.get(), group, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, nullptr);
}

bool DesktopEntry::isInstalled() const {
    const std::string tried = text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    if (!tried.empty() && !isProgram(tried))
        return false;
    const std::string commandLine = text(G_KEY_FILE_DESKTOP_KEY_EXEC);
    // An entry without a program may be started over the bus.
    return commandLine.empty() ? isTrue(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE)
                               : isProgram(programOf(commandLine));
}

} // namespace platform::applist
