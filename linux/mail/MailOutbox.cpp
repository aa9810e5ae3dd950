#include "linux/mail/MailOutbox.h"

#include "linux/mail/MailFolder.h"
#include "linux/mail/MimeMessage.h"
#include "linux/posix/PrivateFolder.h"
#include "platform/base/Translation.h"
#include "platform/files/DeviceRoot.h"
#include "platform/services/MailService.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace platform::mail {

namespace fs = std::filesystem;

namespace {

/// Returns "20240131-142501", so that a listing of the folder sorts the mails by time.
std::string timeForName(std::time_t time) {
    std::tm parts{};
    gmtime_r(&time, &parts);
    std::array<char, 32> text;
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &parts)};
}

MailOutcome notSaved(const fs::path& folder, std::error_code error) {
    return {MailOutcome::Kind::Failed, filledIn(translated("Mail", "The mail could not be saved in %1: %2."),
                                                {folder.string(), error.message()})};
}

} // namespace

bool MailOutbox::isOpen() {
    const std::string folder = pathOnDevice(mailOutboxPath);
    return posix::isFolderOfOwnUser(folder) && access(folder.c_str(), W_OK | X_OK) == 0;
}

std::optional<MailOutcome> MailOutbox::send(const MailMessage& message, std::string& /*reason*/) {
    const MailOrigin origin = mailOriginOfProcess();
    const std::string bytes = mimeMessage(message, origin);
    const fs::path folder = pathOnDevice(mailOutboxPath);
    const std::string name = timeForName(origin.time) + ' ' + safeFileName(message.subject);
    // Under a temporary name first: a program that watches the folder for mails never sees half of one.
    const std::string temporary = (folder / ('.' + origin.messageId.substr(0, 32))).string();
    if (const std::error_code error = writeNewFile(temporary, bytes))
        return notSaved(folder, error);
    constexpr int mostOfOneName = 1000;
    std::error_code error;
    for (int count = 1; count <= mostOfOneName; ++count) {
        const std::string path =
            (folder / (name + (count == 1 ? "" : ' ' + std::to_string(count)) + ".eml")).string();
        // A link fails where the name is taken; a rename would replace the other mail.
        if (link(temporary.c_str(), path.c_str()) != 0) {
            error = {errno, std::generic_category()};
            if (error != std::errc::file_exists)
                break;
            continue;
        }
        unlink(temporary.c_str());
        return MailOutcome{MailOutcome::Kind::SavedToOutbox,
                           filledIn(translated("Mail", "The mail was saved as %1."), {path})};
    }
    unlink(temporary.c_str());
    return notSaved(folder, error);
}

} // namespace platform::mail
