#include "linux/posix/TrustedUsers.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderTrust.h"
#include "platform/runtime/Module.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace platform {

namespace {

constexpr unsigned writableByGroup = 0020;
constexpr unsigned writableByAll = 0002;
constexpr unsigned sticky = 01000;

enum class Place { File, LastFolder, FolderAbove };

bool isAbove(const std::string& folder, const std::string& path) {
    const std::string start = folder == "/" ? folder : folder + '/';
    return path.size() > start.size() && path.starts_with(start);
}

/// Follows a path through its links and checks everything on the way.
class Walk {
public:
    explicit Walk(std::string path) : rest_(std::move(path)) {}

    /// Returns why not to trust the file that the path leads to; empty when there is no reason.
    std::string toFile() {
        std::string reason = toTheEnd();
        if (reason.empty())
            reason = check(here_, Place::File);
        return reason.empty() ? check(folderOf(here_), Place::LastFolder) : reason;
    }

    /// The same for a folder.
    FolderRisk toFolder() {
        std::string reason = toTheEnd();
        if (reason.empty())
            reason = check(here_, Place::LastFolder);
        return {reason.empty() ? "" : checked_, reason};
    }

private:
    std::string toTheEnd() {
        std::string reason;
        while (reason.empty() && !rest_.empty()) {
            const std::string name = nextName();
            if (name == "..")
                here_ = folderOf(here_);
            else if (!name.empty() && name != ".")
                reason = step(here_ == "/" ? here_ + name : here_ + '/' + name);
        }
        return reason;
    }

    std::string nextName() {
        const std::size_t end = std::min(rest_.find('/'), rest_.size());
        std::string name = rest_.substr(0, end);
        rest_.erase(0, end + 1);
        return name;
    }

    std::string step(const std::string& path) {
        checked_ = path;
        FileStatus status;
        if (std::error_code error = FileSystem::native().status(path, Links::NoFollow, status))
            return path + ": " + error.message();
        if (status.kind == FileKind::Link)
            return follow(path, status);
        here_ = path;
        return rest_.empty() ? "" : check(path, Place::FolderAbove);
    }

    std::string follow(const std::string& link, const FileStatus& status) {
        if (++links_ > longestLinkChain)
            return link + ": too many symbolic links";
        if (!users_.include(status.owner))
            return link + " is a symbolic link of another user";
        std::error_code error;
        const std::string text = std::filesystem::read_symlink(link, error).string();
        if (error)
            return link + ": " + error.message();
        if (text.starts_with('/'))
            here_ = "/";
        rest_ = rest_.empty() ? text : text + '/' + rest_;
        return "";
    }

    std::string check(const std::string& path, Place place) {
        checked_ = path;
        // A user who can change a folder above this library can change the library.
        if (place != Place::File && isAbove(path, library_))
            return "";
        FileStatus status;
        if (std::error_code error = FileSystem::native().status(path, Links::NoFollow, status))
            return path + ": " + error.message();
        if (status.kind != (place == Place::File ? FileKind::Regular : FileKind::Folder))
            return path + ": " + (place == Place::File ? "not a file" : "not a folder");
        if (!users_.include(status.owner))
            return path + " belongs to another user";
        // In a sticky folder no user can replace what belongs to another. A module itself must not be in a
        // folder that all users share.
        if (place == Place::FolderAbove && (status.mode & sticky))
            return "";
        if (status.mode & writableByAll)
            return path + " can be changed by every user";
        if ((status.mode & writableByGroup) && !users_.haveGroupAlone(path, status.group))
            return path + " can be changed by a group of users";
        return "";
    }

    const posix::TrustedUsers users_;
    const std::string library_ = moduleContaining(&writableByAll);
    /// The position of the walk, a path without links, and the rest of the path.
    std::string here_ = "/";
    std::string rest_;
    /// The latest path that was checked.
    std::string checked_;
    int links_ = 0;
};

} // namespace

std::string reasonToDistrust(const std::string& path) {
    return Walk(path).toFile();
}

FolderRisk riskOfFolder(const std::string& path) {
    return Walk(path).toFolder();
}

} // namespace platform
