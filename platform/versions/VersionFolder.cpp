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

constexpr std::int64_t day = std::int64_t{24} * 60 * 60 * 1000;
/// The clock of a machine that has lost the time starts at 1970, or when the machine was built. Versions are
/// kept since September 2020.
constexpr std::int64_t firstTime = 1'600'000'000'000;
/// How much of a pause counts before a version of another day confirms it.
constexpr std::int64_t longestPause = 30 * day;

std::int64_t timeOf(const std::string& name) {
    const std::string_view digits = Version::timeOfName(name);
    std::int64_t time = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), time);
    return time;
}

/// Returns whether a version can have been written at a time.
bool isPossible(std::int64_t time, std::int64_t now) {
    return time >= firstTime && time <= now;
}

/// Returns the time that counts as now: a clock that is ahead for a day cannot make everything aged.
std::int64_t confirmedNow(const std::vector<std::string>& names, std::int64_t now) {
    std::int64_t confirmed = 0;
    for (const std::string& name : names)
        if (const std::int64_t time = timeOf(name); isPossible(time, now - day))
            confirmed = std::max(confirmed, time);
    return std::min(now, confirmed + longestPause);
}

/// Returns when the versions were written, from the oldest to the youngest. The clock may have been wrong:
/// - An impossible time becomes the next possible one, or now.
/// - A time before that of an earlier version becomes that one.
/// So no version gets an earlier time than it has, as long as one version before it has a right one.
std::vector<std::int64_t> likelyTimes(const std::vector<std::string>& names, std::int64_t now) {
    std::vector<std::int64_t> times;
    times.reserve(names.size());
    for (const std::string& name : names)
        times.push_back(timeOf(name));
    std::int64_t next = now;
    for (std::size_t i = times.size(); i-- > 0; next = times[i])
        if (!isPossible(times[i], now))
            times[i] = next;
    for (std::size_t i = 1; i < times.size(); ++i)
        times[i] = std::max(times[i], times[i - 1]);
    return times;
}

/// Returns how many of the oldest versions were replaced too long ago, that is, when the next one was
/// written. Orders the names where there may be any.
std::size_t countOfAged(std::vector<std::string>& names, std::int64_t now) {
    const std::int64_t earliest = confirmedNow(names, now) - VersionFolder::longestAge;
    const auto isEarly = [&](const std::string& name) {
        const std::int64_t time = timeOf(name);
        return time < earliest && isPossible(time, now);
    };
    if (std::ranges::none_of(names, isEarly))
        return 0;
    std::ranges::sort(names);
    const std::vector<std::int64_t> times = likelyTimes(names, now);
    std::size_t aged = 0;
    while (aged + 1 < times.size() && times[aged + 1] < earliest)
        ++aged;
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
