#include "linux/applist/IconTheme.h"

#include "linux/applist/GlibPointer.h"
#include "linux/applist/IconFile.h"
#include "linux/applist/KeyFile.h"
#include "platform/files/FileSystem.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace platform::applist {
namespace {

constexpr const char* lastTheme = "hicolor";
constexpr std::size_t mostThemes = 16;
/// Per theme; large ones have hundreds.
constexpr std::size_t mostFolders = 4096;
constexpr std::array<std::string_view, 3> extensions{".png", ".svg", ".jpg"};

/// Where settings files name the icon theme, below a configuration folder.
struct Setting {
    const char* file;
    const char* group;
    const char* key;
};
constexpr std::array settings{
    Setting{"gtk-4.0/settings.ini", "Settings", "gtk-icon-theme-name"},
    Setting{"gtk-3.0/settings.ini", "Settings", "gtk-icon-theme-name"},
    Setting{"kdeglobals", "Icons", "Theme"},
};

std::string textOf(GKeyFile& file, const char* group, const char* key) {
    const TextPointer text(g_key_file_get_string(&file, group, key, nullptr));
    return text ? text.get() : "";
}

std::vector<std::string> listOf(GKeyFile& file, const char* group, const char* key) {
    std::vector<std::string> list;
    const std::string text = textOf(file, group, key);
    const TextsPointer parts(g_strsplit(text.c_str(), ",", -1));
    for (char** part = parts.get(); *part; ++part) {
        if (const char* name = g_strstrip(*part); *name)
            list.emplace_back(name);
    }
    return list;
}

int numberOf(GKeyFile& file, const char* group, const char* key, int otherwise) {
    constexpr int largest = 4096;
    GError* error = nullptr;
    const int number = g_key_file_get_integer(&file, group, key, &error);
    if (!error)
        return std::clamp(number, 1, largest);
    g_error_free(error);
    return otherwise;
}

/// Returns whether the path of a theme's folder stays in the theme; links inside it are the user's own
/// choice.
bool staysInside(const std::string& name) {
    return !name.starts_with('/') && ('/' + name + '/').find("/../") == std::string::npos;
}

/// Returns whether the text is the name of one folder, as a theme's is.
bool isName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

std::string chosenTheme() {
    std::vector<std::string> folders{g_get_user_config_dir()};
    for (const char* const* folder = g_get_system_config_dirs(); *folder; ++folder)
        folders.emplace_back(*folder);
    folders.emplace_back("/etc");
    for (const std::string& folder : folders) {
        for (const Setting& setting : settings) {
            const KeyFilePointer file = readKeyFile(folder + "/" + setting.file);
            if (std::string name = file ? textOf(*file, setting.group, setting.key) : ""; isName(name))
                return name;
        }
    }
    return lastTheme;
}

std::vector<std::string> iconFolders() {
    std::vector<std::string> folders{std::string(g_get_home_dir()) + "/.icons",
                                     std::string(g_get_user_data_dir()) + "/icons"};
    for (const char* const* folder = g_get_system_data_dirs(); *folder; ++folder)
        folders.push_back(std::string(*folder) + "/icons");
    return folders;
}

/// Icons outside any theme.
std::vector<std::string> plainFolders() {
    std::vector<std::string> folders = iconFolders();
    for (const char* const* folder = g_get_system_data_dirs(); *folder; ++folder)
        folders.push_back(std::string(*folder) + "/pixmaps");
    return folders;
}

std::string fileIn(const std::string& folder, const std::string& name) {
    for (const std::string_view extension : extensions) {
        std::string path = folder + "/" + name;
        path.append(extension);
        FileStatus status;
        if (!FileSystem::current().status(path, Links::Follow, status) && IconFile::read(path))
            return path;
    }
    return {};
}

} // namespace

IconTheme& IconTheme::current() {
    static IconTheme theme;
    return theme;
}

IconTheme::IconTheme() {
    addTheme(chosenTheme());
    addTheme(lastTheme);
}

void IconTheme::addTheme(const std::string& name) {
    const bool isKnown = std::find(names_.begin(), names_.end(), name) != names_.end();
    // The last theme ends the search, so it waits until all others have been added.
    if (isKnown || !isName(name) || names_.size() >= mostThemes)
        return;
    names_.push_back(name);
    std::vector<std::string> inherits;
    themes_.push_back(foldersOf(name, inherits));
    for (const std::string& parent : inherits) {
        if (parent != lastTheme)
            addTheme(parent);
    }
}

std::vector<IconTheme::Folder> IconTheme::foldersOf(const std::string& theme,
                                                    std::vector<std::string>& inherits) {
    std::vector<std::string> bases;
    KeyFilePointer index;
    for (const std::string& folder : iconFolders()) {
        FileStatus status;
        const std::string base = folder + "/" + theme;
        if (FileSystem::current().status(base, Links::Follow, status))
            continue;
        bases.push_back(base);
        if (!index)
            index = readKeyFile(base + "/index.theme");
    }
    std::vector<Folder> folders;
    if (!index)
        return folders;
    inherits = listOf(*index, "Icon Theme", "Inherits");
    std::vector<std::string> names = listOf(*index, "Icon Theme", "Directories");
    for (std::string& name : listOf(*index, "Icon Theme", "ScaledDirectories"))
        names.push_back(std::move(name));
    names.resize(std::min(names.size(), mostFolders));
    for (const std::string& name : names) {
        if (!staysInside(name))
            continue;
        const char* group = name.c_str();
        const int scale = numberOf(*index, group, "Scale", 1);
        const int size = numberOf(*index, group, "Size", 48);
        const std::string type = textOf(*index, group, "Type");
        const int threshold =
            type.empty() || type == "Threshold" ? numberOf(*index, group, "Threshold", 2) : 0;
        const bool scalable = type == "Scalable";
        const int least = scalable ? numberOf(*index, group, "MinSize", size) : size - threshold;
        const int most = scalable ? numberOf(*index, group, "MaxSize", size) : size + threshold;
        for (const std::string& base : bases)
            folders.push_back({base + "/" + name, size * scale, least * scale, most * scale, scalable});
    }
    return folders;
}

/// Returns 0 where the folder's icons are meant for the size. Otherwise larger ones come before smaller ones,
/// which would have to be enlarged.
int IconTheme::distance(const Folder& folder, int pixels) {
    constexpr int smaller = 1 << 20;
    if (pixels >= folder.least && pixels <= folder.most)
        return 0;
    if (folder.scalable)
        return 1;
    return folder.pixels > pixels ? folder.pixels - pixels : smaller - folder.pixels;
}

const std::vector<std::vector<IconTheme::Folder>>& IconTheme::orderedFor(int pixels) {
    const auto [found, isNew] = ordered_.try_emplace(pixels, themes_);
    if (isNew) {
        for (std::vector<Folder>& folders : found->second) {
            std::stable_sort(folders.begin(), folders.end(), [pixels](const Folder& a, const Folder& b) {
                return distance(a, pixels) < distance(b, pixels);
            });
        }
    }
    return found->second;
}

std::string IconTheme::find(const std::string& name, int pixels) {
    if (!isName(name))
        return {};
    for (const std::vector<Folder>& theme : orderedFor(pixels)) {
        for (const Folder& folder : theme) {
            if (std::string path = fileIn(folder.path, name); !path.empty())
                return path;
        }
    }
    for (const std::string& folder : plainFolders()) {
        if (std::string path = fileIn(folder, name); !path.empty())
            return path;
    }
    return {};
}

} // namespace platform::applist
