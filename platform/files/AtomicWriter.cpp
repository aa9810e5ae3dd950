#include "platform/files/AtomicWriter.h"

#include <atomic>
#include <charconv>
#include <cstdint>
#include <random>
#include <vector>

namespace platform {

namespace {

constexpr unsigned privateMode = 0600;
// Only several processes that write all the time in one folder, each removing the others' temporaries, ever
// need more than one attempt. Where a name is always taken or a temporary always vanishes, the cause is
// permanent.
constexpr int attempts = 64;

// ".NAME.0123456789abcdef.wardlock-new"
constexpr std::string_view temporaryEnding = ".wardlock-new";
constexpr std::size_t numberDigits = 16;
constexpr std::size_t longestNamePart =
    180; // of a file's name in its temporary's, which has to fit 255 bytes

/// The error of a temporary's own writer when another process took the temporary for a leftover. That happens
/// between its creation and its lock, or between its closing and its renaming. No other call returns it.
std::error_code takenForStale() {
    return std::make_error_code(std::errc::operation_canceled);
}

/// Returns whether the error means that an attribute cannot be kept: the file system has no such attribute,
/// or the right is missing. Any other error is the disk's, and may be gone the next time.
bool isRefusal(std::error_code error) {
    return error == std::errc::operation_not_permitted || error == std::errc::permission_denied ||
           error == std::errc::not_supported || error == std::errc::function_not_supported ||
           // The owner's number is not mapped in this container.
           error == std::errc::invalid_argument || error == std::errc::value_too_large;
}

constexpr unsigned groupRights = 0070;

/// Returns the mode with no rights of the group but those of all others.
unsigned withoutGroup(unsigned mode) {
    return (mode & ~groupRights) | (mode & (mode & 0007) << 3);
}

std::uint64_t randomNumber() {
    std::random_device source;
    return std::uint64_t(source()) << 32 | source();
}

std::atomic<std::uint64_t>& nextNumber() {
    static std::atomic<std::uint64_t> next = randomNumber();
    return next;
}

std::string temporaryName(const std::string& path) {
    const std::uint64_t number = nextNumber().fetch_add(0x9e3779b97f4a7c15);
    char text[numberDigits];
    const char* end = std::to_chars(text, text + numberDigits, number, 16).ptr;
    const std::string_view digits(text, static_cast<std::size_t>(end - text));
    const std::string name = path.substr(path.rfind('/') + 1, longestNamePart);
    std::string result = "." + name + "." + std::string(numberDigits - digits.size(), '0');
    return result.append(digits).append(temporaryEnding);
}

bool isTemporaryName(std::string_view name) {
    if (!name.starts_with('.') || !name.ends_with(temporaryEnding))
        return false;
    name.remove_suffix(temporaryEnding.size());
    if (name.size() < numberDigits + 2 || name[name.size() - numberDigits - 1] != '.')
        return false;
    return name.find_first_not_of("0123456789abcdef", name.size() - numberDigits) == std::string_view::npos;
}

/// Returns whether a temporary is that of a file, both by their paths.
bool isTemporaryOf(std::string_view temporary, const std::string& path) {
    temporary.remove_prefix(temporary.rfind('/') + 1);
    const std::string name = "." + path.substr(path.rfind('/') + 1, longestNamePart) + ".";
    return temporary.starts_with(name) &&
           temporary.size() == name.size() + numberDigits + temporaryEnding.size();
}

std::string inFolder(const std::string& folder, const std::string& name) {
    return folder.ends_with('/') ? folder + name : folder + '/' + name;
}

} // namespace

std::error_code AtomicWriter::write(const std::string& path, std::string_view bytes, Sync sync,
                                    Attributes attributes) {
    Target target;
    inPlace_ = false;
    if (std::error_code error = find(path, target))
        return error;
    if (attributes == Attributes::Private)
        target.old.reset();
    removeStale(target);
    std::error_code error = attempt(target, bytes, sync);
    for (int more = attempts - 1; error == takenForStale() && more > 0; --more)
        error = attempt(target, bytes, sync);
    if (error)
        return error;
    inPlace_ = true;
    if (sync == Sync::Full)
        error = uninterrupted([&] { return files_.syncFolder(folderOf(target.path)); });
    if (observer_)
        observer_->didReplace(target.path);
    return error;
}

void AtomicWriter::removeLeftovers(const std::string& path) {
    Target target;
    if (!find(path, target))
        removeStale(target);
}

std::error_code AtomicWriter::find(const std::string& path, Target& target) {
    target.path = path;
    FileStatus status;
    const std::error_code error = followLinks(files_, target.path, status);
    if (error == std::errc::no_such_file_or_directory)
        return {};
    if (error)
        return error;
    if (status.kind == FileKind::Folder)
        return std::make_error_code(std::errc::is_a_directory);
    if (status.kind != FileKind::Regular)
        return std::make_error_code(std::errc::not_supported);
    target.old = status;
    return {};
}

void AtomicWriter::removeStale(const Target& target) {
    std::vector<std::string> names;
    const std::string folder = folderOf(target.path);
    if (uninterrupted([&] { return files_.list(folder, names); }))
        return;
    for (const std::string& name : names)
        if (isTemporaryName(name))
            removeIfStale(inFolder(folder, name), target);
}

void AtomicWriter::removeIfStale(const std::string& path, const Target& target) {
    FileHandle file = noFile;
    if (uninterrupted([&] { return files_.open(path, file); }))
        return;
    FileStatus leftover;
    if (!uninterrupted([&] { return files_.lock(file); }) &&
        !uninterrupted([&] { return files_.status(file, leftover); })) {
        if (leftover.links > 1)
            removeNamed(path, target, leftover);
        else
            uninterrupted([&] { return files_.remove(path); });
    }
    files_.close(file);
}

/// Removes a temporary that has a second name, unless it is another file's.
void AtomicWriter::removeNamed(const std::string& path, const Target& target, const FileStatus& leftover) {
    if (!observer_ || !isTemporaryOf(path, target.path))
        return;
    // Under a new name it can no longer get the file's, and a kill before the end leaves a leftover again.
    const std::string taken = inFolder(folderOf(target.path), temporaryName(target.path));
    if (uninterrupted([&] { return files_.rename(path, taken); }))
        return;
    // The open handle keeps the file's number from being given to another file.
    observer_->willRemoveLeftover(target.path, leftover);
    uninterrupted([&] { return files_.remove(taken); });
}

std::error_code AtomicWriter::createTemporary(const Target& target, std::string& path, FileHandle& file) {
    std::error_code error;
    for (int left = attempts; left > 0; --left) {
        path = inFolder(folderOf(target.path), temporaryName(target.path));
        error = uninterrupted([&] { return files_.create(path, privateMode, file); });
        if (error != std::errc::file_exists)
            return error;
        // A forked child draws the same numbers as its parent.
        nextNumber() = randomNumber();
    }
    return error;
}

std::error_code AtomicWriter::attempt(const Target& target, std::string_view bytes, Sync sync) {
    std::string temporary;
    FileHandle file = noFile;
    if (std::error_code error = createTemporary(target, temporary, file))
        return error;
    std::error_code error = fill(file, target, bytes, sync);
    // Closed before it gets the document's name: the lock belongs to the temporary alone.
    const std::error_code closed = files_.close(file);
    if (!error)
        error = closed;
    if (!error)
        error = rename(temporary, target);
    if (error)
        uninterrupted([&] { return files_.remove(temporary); });
    return error;
}

std::error_code AtomicWriter::rename(const std::string& temporary, const Target& target) {
    if (observer_)
        observer_->willReplace({target.path, target.old, temporary});
    const std::error_code error = uninterrupted([&] { return files_.rename(temporary, target.path); });
    if (error && observer_)
        observer_->didNotReplace();
    return error == std::errc::no_such_file_or_directory ? takenForStale() : error;
}

std::error_code AtomicWriter::fill(FileHandle file, const Target& target, std::string_view bytes, Sync sync) {
    // A file system without locks refuses them to a process that looks for leftovers as well.
    if (uninterrupted([&] { return files_.lock(file); }) == std::errc::operation_would_block)
        return takenForStale();
    FileStatus created;
    if (std::error_code error = uninterrupted([&] { return files_.status(file, created); }))
        return error;
    if (created.links == 0)
        return takenForStale();
    if (std::error_code error = writeAll(files_, file, bytes))
        return error;
    if (std::error_code error = keepAttributes(file, created, target))
        return error;
    return sync == Sync::None ? std::error_code() : uninterrupted([&] { return files_.sync(file, sync); });
}

std::error_code AtomicWriter::keepAttributes(FileHandle file, const FileStatus& created,
                                             const Target& target) {
    // Set for a new file too: the creation mask may have removed more than it should.
    unsigned mode = privateMode;
    if (target.old) {
        if (std::error_code error = keepOwner(file, created, *target.old, mode))
            return error;
        // Before the mode: the file is private until all its rights are those of the old one.
        if (std::error_code error = keepAccessList(file, target, mode))
            return error;
    }
    if (mode == created.mode)
        return {};
    const std::error_code error = uninterrupted([&] { return files_.setMode(file, mode); });
    return isRefusal(error) ? std::error_code() : error;
}

std::error_code AtomicWriter::keepOwner(FileHandle file, const FileStatus& created, const FileStatus& old,
                                        unsigned& mode) {
    mode = old.mode;
    if (created.owner == old.owner && created.group == old.group)
        return {};
    std::error_code error = uninterrupted([&] { return files_.setOwner(file, old.owner, old.group); });
    if (!isRefusal(error))
        return error;
    // Set-id bits would give the rights of another user than before.
    mode &= 0777;
    if (created.group == old.group)
        return {};
    error = uninterrupted([&] { return files_.setGroup(file, old.group); });
    if (!isRefusal(error))
        return error;
    mode = withoutGroup(mode);
    return {};
}

std::error_code AtomicWriter::keepAccessList(FileHandle file, const Target& target, unsigned& mode) {
    // Of a file with a list, the group's bits of the mode are what the list can give at most. The list is not
    // kept where they are none, or where the file gets another group.
    const unsigned most = mode & groupRights;
    if (most == 0 || most != (target.old->mode & groupRights))
        return {};
    const std::error_code error = uninterrupted([&] { return files_.copyAccessList(target.path, file); });
    if (!isRefusal(error))
        return error;
    mode = withoutGroup(mode);
    return {};
}

} // namespace platform
