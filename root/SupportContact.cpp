// The root page's contact with the maker: the profile and a ready-made support mail.

#include "platform/base/Diagnostics.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/services/DeviceInformation.h"
#include "platform/text/Format.h"
#include "platform/ui/UIApplication.h"
#include "root/Maker.h"
#include "root/SettingsListController.h"
#include "settings/Constants.h"

#include <cstddef>
#include <optional>

namespace wardlock {

using platform::MFMailComposeViewController;
using platform::stringWithFormat;

namespace {

constexpr const char* productName = "Wardlock";
constexpr const char* subjectFormat = "Wardlock -- %@(%@)";
constexpr const char* bodyFormat =
    "Application: %@\nDevice: %@\nFirmware: %@\n\nComments:\n%@\n\nReproduce:\n%@";
constexpr const char* packageListPath = "/tmp/dpkgl.log";
// Mail servers accept no more.
constexpr std::size_t largestAttachment = std::size_t{64} << 20;

std::optional<std::string> contentsOfFile(std::string_view devicePath) {
    auto& files = platform::FileSystem::current();
    const auto path = platform::pathOnDevice(devicePath);
    std::string contents;
    const std::error_code error =
        platform::uninterrupted([&] { return files.readFile(path, largestAttachment, contents); });
    if (error == std::errc::file_too_large)
        platform::diagnose(path + " is not attached: it is too large for a mail.");
    return error ? std::nullopt : std::optional(std::move(contents));
}

void attach(MFMailComposeViewController& composer, std::string_view devicePath, std::string fileName) {
    if (auto contents = contentsOfFile(devicePath))
        composer.addAttachmentData(std::move(*contents), "text/plain", std::move(fileName));
}

} // namespace

void SettingsListController::openTwitter(platform::PSSpecifier& /*specifier*/) {
    platform::UIApplication::sharedApplication().openURL(profileURL);
}

void SettingsListController::openEmail(platform::PSSpecifier& /*specifier*/) {
    if (!MFMailComposeViewController::canSendMail())
        return;
    auto& device = platform::DeviceInformation::current();
    const auto machine = device.machine();
    const auto version = device.systemVersion();

    const auto composer = std::make_shared<MFMailComposeViewController>();
    composer->setMailComposeDelegate(self(this));
    composer->setToRecipients({std::string(supportAddress)});
    composer->setSubject(stringWithFormat(subjectFormat, machine, version));
    composer->setMessageBody(stringWithFormat(bodyFormat, productName, machine, version,
                                              "Please describe in detail what's wrong",
                                              "How can I reproduce this issue?"),
                             false);
    attach(*composer, stringWithFormat(LogPathFormat, BundleIdentifier), "log");
    attach(*composer, packageListPath, "dpkgl.log");
    presentViewController(composer, true);
}

void SettingsListController::mailComposeControllerDidFinishWithResultError(
    MFMailComposeViewController& controller, platform::MFMailComposeResult /*result*/,
    const std::string& /*error*/) {
    controller.dismissViewControllerAnimated(true);
}

} // namespace wardlock
