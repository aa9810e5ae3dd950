// The checks of the device root: the root itself, the document, the log.

#include "cli/command/DeviceRootChoice.h"
#include "cli/doctor/CheckResult.h"
#include "cli/io/ShellWord.h"
#include "cli/io/TextWidth.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderTrust.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/services/HostStatus.h"
#include "platform/services/PasscodeLockView.h"
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
        return "from " + std::string(nameOfDeviceRootChoice());
    return platform::deviceRoot() == "/" ? "this machine is the device, since it has /var/mobile"
                                         : "your default, since WARDLOCK_DEVICE_ROOT is not set";
}

std::string howToCreateRoot() {
    return platform::deviceRootIsFromEnvironment()
               ? "Create it: wardlock device init " + shellWord(platform::deviceRoot())
               : "Open Settings once (wardlock settings): it creates what the device root lacks.";
}

/// Returns the first folder of the device root that another user could change.
platform::FolderRisk riskOfRoot(const std::string& folderOfDocument) {
    platform::FolderRisk risk = platform::riskOfFolder(folderOfDocument);
    for (const char* folder : shell::deviceFolders()) {
        const std::string path = platform::pathOnDevice(folder);
        if (!risk && statusOf(path))
            risk = platform::riskOfFolder(path);
    }
    return risk;
}

/// Adds the number of accounts and the enabled one. Returns false when "kAccounts" is not a list.
bool describeAccounts(const platform::Dictionary& document, CheckResult& result) {
    const Value* list = document.find(kAccounts);
    const auto stored = Accounts::of(list);
    if (list && !stored)
        return false;
    const Accounts accounts = stored.value_or(Accounts());
    const std::size_t count = accounts.size();
    result.text += ", " + counted(count, "account");
    result.facts["accounts"] = count;
    result.facts["enabledAccount"] = nullptr;
    const auto enabled = accounts.firstEnabled();
    if (!enabled) {
        result.text += ", none enabled";
        return true;
    }
    const Value* name = accounts.record(*enabled)->find(kAccountName);
    result.text += ", enabled: " + printable(platform::stringValue(name).value_or("without a name"));
    result.facts["enabledAccount"] = *enabled;
    return true;
}

std::string howToRestore(const std::string& path) {
    return "Replace it by the last good version: wardlock restore. Otherwise, the next change in "
           "Settings keeps this file as " +
           path + ".damaged and writes a new document.";
}

/// Returns whether an entry on the keypad can match: the document lacks a passcode, or it is empty or has
/// four digits.
bool passcodeCanBeEntered(const platform::Dictionary& document) {
    const Value* stored = document.find(kPasscode);
    const auto passcode = platform::stringValue(stored);
    return !stored || (passcode && (passcode->empty() ||
                                    platform::SBUIPasscodeLockViewSimple4DigitKeypad::isPasscode(*passcode)));
}

void checkContent(const std::string& path, const std::string& bytes, CheckResult& result) {
    const std::string advice = howToRestore(path);
    std::string written;
    const std::optional<Value> value = platform::propertyListWithData(bytes);
    const platform::Dictionary* document = value ? platform::dictionaryValue(&*value) : nullptr;
    if (!value)
        result.fails(path + " is not a property list", advice);
    else if (!document)
        result.fails(path + " is a property list, but not a dictionary", advice);
    else if (!describeAccounts(*document, result))
        result.fails(path + " has a \"kAccounts\" that is not a list",
                     "Accounts can be neither shown nor created. Restore a version that wardlock history "
                     "lists, or remove the key.");
    else if (!passcodeCanBeEntered(*document))
        result.fails(path + " has a \"kPasscode\" that is not four digits",
                     "No entry matches it, also where Settings asks for it as it opens. Remove it: wardlock "
                     "plist set " +
                         shellWord(path) + " kPasscode string \"\" && wardlock announce kPasscode");
    else if (const std::error_code error = platform::documentWithPropertyList(*value, written))
        result.fails(path + " can be read, but no change can be stored: " + error.message(),
                     "Remove unneeded entries, accounts first, with a property list editor.");
}

} // namespace

CheckResult checkDeviceRoot() {
    CheckResult result("deviceRoot", "Device root");
    const std::string root = platform::deviceRoot();
    const std::string folder = platform::folderOf(documentOnDisk());
    result.facts["path"] = root;
    result.facts["named"] = platform::deviceRootIsFromEnvironment();
    result.text = root + " (" + whyThisRoot() + ")";
    const auto status = statusOf(root);
    if (!status)
        return result.fails(result.text + " does not exist", howToCreateRoot());
    if (status->kind != FileKind::Folder)
        return result.fails(result.text + " is not a folder",
                            "Set " + std::string(nameOfDeviceRootChoice()) + " to a folder.");
    if (!statusOf(folder))
        return result.fails(result.text + " lacks the folder " + folder, howToCreateRoot());
    if (!platform::mayWrite(folder))
        return result.fails(result.text + ": no permission to write to " + folder,
                            "Run Wardlock as the owner of that folder: every change replaces the document "
                            "there.");
    if (const platform::FolderRisk risk = riskOfRoot(folder))
        return result.fails(result.text + ": " + risk.reason,
                            "Another user could read or replace your files there. If you own the folder: "
                            "chmod go-w " +
                                shellWord(risk.path) + "; otherwise, use another device root.");
    return result;
}

CheckResult checkDocument() {
    CheckResult result("document", "Document");
    const std::string path = documentOnDisk();
    result.facts["path"] = path;
    const auto status = statusOf(path);
    if (!status)
        return result.fails(path + " does not exist",
                            "Open Settings, or run wardlock status: both write the default document.");
    std::string bytes;
    const auto read = [&] {
        return platform::FileSystem::current().readFile(path, platform::largestDocument, bytes);
    };
    const std::error_code error = platform::uninterrupted(read);
    if (error == std::errc::file_too_large)
        return result.fails(path + " is larger than " + std::to_string(platform::largestDocument >> 20) +
                                " MiB, the limit for a document",
                            howToRestore(path));
    if (error)
        return result.fails(
            path + " cannot be read: " + error.message(),
            "Run Wardlock as the owner of the document, or give your user permission to read it.");
    result.facts["mode"] = octal(status->mode);
    result.facts["size"] = bytes.size();
    result.text = path + ", " + counted(bytes.size(), "byte") + ", mode " + octal(status->mode);
    checkContent(path, bytes, result);
    if (result.works && (status->mode & accessOfOthers) != 0)
        result.advice.push_back("It contains the passcode, and other users have access: chmod 600 " +
                                shellWord(path));
    if (statusOf(path + ".damaged"))
        result.advice.push_back("A damaged document was kept as " + path +
                                ".damaged: remove it if no settings are missing.");
    return result;
}

CheckResult checkLog() {
    CheckResult result("log", "Log", CheckResult::Need::Optional);
    const std::string path =
        platform::pathOnDevice(platform::stringWithFormat(LogPathFormat, BundleIdentifier));
    const auto status = statusOf(path);
    result.facts["path"] = path;
    result.facts["size"] = status ? Json(status->size) : Json();
    result.text = status ? path + ", " + counted(status->size, "byte") : "nothing has been logged";
    if (status && status->size > largeLog)
        result.advice.push_back("It only grows, and is attached to every support mail: remove it when it is "
                                "no longer needed.");
    return result;
}

} // namespace wardlock::cli
