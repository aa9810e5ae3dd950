#pragma once

#include "platform/base/Export.h"
#include "platform/files/FileSystem.h"
#include "platform/versions/Version.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// The folder beside a document in which its versions are kept: "NAME.history", of this user and for this
/// user alone. Each version is a hard link, so that keeping one copies and synchronises nothing.
///
/// - The youngest version is usually the document itself, under a second name. A program that writes into the
///   document in place changes both; then the version's digest does not match, and the version does not
///   count. All programs of this project replace the document.
/// - A link has the mode and the owner of the document it was. The folder keeps other users out.
/// - Files of other names are not looked at and not removed.
///
/// The document's path is one of this machine; links in its last component are followed. Not synchronised
/// between threads; several processes may use one folder at a time, without a lock.
class WARDLOCK_API VersionFolder {
public:
    /// At most this many versions are kept, and none that was replaced longer ago. The dates are those of
    /// versions that confirm each other: where the clock was wrong, a version is kept for longer.
    static constexpr std::size_t mostVersions = 200;
    static constexpr std::int64_t longestAge = std::int64_t{90} * 24 * 60 * 60 * 1000;
    /// One pruning removes no more, so that a write's time is bounded whatever is in the folder.
    static constexpr std::size_t mostRemoved = 64;

    enum class State {
        Usable,
        Missing,
        /// A symbolic link, or another kind of file.
        NotAFolder,
        OfAnotherUser,
        /// Other users may look into it or change it.
        OpenToOthers,
        /// The file system reports an error for it.
        Unknown
    };

    VersionFolder(FileSystem& files, std::string document);

    /// Where the versions are.
    const std::string& path() const { return path_; }
    /// The document's file, behind its links.
    const std::string& document() const { return document_; }

    /// Nothing is read from a folder that is not usable, and nothing is written into it.
    State state() const;
    /// Creates the missing folder, unless the document's folder belongs to another user: a folder of root
    /// there would keep that user from keeping versions.
    std::error_code create();

    /// Lists the versions from the oldest to the youngest.
    std::error_code list(std::vector<Version>& versions) const;
    /// Reads a version of at most `maximum` bytes; nothing where it is gone, or its content is not the one
    /// that was kept.
    std::optional<std::string> read(const Version& version, std::size_t maximum) const;
    /// Gives a file the version's name as a second one.
    std::error_code add(const std::string& file, const Version& version);
    std::error_code remove(const Version& version);
    /// Returns the version that is this very file, searched among the youngest few.
    std::optional<Version> find(const FileStatus& file, const std::vector<Version>& versions) const;

    /// Lists the versions' names in no order, for every write, which needs little of them; a name may be like
    /// a version's only.
    std::error_code listNames(std::vector<std::string>& names) const;
    /// Removes what is beyond the bounds, from the oldest on; changes the order of `names`. The youngest
    /// version stays in any case.
    void prune(std::vector<std::string>& names, std::int64_t now);

private:
    std::string pathOf(const Version& version) const;

    FileSystem& files_;
    std::string document_;
    std::string path_;
};

} // namespace platform
