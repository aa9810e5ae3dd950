// The check that a change can be stored: a file of the document's size is written, synced and renamed in its
// folder by the code that replaces the document, and removed.

#include "cli/doctor/CheckResult.h"
#include "cli/io/ShellWord.h"
#include "platform/files/AtomicWriter.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"

#include <algorithm>
#include <cerrno>
#include <random>

namespace wardlock::cli {

namespace {

/// A new document has about this size.
constexpr std::size_t fewestBytes = 4096;

/// What keeps a file from being written, and what helps. `name` is for programs.
struct Reason {
    std::string_view name;
    std::string text;
    std::string advice;
};

Reason reasonOf(std::error_code error, const std::string& folder) {
    const std::string word = shellWord(folder);
    if (error == std::errc::no_space_on_device)
        return {"full", "the disk is full",
                "Free space on that disk: df -h " + word + " shows how much is left."};
    if (error.value() == EDQUOT)
        return {"quota", "your quota of that disk is used up",
                "Remove files of your own there, or have the quota raised: quota -s shows it."};
    if (error == std::errc::read_only_file_system)
        return {"readOnly", "the disk is mounted read-only",
                "Mount it for writing, as root: mount -o remount,rw \"$(findmnt -no TARGET -T " + word +
                    ")\""};
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted)
        return {"notYours", "no permission to write there",
                "Run Wardlock as the owner of that folder: every change replaces the document there."};
    if (error == std::errc::no_such_file_or_directory)
        return {"missing", "the folder does not exist", "See the device root, above."};
    return {"other", error.message(), "Check the disk with the system's log: journalctl -k"};
}

std::string probePath(const std::string& folder) {
    std::random_device source;
    return folder + "/.wardlock-doctor-" + std::to_string(source());
}

std::size_t sizeOfDocument(const std::string& path) {
    platform::FileStatus status;
    const auto ask = [&] {
        return platform::FileSystem::current().status(path, platform::Links::Follow, status);
    };
    return platform::uninterrupted(ask) ? fewestBytes : std::max<std::size_t>(fewestBytes, status.size);
}

/// Returns the folder in which the document is replaced: links of the document are followed.
std::string folderOfDocument(std::string path) {
    platform::FileStatus status;
    platform::followLinks(platform::FileSystem::current(), path, status);
    return platform::folderOf(path);
}

} // namespace

CheckResult checkStorage() {
    CheckResult result("storage", "Storage");
    const std::string document = platform::pathOnDevice(documentPath(BundleIdentifier));
    const std::string folder = folderOfDocument(document);
    const std::size_t size = sizeOfDocument(document);
    const std::string probe = probePath(folder);
    result.facts["path"] = folder;
    result.facts["reason"] = nullptr;
    result.text = "changes can be stored in " + folder;
    const std::error_code error = platform::AtomicWriter().write(
        probe, std::string(size, '\n'), platform::Sync::Full, platform::Attributes::Private);
    // After a failed sync the file may be in place.
    platform::FileSystem::current().remove(probe);
    if (!error)
        return result;
    const Reason reason = reasonOf(error, folder);
    result.facts["reason"] = reason.name;
    return result.fails("no change can be stored in " + folder + ": " + reason.text, reason.advice);
}

} // namespace wardlock::cli
