#include "platform/plist/DocumentFile.h"

#include "platform/base/Diagnostics.h"
#include "platform/files/AtomicWriter.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/versions/VersionKeeper.h"

#include <charconv>
#include <utility>

namespace platform {

namespace {

constexpr int mostDamaged = 9;

/// Returns the name for the bytes of a damaged file; `number` counts the names from 1.
std::string damagedName(const std::string& path, int number) {
    char digit[2] = {};
    std::to_chars(digit, digit + 1, number);
    return number == 1 ? path + ".damaged" : path + ".damaged." + digit;
}

} // namespace

DocumentFile::DocumentFile(FileSystem& files, std::string path, RecentDocument* recent)
    : files_(files), file_(recent ? recent->unchanged(files, path) : nullptr) {
    if (file_) {
        dictionary_ = file_->dictionary;
        state_ = State::Document;
        return;
    }
    const auto file = std::make_shared<RecentDocument::File>();
    file->path = std::move(path);
    file_ = file;
    const auto read = [&] {
        return uninterrupted([&] { return files_.readFile(file->path, largestDocument, file->bytes); });
    };
    std::error_code error = read();
    // A disk or a remote folder may fail once and not again. Taking the document for unreadable would replace
    // it with one that has lost its entries.
    if (error && error != std::errc::no_such_file_or_directory)
        error = read();
    if (error) {
        state_ = stateAfter(error);
        readError_ = error;
        return;
    }
    dictionary_ = dictionaryWithData(file->bytes);
    state_ = dictionary_ ? State::Document : State::Damaged;
    if (!recent || !dictionary_)
        return;
    file->dictionary = *dictionary_;
    recent->remember(file);
}

DocumentFile::State DocumentFile::stateAfter(std::error_code error) {
    if (error == std::errc::no_such_file_or_directory)
        return State::Missing;
    const bool shortOfMeans = error == std::errc::too_many_files_open ||
                              error == std::errc::too_many_files_open_in_system ||
                              error == std::errc::not_enough_memory;
    return shortOfMeans ? State::Unknown : State::Unreadable;
}

WriteResult DocumentFile::replace(const Dictionary& dictionary, Sync sync, const Versions& versions) {
    if (state_ == State::Unknown)
        return {readError_};
    std::string bytes;
    if (std::error_code error = encode(dictionary, bytes))
        return {error};
    if (std::error_code error = keepOldContent(sync))
        return {error};
    return write(bytes, sync, versions);
}

WriteResult DocumentFile::replaceBytes(std::string_view bytes, Sync sync, const Versions& versions) {
    return state_ == State::Unknown ? WriteResult{readError_} : write(bytes, sync, versions);
}

WriteResult DocumentFile::write(std::string_view bytes, Sync sync, const Versions& versions) {
    // The mode that made the old file unreadable would make the new one unreadable too.
    const Attributes attributes = state_ == State::Unreadable ? Attributes::Private : Attributes::OfOldFile;
    VersionKeeper keeper(files_, versions, document(), bytes);
    AtomicWriter writer(files_, &keeper);
    const std::error_code error = writer.write(path(), bytes, sync, attributes);
    return {error, writer.isInPlace()};
}

std::optional<std::string_view> DocumentFile::document() const {
    return state_ == State::Document ? std::optional<std::string_view>(file_->bytes) : std::nullopt;
}

void DocumentFile::keepVersion() {
    if (state_ != State::Document)
        return;
    VersionKeeper keeper(files_, {}, document(), file_->bytes);
    AtomicWriter(files_, &keeper).removeLeftovers(path());
    keeper.keepCurrent(path());
}

std::error_code DocumentFile::encode(const Dictionary& dictionary, std::string& bytes) const {
    const std::error_code error = documentWithPropertyList(dictionary, bytes);
    if (error)
        diagnose(path() + " is left as it is: " + error.message());
    return error;
}

std::error_code DocumentFile::keepOldContent(Sync sync) {
    if (state_ == State::Damaged)
        return copyAside(sync);
    return state_ == State::Unreadable ? linkAside() : std::error_code();
}

std::error_code DocumentFile::copyAside(Sync sync) {
    for (int number = 1; number <= mostDamaged; ++number) {
        std::string kept;
        const std::string name = damagedName(path(), number);
        const std::error_code error =
            uninterrupted([&] { return files_.readFile(name, largestDocument, kept); });
        if (!error && kept == file_->bytes)
            return {};
        if (error == std::errc::no_such_file_or_directory || number == mostDamaged)
            return AtomicWriter(files_).write(name, file_->bytes, sync, Attributes::Private);
    }
    return {};
}

std::error_code DocumentFile::linkAside() {
    std::string file = path();
    FileStatus status;
    if (std::error_code error = followLinks(files_, file, status))
        return error;
    // A folder or a pipe is not replaced, and so needs no other name.
    if (status.kind != FileKind::Regular)
        return std::make_error_code(std::errc::not_supported);
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int number = 1; error == std::errc::file_exists && number <= mostDamaged; ++number)
        error = linkAs(damagedName(path(), number), file, status);
    if (error != std::errc::file_exists)
        return error;
    const std::string last = damagedName(path(), mostDamaged);
    FileStatus occupant;
    if (!uninterrupted([&] { return files_.status(last, Links::NoFollow, occupant); }) &&
        occupant.kind == FileKind::Folder)
        return std::make_error_code(std::errc::is_a_directory);
    error = uninterrupted([&] { return files_.remove(last); });
    return error ? error : linkAs(last, file, status);
}

/// Gives the file another name. It may have that already: what followed failed the last time.
std::error_code DocumentFile::linkAs(const std::string& name, const std::string& file,
                                     const FileStatus& status) {
    const std::error_code error = uninterrupted([&] { return files_.link(file, name); });
    FileStatus named;
    if (error == std::errc::file_exists &&
        !uninterrupted([&] { return files_.status(name, Links::NoFollow, named); }) &&
        named.device == status.device && named.inode == status.inode)
        return {};
    return error;
}

} // namespace platform
