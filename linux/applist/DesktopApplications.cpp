#include "linux/applist/DesktopApplications.h"

#include "linux/applist/GlibPointer.h"
#include "linux/applist/IconTheme.h"
#include "platform/foundation/Utf8.h"

#include <gio/gdesktopappinfo.h>

namespace platform::applist {
namespace {

constexpr std::string_view Suffix = ".desktop";
constexpr std::size_t LongestText = 1024;

using Entry = ObjectPointer<GDesktopAppInfo>;

/// Takes the list with all that is in it.
std::vector<Entry> allEntries() {
    std::vector<Entry> entries;
    GList* list = g_app_info_get_all();
    for (GList* item = list; item; item = item->next)
        entries.emplace_back(G_DESKTOP_APP_INFO(item->data));
    g_list_free(list);
    return entries;
}

std::string_view orEmpty(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

/// The key "Name" in the user's language, else as it stands; menus of some desktops show other keys' names.
std::string nameOf(const Entry& entry) {
    const TextPointer localized(
        g_desktop_app_info_get_locale_string(entry.get(), G_KEY_FILE_DESKTOP_KEY_NAME));
    if (localized && *localized)
        return localized.get();
    const TextPointer name(g_desktop_app_info_get_string(entry.get(), G_KEY_FILE_DESKTOP_KEY_NAME));
    return std::string(orEmpty(name.get()));
}

/// An entry without a program may be started over the bus.
bool startsSomething(const Entry& entry) {
    const TextPointer program(g_desktop_app_info_get_string(entry.get(), G_KEY_FILE_DESKTOP_KEY_EXEC));
    return !orEmpty(program.get()).empty() ||
           g_desktop_app_info_get_boolean(entry.get(), G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
}

bool isShown(const Entry& entry) {
    return startsSomething(entry) && g_app_info_should_show(G_APP_INFO(entry.get()));
}

bool isName(std::string_view text) {
    return !text.empty() && text.size() <= LongestText && isValidUtf8(text);
}

} // namespace

std::vector<Application> desktopApplications() {
    std::vector<Application> applications;
    for (const Entry& entry : allEntries()) {
        std::string_view identifier = orEmpty(g_app_info_get_id(G_APP_INFO(entry.get())));
        const std::string name = nameOf(entry);
        if (identifier.ends_with(Suffix))
            identifier.remove_suffix(Suffix.size());
        if (!isName(identifier) || !isName(name) || !isShown(entry))
            continue;
        Application& application = applications.emplace_back();
        application.identifier = identifier;
        application.name = name;
    }
    return applications;
}

std::string desktopIcon(std::string_view identifier, int pixels) {
    const std::string file = std::string(identifier) + std::string(Suffix);
    const ObjectPointer<GDesktopAppInfo> entry(g_desktop_app_info_new(file.c_str()));
    GIcon* icon = entry ? g_app_info_get_icon(G_APP_INFO(entry.get())) : nullptr;
    if (!icon)
        return {};
    if (G_IS_FILE_ICON(icon)) {
        const TextPointer path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
        return std::string(orEmpty(path.get()));
    }
    if (!G_IS_THEMED_ICON(icon))
        return {};
    for (const char* const* name = g_themed_icon_get_names(G_THEMED_ICON(icon)); *name; ++name) {
        if (std::string found = IconTheme::current().find(*name, pixels); !found.empty())
            return found;
    }
    return {};
}

} // namespace platform::applist
