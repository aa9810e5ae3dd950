// What the doctor finds in the device root: the root itself, the document, the log.

#include "cli/doctor/Finding.h"
#include "cli/io/ShellWord.h"
#include "cli/io/TextWidth.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderTrust.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/services/HostStatus.h"
#include "platform/text/Format.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "shell/device/Provision.h"

#include <optional>

namespace wardlock::cli {

namespace {

using platform::FileKind;
using platform::FileStatus;
using platform::Value;

constexpr unsigned accessOfOthers = 0077;
constexpr std::uint64_t largeLog = std::uint64_t(1024) * 1024;

std::optional<FileStatus> statusOf(const std::string& path) {
    FileStatus status;
    const auto ask = [&] {
        return platform::FileSystem::current().status(path, platform::Links::Follow, status);
    };
    return platform::uninterrupted(ask) ? std::nullopt : std::optional(status);
}

std::string documentOnDisk() {
    return platform::pathOnDevice(documentPath(BundleIdentifier));
}

std::string octal(unsigned mode) {
    std::string text;
    for (int shift = 6; shift >= 0; shift -= 3)
        text += static_cast<char>('0' + (mode >> shift & 7));
    return text;
}

std::string counted(std::uint64_t count, std::string_view what) {
    return std::to_string(count) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

std::string whyThisRoot() {
    if (platform::deviceRootIsFromEnvironment())
        return "named by WARDLOCK_DEVICE_ROOT";
    return platform::deviceRoot() == "/" ? "this machine is the device: it has /var/mobile"
                                         : "your own: WARDLOCK_DEVICE_ROOT names none";
}

std::string howToMakeRoot() {
    return platform::deviceRootIsFromEnvironment()
               ? "Make it with: wardlock device init \"$WARDLOCK_DEVICE_ROOT\""
               : "Open Settings once (wardlock settings): it makes what the device root lacks.";
}

/// The first of its folders that another user could change.
platform::FolderDoubt doubtOfRoot(const std::string& folderOfDocument) {
    platform::FolderDoubt doubt = platform::doubtOfFolder(folderOfDocument);
    for (const char* folder : shell::deviceFolders()) {
        const std::string path = platform::pathOnDevice(folder);
        if (!doubt && statusOf(path))
            doubt = platform::doubtOfFolder(path);
    }
    return doubt;
}

/// The accounts, and which one is enabled. False when the list is of another kind.
bool describeAccounts(const platform::Dictionary& document, Finding& finding) {
    const Value* list = document.find(kAccounts);
    const auto stored = Accounts::of(list);
    if (list && !stored)
        return false;
    const Accounts accounts = stored.value_or(Accounts());
    const std::size_t count = accounts.size();
    finding.text += ", " + counted(count, "account");
    finding.facts["accounts"] = count;
    finding.facts["enabledAccount"] = nullptr;
    const auto enabled = accounts.firstEnabled();
    if (!enabled) {
        finding.text += ", none enabled";
        return true;
    }
    const Value* name = accounts.record(*enabled)->find(kAccountName);
    finding.text += ", enabled: " + printable(platform::stringValue(name).value_or("without a name"));
    finding.facts["enabledAccount"] = *enabled;
    return true;
}

std::string howToKeep(const std::string& path) {
    return "Put a copy in its place before anything changes the settings: the next change keeps this file "
           "as " +
           path + ".damaged and starts anew.";
}

void judgeContent(const std::string& path, const std::string& bytes, Finding& finding) {
    const std::string keep = howToKeep(path);
    std::string written;
    const std::optional<Value> value = platform::propertyListWithData(bytes);
    const platform::Dictionary* document = value ? platform::dictionaryValue(&*value) : nullptr;
    if (!value)
        finding.fails(path + " is not a property list", keep);
    else if (!document)
        finding.fails(path + " is a property list, but no dictionary", keep);
    else if (!describeAccounts(*document, finding))
        finding.fails(path + " has a \"kAccounts\" that is no list",
                      "No account can be seen or made. Put a copy of the document in its place, or remove "
                      "the key.");
    else if (const std::error_code error = platform::documentWithPropertyList(*value, written))
        finding.fails(path + " can be read, but no change can be stored: " + error.message(),
                      "Remove what is not needed, accounts first, with a program that edits property lists.");
}

} // namespace

Finding lookAtDeviceRoot() {
    Finding finding("deviceRoot", "Device root");
    const std::string root = platform::deviceRoot();
    const std::string folder = platform::folderOf(documentOnDisk());
    finding.facts["path"] = root;
    finding.facts["named"] = platform::deviceRootIsFromEnvironment();
    finding.text = root + " (" + whyThisRoot() + ")";
    const auto status = statusOf(root);
    if (!status)
        return finding.fails(finding.text + " is not there", howToMakeRoot());
    if (status->kind != FileKind::Folder)
        return finding.fails(finding.text + " is no folder", "Name a folder in WARDLOCK_DEVICE_ROOT.");
    if (!statusOf(folder))
        return finding.fails(finding.text + " lacks the folder " + folder, howToMakeRoot());
    if (!platform::mayWrite(folder))
        return finding.fails(finding.text + ": you may not write to " + folder,
                             "Become the user that folder belongs to: every change replaces the document "
                             "there.");
    if (const platform::FolderDoubt doubt = doubtOfRoot(folder))
        return finding.fails(finding.text + ": " + doubt.reason,
                             "Another user could put files of their own there, and read or replace yours. "
                             "Where the folder is yours: chmod go-w " +
                                 shellWord(doubt.path) + "; else use another device root.");
    return finding;
}

Finding lookAtDocument() {
    Finding finding("document", "Document");
    const std::string path = documentOnDisk();
    finding.facts["path"] = path;
    const auto status = statusOf(path);
    if (!status)
        return finding.fails(path + " is not there",
                             "Open Settings, or run: wardlock status. Either writes the default document.");
    std::string bytes;
    const auto read = [&] {
        return platform::FileSystem::current().readFile(path, platform::largestDocument, bytes);
    };
    const std::error_code error = platform::uninterrupted(read);
    if (error == std::errc::file_too_large)
        return finding.fails(path + " is larger than " + std::to_string(platform::largestDocument >> 20) +
                                 " MiB, the most that a document may have",
                             howToKeep(path));
    if (error)
        return finding.fails(path + " cannot be read: " + error.message(),
                             "Become the user it belongs to, or give this user the right to read it.");
    finding.facts["mode"] = octal(status->mode);
    finding.facts["size"] = bytes.size();
    finding.text = path + ", " + counted(bytes.size(), "byte") + ", mode " + octal(status->mode);
    judgeContent(path, bytes, finding);
    if (finding.works && (status->mode & accessOfOthers) != 0)
        finding.advice.push_back("It holds the passcode, and others may use it: chmod 600 " +
                                 shellWord(path));
    if (statusOf(path + ".damaged"))
        finding.advice.push_back("A damaged document was kept as " + path +
                                 ".damaged: remove it when nobody misses anything.");
    return finding;
}

Finding lookAtLog() {
    Finding finding("log", "Log", Finding::Need::Optional);
    const std::string path =
        platform::pathOnDevice(platform::stringWithFormat(LogPathFormat, BundleIdentifier));
    const auto status = statusOf(path);
    finding.facts["path"] = path;
    finding.facts["size"] = status ? Json(status->size) : Json();
    finding.text = status ? path + ", " + counted(status->size, "byte") : "nothing has been logged";
    if (status && status->size > largeLog)
        finding.advice.push_back("It only grows, and goes with every support mail: remove it when nobody "
                                 "needs it.");
    return finding;
}

} // namespace wardlock::cli
