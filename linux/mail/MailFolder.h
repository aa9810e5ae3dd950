#pragma once

#include "platform/services/MailMessage.h"

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace platform::mail {

/// A name for a file, made of any text: no folders, no control characters, nothing that begins with a dot or
/// a dash, not too long, never empty.
std::string safeFileName(std::string_view text);

/// Writes a new file for the user alone, wholly on the disk when this returns; the error when it cannot, and
/// then nothing is left. A file that is there already is never replaced.
std::error_code writeNewFile(const std::string& path, std::string_view bytes);

/// The attachments of a mail as files of a new private folder, under their stated names, so that another
/// program can take them. The folder stays when this object goes: a mail program may read it later. Folders
/// older than a day are removed when another is made.
class MailFolder {
public:
    explicit MailFolder(const std::vector<MailAttachment>& attachments);

    /// Whether all of them are there.
    bool complete() const { return complete_; }
    const std::vector<std::string>& files() const { return files_; }
    void remove() const;

private:
    std::string path_;
    std::vector<std::string> files_;
    bool complete_ = false;
};

} // namespace platform::mail
