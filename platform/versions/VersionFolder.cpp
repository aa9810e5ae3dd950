#include "platform/versions/VersionFolder.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <utility>

namespace platform {

namespace {

constexpr std::string_view folderEnding = ".history";
constexpr unsigned privateFolderMode = 0700;
constexpr unsigned rightsOfOthers = 0077;
/// How many versions are compared with a file: writers that raced with each other are few.
constexpr std::size_t mostCompared = 8;

bool isAged(std::string_view time, std::int64_t now) {
    std::int64_t replaced = 0;
    std::from_chars(time.data(), time.data() + time.size(), replaced);
    return now - replaced > VersionFolder::longestAge;
}

/// Returns how many of the oldest versions were replaced too long ago, that is, when the next one was
/// written. A clock that was wrong for a while has dated some too late: a version is not younger than those
/// after it. Orders the names where there are any.
std::size_t countOfAged(std::vector<std::string>& names, std::int64_t now) {
    if (names.size() < 2)
        return 0;
    std::iter_swap(names.begin(), std::ranges::min_element(names));
    const auto earliest =
        std::min_element(names.begin() + 1, names.end(), [](const auto& one, const auto& other) {
            return Version::timeOfName(one) < Version::timeOfName(other);
        });
    if (!isAged(Version::timeOfName(*earliest), now))
        return 0;
    std::ranges::sort(names);
    std::size_t aged = names.size() - 1;
    while (!isAged(Version::timeOfName(names[aged]), now))
        --aged;
    return aged;
}

/// Puts the versions to remove first, and returns how many they are.
std::size_t orderUnwanted(std::vector<std::string>& names, std::int64_t now) {
    const std::size_t surplus = names.size() - std::min(names.size(), VersionFolder::mostVersions);
    const std::size_t unwanted =
        std::min(std::max(surplus, countOfAged(names, now)), VersionFolder::mostRemoved);
    std::ranges::partial_sort(names, names.begin() + static_cast<std::ptrdiff_t>(unwanted));
    return unwanted;
}

} // namespace

VersionFolder::VersionFolder(FileSystem& files, std::string document)
    : files_(files), document_(std::move(document)) {
    FileStatus status;
    // A document that is missing has versions all the same.
    followLinks(files_, document_, status);
    path_ = document_ + std::string(folderEnding);
}

std::string VersionFolder::pathOf(const Version& version) const {
    return path_ + '/' + version.name();
}

VersionFolder::State VersionFolder::state() const {
    FileStatus status;
    const std::error_code error =
        uninterrupted([&] { return files_.status(path_, Links::NoFollow, status); });
    if (error)
        return error == std::errc::no_such_file_or_directory ? State::Missing : State::Unknown;
    if (status.kind != FileKind::Folder)
        return State::NotAFolder;
    if (status.owner != files_.user())
        return State::OfAnotherUser;
    return (status.mode & rightsOfOthers) == 0 ? State::Usable : State::OpenToOthers;
}

std::error_code VersionFolder::create() {
    FileStatus above;
    const std::string folder = folderOf(path_);
    if (std::error_code error = uninterrupted([&] { return files_.status(folder, Links::Follow, above); }))
        return error;
    if (above.owner != files_.user())
        return std::make_error_code(std::errc::operation_not_permitted);
    return uninterrupted([&] { return files_.makeFolder(path_, privateFolderMode); });
}

std::error_code VersionFolder::list(std::vector<Version>& versions) const {
    std::vector<std::string> names;
    if (std::error_code error = listNames(names))
        return error;
    versions.clear();
    for (const std::string& name : names)
        if (auto version = Version::ofName(name))
            versions.push_back(std::move(*version));
    std::ranges::sort(versions, isOlder);
    return {};
}

std::optional<std::string> VersionFolder::read(const Version& version, std::size_t maximum) const {
    std::string bytes;
    const std::string path = pathOf(version);
    if (uninterrupted([&] { return files_.readFile(path, maximum, bytes); }) ||
        versionDigest(bytes) != version.digest)
        return std::nullopt;
    return bytes;
}

std::error_code VersionFolder::add(const std::string& file, const Version& version) {
    const std::string path = pathOf(version);
    return uninterrupted([&] { return files_.link(file, path); });
}

std::error_code VersionFolder::remove(const Version& version) {
    const std::string path = pathOf(version);
    return uninterrupted([&] { return files_.remove(path); });
}

std::optional<Version> VersionFolder::find(const FileStatus& file,
                                           const std::vector<Version>& versions) const {
    const std::size_t first = versions.size() - std::min(versions.size(), mostCompared);
    for (std::size_t i = versions.size(); i-- > first;) {
        FileStatus status;
        const std::string path = pathOf(versions[i]);
        if (!uninterrupted([&] { return files_.status(path, Links::NoFollow, status); }) &&
            status.inode == file.inode && status.device == file.device)
            return versions[i];
    }
    return std::nullopt;
}

std::error_code VersionFolder::listNames(std::vector<std::string>& names) const {
    if (std::error_code error = uninterrupted([&] { return files_.list(path_, names); }))
        return error;
    std::erase_if(names, [](const std::string& name) { return !Version::isLikeName(name); });
    return {};
}

void VersionFolder::prune(std::vector<std::string>& names, std::int64_t now) {
    const auto isVersion = [](const std::string& name) { return Version::ofName(name).has_value(); };
    std::size_t unwanted = orderUnwanted(names, now);
    if (!std::all_of(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(unwanted), isVersion)) {
        std::erase_if(names, std::not_fn(isVersion));
        unwanted = orderUnwanted(names, now);
    }
    for (std::size_t i = 0; i < unwanted; ++i) {
        const std::string path = path_ + '/' + names[i];
        uninterrupted([&] { return files_.remove(path); });
    }
}

} // namespace platform
