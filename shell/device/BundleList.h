#pragma once

#include "platform/runtime/NSBundle.h"
#include "platform/ui/UIImage.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::shell {

/// A settings bundle of the device, not loaded.
struct BundleEntry {
    std::shared_ptr<platform::NSBundle> bundle;
    /// "CFBundleDisplayName", "CFBundleName", or the folder's name.
    std::string name;
    /// Null for none.
    std::shared_ptr<platform::UIImage> icon;
};

/// The device path of the folder of all settings bundles.
inline constexpr const char* preferenceBundlesPath = "/Library/PreferenceBundles";

/// The settings bundles of the device root as they are on disk now: each folder "NAME.bundle" with an
/// Info.plist that names a module and a principal class. Bundles that another user could have changed are
/// left out.
class BundleList {
public:
    /// Reads the folder; loads nothing. Never throws.
    BundleList();

    /// The bundles by name, letter case aside.
    const std::vector<BundleEntry>& entries() const { return entries_; }
    /// Returns one sentence with the reason for each bundle that was left out; of very many only the first,
    /// and the number of the others.
    const std::vector<std::string>& leftOut() const { return leftOut_; }

private:
    void add(const std::string& folderName);
    /// Limits the sentences to as many as a page can show. `unreadFolders` were not read at all.
    void summarise(std::size_t unreadFolders);

    std::vector<BundleEntry> entries_;
    std::vector<std::string> leftOut_;
};

} // namespace wardlock::shell
