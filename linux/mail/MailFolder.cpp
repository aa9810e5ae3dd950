#include "linux/mail/MailFolder.h"

#include "linux/mail/MailHeader.h"
#include "linux/posix/FileDescriptor.h"
#include "linux/posix/LastError.h"
#include "linux/posix/PosixFileSystem.h"
#include "linux/posix/PrivateFolder.h"
#include "platform/base/Translation.h"
#include "platform/base/Utf8.h"
#include "platform/files/HomeFolder.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace platform::mail {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestName = 100;
constexpr std::chrono::hours keptFor{24};
constexpr std::string_view folderName = "mail.";

/// In the user's cache: the desktop's own programs may read it, other users may not.
fs::path parentFolder() {
    if (const char* cache = std::getenv("XDG_CACHE_HOME"); cache && *cache == '/')
        return fs::path(cache) / "wardlock";
    if (const char* home = std::getenv("HOME"); home && *home == '/')
        return fs::path(home) / ".cache/wardlock";
    return fs::path(homeFolderOfUser().value_or("/nonexistent")) / ".cache/wardlock";
}

void removeOldFolders(const fs::path& parent) {
    std::error_code error;
    const auto limit = fs::file_time_type::clock::now() - keptFor;
    for (fs::directory_iterator it(parent, error), end; !error && it != end; it.increment(error)) {
        std::error_code ignored;
        if (it->path().filename().string().starts_with(folderName) && it->last_write_time(ignored) < limit &&
            !ignored)
            fs::remove_all(it->path(), ignored);
    }
}

} // namespace

std::string safeFileName(std::string_view text) {
    std::string name = withoutControls(text);
    std::ranges::replace_if(
        name, [](char byte) { return byte == '/' || byte == '\\'; }, '_');
    if (!isValidUtf8(name))
        std::ranges::replace_if(
            name, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; }, '_');
    while (name.size() > longestName ||
           (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0) == 0x80 && !isValidUtf8(name)))
        name.pop_back();
    if (!isValidUtf8(name))
        name.pop_back();
    const std::size_t begin = std::min(name.find_first_not_of(" .-"), name.size());
    name.erase(0, begin);
    return name.empty() ? "unnamed" : name;
}

std::error_code writeNewFile(const std::string& path, std::string_view bytes) {
    const posix::FileDescriptor file(
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file)
        return posix::lastError();
    posix::PosixFileSystem files;
    std::error_code error = writeAll(files, file.get(), bytes);
    if (!error)
        error = uninterrupted([&] { return files.sync(file.get(), Sync::Full); });
    if (error)
        unlink(path.c_str());
    return error;
}

MailFolder::MailFolder(const std::vector<MailAttachment>& attachments) {
    if (attachments.empty())
        return;
    const std::string parent = parentFolder().string();
    if (const std::error_code error = copy(attachments, parent))
        problem_ = filledIn(translated("Mail", "The attachments could not be copied to %1: %2."),
                            {parent, error.message()});
}

std::error_code MailFolder::copy(const std::vector<MailAttachment>& attachments, const std::string& parent) {
    if (const std::error_code error = posix::prepareUserFolder(parent))
        return error;
    removeOldFolders(parent);
    path_ = parent + '/' + std::string(folderName) + "XXXXXX";
    if (!mkdtemp(path_.data())) {
        path_.clear();
        return posix::lastError();
    }
    for (const auto& attachment : attachments) {
        // Two attachments of one name are in folders of their own, since their names must stay.
        const fs::path folder = fs::path(path_) / std::to_string(files_.size() + 1);
        if (mkdir(folder.c_str(), 0700) != 0)
            return posix::lastError();
        files_.push_back((folder / safeFileName(attachment.fileName)).string());
        if (const std::error_code error = writeNewFile(files_.back(), attachment.data))
            return error;
    }
    return {};
}

void MailFolder::remove() const {
    std::error_code ignored;
    if (!path_.empty())
        fs::remove_all(path_, ignored);
}

} // namespace platform::mail
