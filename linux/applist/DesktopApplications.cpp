#include "linux/applist/DesktopApplications.h"

#include "linux/applist/GlibPointer.h"
#include "linux/applist/IconTheme.h"
#include "platform/foundation/Utf8.h"

#include <gio/gdesktopappinfo.h>

#include <algorithm>

namespace platform::applist {
namespace {

constexpr std::string_view Suffix = ".desktop";
constexpr std::size_t LongestText = 1024;

/// Takes the list with all that is in it.
std::vector<ObjectPointer<GAppInfo>> allEntries() {
    std::vector<ObjectPointer<GAppInfo>> entries;
    GList* list = g_app_info_get_all();
    for (GList* item = list; item; item = item->next)
        entries.emplace_back(G_APP_INFO(item->data));
    g_list_free(list);
    return entries;
}

std::string_view orEmpty(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

} // namespace

std::vector<Application> desktopApplications() {
    std::vector<Application> applications;
    for (const auto& entry : allEntries()) {
        std::string_view identifier = orEmpty(g_app_info_get_id(entry.get()));
        const std::string_view name = orEmpty(g_app_info_get_display_name(entry.get()));
        if (identifier.ends_with(Suffix))
            identifier.remove_suffix(Suffix.size());
        const bool isOfLength =
            !identifier.empty() && std::max(identifier.size(), name.size()) <= LongestText;
        if (!isOfLength || !g_app_info_should_show(entry.get()) || !isValidUtf8(identifier) ||
            !isValidUtf8(name))
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
