#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace wardlock::shell {

/// The folder of the settings bundle, among the device root's preference bundles.
inline constexpr const char* settingsBundleName = "WardlockSettings.bundle";

/// The folders that a device root has, as device paths.
std::span<const char* const> deviceFolders();

/// What a device root lacks is made before the pages are shown: its folders (private to the user), the links
/// to the settings bundle and the application-list module of the running program's installation, and the
/// document of the enforcing half's first start. A preferences document that exists is never touched. Nothing
/// is made in a folder that another user owns or can write to. On the machine's own root ("/") nothing is
/// made: there all this is the package's and the device's business.
class Provision {
public:
    /// Links and folders that cannot be created, folders of other users and an application-list module that
    /// others can change, which the picker then does without, are reported in problems(). `furnish` is run
    /// when all folders stand and before the first start: it may add applications.
    explicit Provision(const std::function<void()>& furnish = {});

    /// One sentence each, for the person; empty when the root is complete.
    const std::vector<std::string>& problems() const { return problems_; }

private:
    void makeWhatIsMissing(const std::function<void()>& furnish);
    // These return whether the folders stand and are the user's own.
    bool makeFolders();
    bool makeFoldersTo(const std::string& devicePath);
    bool makeFolder(const std::string& path);
    void report(std::string problem);
    void link(const std::string& devicePath, const std::string& target);
    void firstStart();
    void lookAtAppList();

    std::vector<std::string> problems_;
};

} // namespace wardlock::shell
