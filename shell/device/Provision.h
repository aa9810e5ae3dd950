#pragma once

#include <functional>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace wardlock::shell {

/// The folder of the settings bundle, among the device root's preference bundles.
inline constexpr const char* settingsBundleName = "WardlockSettings.bundle";

/// Returns the folders that a device root has, as device paths.
std::span<const char* const> deviceFolders();

/// Creates what a device root lacks before the pages are shown:
/// - its folders, private to the user;
/// - the links to the settings bundle and the application-list module of the running program's installation;
/// - the document of the enforcing half's first start, only where no document exists.
///
/// Nothing is created in a folder that another user owns or can write to. Nothing is created on the machine's
/// own root ("/"): there the package and the device do all of this.
class Provision {
public:
    /// Reports in problems(): links and folders that cannot be created, a folder of the document that cannot
    /// be written to, folders of other users, and an application-list module that others can change, which
    /// the picker then does without. `furnish` is run when all folders exist and before the first start: it
    /// may add applications.
    explicit Provision(const std::function<void()>& furnish = {});

    /// One sentence for each problem, for the user; empty when the root is complete. What has failed for the
    /// same reason is one problem.
    const std::vector<std::string>& problems() const { return problems_; }

private:
    void makeWhatIsMissing(const std::function<void()>& furnish);
    // These return whether the folders exist and are the user's own.
    bool makeFolders();
    bool makeFoldersTo(const std::string& devicePath);
    bool makeFolder(const std::string& path);
    void report(std::string problem);
    void reportFailure(const std::string& what, std::error_code error);
    void link(const std::string& devicePath, const std::string& target);
    void firstStart();
    void tryWriting();
    void lookAtAppList();

    std::vector<std::string> problems_;
};

} // namespace wardlock::shell
