#include "linux/applist/DesktopFiles.h"

#include "platform/base/Diagnostics.h"
#include "platform/files/FileSystem.h"

#include <glib.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string_view>
#include <utility>

namespace platform::applist {
namespace {

constexpr std::string_view suffix = ".desktop";
constexpr int deepestFolder = 8;
/// Names of files and folders that are read. A large desktop has some hundred entries.
constexpr std::size_t mostNames = 4000;

class Search {
public:
    /// A folder's own entries come before those of the folders in it.
    void search(const std::string& folder, const std::string& prefix, int depth) {
        std::vector<std::string> names;
        if (!isNewFolder(folder) || FileSystem::current().list(folder, names))
            return;
        std::ranges::sort(names);
        std::vector<std::string> others;
        for (const std::string& name : names) {
            if (!countFolder(folder))
                return;
            if (name.size() > suffix.size() && name.ends_with(suffix))
                add(prefix + name.substr(0, name.size() - suffix.size()), folder + '/' + name);
            else if (depth < deepestFolder)
                others.push_back(name);
        }
        for (const std::string& name : others)
            search(folder + '/' + name, prefix + name + '-', depth + 1);
    }

    std::vector<DesktopFile> take() { return std::move(found_); }

private:
    bool countFolder(const std::string& folder) {
        if (++names_ == mostNames + 1)
            diagnose("There are more desktop entries in " + folder +
                     " than a list can show: the others are left out.");
        return names_ <= mostNames;
    }
    /// Links may lead to a folder again.
    bool isNewFolder(const std::string& path) {
        FileStatus status;
        return names_ < mostNames && !FileSystem::current().status(path, Links::Follow, status) &&
               status.kind == FileKind::Folder && folders_.insert({status.device, status.inode}).second;
    }
    void add(std::string identifier, const std::string& path) {
        if (identifiers_.insert(identifier).second)
            found_.push_back({std::move(identifier), path});
    }

    std::vector<DesktopFile> found_;
    std::set<std::string> identifiers_;
    std::set<std::pair<std::uint64_t, std::uint64_t>> folders_;
    std::size_t names_ = 0;
};

} // namespace

std::vector<DesktopFile> desktopFiles() {
    std::vector<std::string> folders{g_get_user_data_dir()};
    for (const char* const* folder = g_get_system_data_dirs(); *folder; ++folder)
        folders.emplace_back(*folder);
    Search search;
    for (const std::string& folder : folders)
        search.search(folder + "/applications", "", 1);
    return search.take();
}

} // namespace platform::applist
