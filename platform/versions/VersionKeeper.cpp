#include "platform/versions/VersionKeeper.h"

#include <algorithm>

namespace platform {

VersionKeeper::VersionKeeper(FileSystem& files, const Versions& versions, std::optional<std::string_view> old,
                             std::string_view content)
    : files_(files), versions_(versions) {
    if (versions_.keep == KeepVersions::Never)
        return;
    if (old)
        old_ = versionDigest(*old);
    content_ = versionDigest(content);
}

/// Returns whether the folder can be used, and lists what is in it. It is created where that is wanted.
bool VersionKeeper::prepare(VersionFolder& folder) {
    VersionFolder::State state = folder.state();
    if (state == VersionFolder::State::Missing && versions_.keep == KeepVersions::Always && !folder.create())
        state = folder.state();
    // Without the list the next number is not known, and the order would be wrong.
    if (state != VersionFolder::State::Usable || folder.listNames(names_))
        return false;
    findYoungest();
    return true;
}

void VersionKeeper::findYoungest() {
    auto last = std::ranges::max_element(names_);
    youngest_ = last == names_.end() ? std::nullopt : Version::ofName(*last);
    if (youngest_ || last == names_.end())
        return;
    // Not a version, though it looks like one.
    std::erase_if(names_, [](const std::string& name) { return !Version::ofName(name); });
    last = std::ranges::max_element(names_);
    youngest_ = last == names_.end() ? std::nullopt : Version::ofName(*last);
}

bool VersionKeeper::add(VersionFolder& folder, const std::string& file, const VersionOrigin& origin,
                        std::uint64_t digest) {
    const std::uint64_t last = youngest_ ? youngest_->number : 0;
    if (last >= largestVersionNumber)
        return false;
    Version version = {.number = last + 1, .time = versionTime(), .origin = origin, .digest = digest};
    // Another process may be removing the withdrawn one by its name.
    if (withdrawn_ == version)
        ++version.time;
    if (folder.add(file, version))
        return false;
    names_.push_back(version.name());
    youngest_ = version;
    return true;
}

void VersionKeeper::addOld(VersionFolder& folder, const FileStatus& old) {
    if (!old_ || (youngest_ && youngest_->digest == *old_))
        return;
    // Writers that raced with each other: the document is an earlier version again. Its process made one
    // change, the earlier version; taking this one back would bring the loser's document.
    std::vector<Version> versions;
    folder.list(versions);
    const std::optional<Version> earlier = folder.find(old, versions);
    const bool known = earlier && earlier->digest == *old_;
    add(folder, folder.document(), {.place = known ? earlier->origin.place : std::string(unknownPlace)},
        *old_);
}

void VersionKeeper::willReplace(const Replacement& replacement) {
    added_.reset();
    folder_.reset();
    if (versions_.keep == KeepVersions::Never)
        return;
    VersionFolder folder(files_, replacement.path);
    if (!prepare(folder))
        return;
    if (replacement.old)
        addOld(folder, *replacement.old);
    folder_.emplace(folder);
    // Equal bytes over a document change nothing. Over damage, or where the document was missing, they do.
    if (old_ == content_ && youngest_ && youngest_->digest == content_)
        return;
    if (add(folder, replacement.temporary, ownVersionOrigin(versions_), content_))
        added_ = youngest_;
}

void VersionKeeper::didNotReplace() {
    if (added_) {
        folder_->remove(*added_);
        withdrawn_ = added_;
    }
    added_.reset();
    folder_.reset();
}

void VersionKeeper::didReplace(const std::string&) {
    if (folder_)
        folder_->prune(names_, versionTime());
}

void VersionKeeper::willRemoveLeftover(const std::string& path, const FileStatus& leftover) {
    VersionFolder folder(files_, path);
    std::vector<Version> versions;
    if (folder.state() != VersionFolder::State::Usable || folder.list(versions))
        return;
    if (const auto never = folder.find(leftover, versions))
        folder.remove(*never);
}

void VersionKeeper::keepCurrent(const std::string& path) {
    VersionFolder folder(files_, path);
    FileStatus status;
    const std::string document = folder.document();
    if (uninterrupted([&] { return files_.status(document, Links::NoFollow, status); }) ||
        status.kind != FileKind::Regular || !prepare(folder))
        return;
    addOld(folder, status);
    folder.prune(names_, versionTime());
}

} // namespace platform
