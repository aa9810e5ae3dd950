#include "linux/applist/BundleIcon.h"

#include "linux/applist/IconFile.h"
#include "platform/files/FileSystem.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace platform::applist {
namespace {

/// Names are without scale, idiom and often without extension.
constexpr std::array<std::string_view, 3> scales{"@3x", "@2x", ""};
constexpr std::array<std::string_view, 3> idioms{"", "~iphone", "~ipad"};
constexpr std::array<std::string_view, 3> extensions{".png", ".svg", ".jpg"};
/// The usual names where Info.plist gives none.
constexpr std::array<std::string_view, 2> usualNames{"Icon", "icon"};

struct Choice {
    std::string path;
    int pixels = 0;
};

/// Sizes above the wanted one are ordered by their distance; sizes below come after all of them. An image
/// that scales fits exactly.
bool isBetter(const Choice& candidate, const Choice& best, int wanted) {
    const auto cost = [wanted](int pixels) {
        if (pixels == 0)
            return 0;
        return pixels >= wanted ? pixels - wanted : std::numeric_limits<int>::max() / 2 - pixels;
    };
    return best.path.empty() || cost(candidate.pixels) < cost(best.pixels);
}

bool isInside(const std::string& path, const std::string& folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

class Search {
public:
    Search(const std::string& folder, int wanted) : given_(folder), wanted_(wanted) {
        // One listing is much faster than a look at every possible name.
        std::vector<std::string> names;
        if (!FileSystem::current().list(folder, names))
            names_.insert(names.begin(), names.end());
    }

    void consider(const std::string& name) {
        std::string path;
        if (!mayExist(name) || !resolveFolder() ||
            FileSystem::current().resolve(folder_ + "/" + name, path) || !isInside(path, folder_))
            return;
        const std::optional<IconFile> icon = IconFile::read(path);
        if (!icon)
            return;
        Choice candidate{std::move(path), icon->pixels};
        if (isBetter(candidate, best_, wanted_))
            best_ = std::move(candidate);
    }

    /// Adds all forms of a name without scale, idiom and extension.
    void considerForms(std::string_view base) {
        if (!formsMayExist(base))
            return;
        for (const std::string_view scale : scales)
            for (const std::string_view idiom : idioms)
                for (const std::string_view extension : extensions)
                    consider(std::string(base).append(scale).append(idiom).append(extension));
    }

    const std::string& best() const { return best_.path; }

private:
    /// Names in folders further down are not listed.
    bool mayExist(const std::string& name) const {
        return names_.contains(name.substr(0, name.find('/'))) || name.starts_with('/') ||
               name.starts_with('.');
    }
    /// Most applications have none of the usual names; composing all forms of a name takes longer than this.
    bool formsMayExist(std::string_view base) const {
        const auto isForm = [base](const std::string& name) { return name.starts_with(base); };
        return base.empty() || base.find('/') != std::string_view::npos || base.starts_with('.') ||
               std::ranges::any_of(names_, isForm);
    }
    bool resolveFolder() { return !folder_.empty() || !FileSystem::current().resolve(given_, folder_); }

    std::string given_;
    std::unordered_set<std::string> names_;
    /// Without links; empty until a name is found.
    std::string folder_;
    int wanted_;
    Choice best_;
};

std::string_view withoutExtension(std::string_view name) {
    for (const std::string_view extension : extensions) {
        if (name.ends_with(extension))
            name.remove_suffix(extension.size());
    }
    return name;
}

} // namespace

std::string bundleIcon(const Application& application, int pixels) {
    Search search(application.folder, pixels);
    for (const std::string& name : application.icons) {
        search.consider(name);
        search.considerForms(withoutExtension(name));
    }
    for (const std::string_view name : usualNames) {
        if (search.best().empty())
            search.considerForms(name);
    }
    return search.best();
}

} // namespace platform::applist
