#pragma once

#include "platform/services/MailMessage.h"

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace platform::mail {

/// Returns a file name derived from any text: no folders, no control characters, no dot or dash at the
/// beginning, bounded, never empty.
std::string safeFileName(std::string_view text);

/// Writes a new file for the user alone; it is wholly on the disk when this returns. On an error no file is
/// left. An existing file is never replaced.
std::error_code writeNewFile(const std::string& path, std::string_view bytes);

/// The attachments of a mail as files of a new private folder, under their stated names, so that another
/// program can take them. There is no folder for a mail without attachments. The folder outlives this object:
/// a mail program may read it later. Creating one removes folders older than a day.
class MailFolder {
public:
    explicit MailFolder(const std::vector<MailAttachment>& attachments);

    /// Returns whether all of them are there.
    bool complete() const { return problem_.empty(); }
    /// Returns one sentence for the person; empty when they are there.
    const std::string& problem() const { return problem_; }
    const std::vector<std::string>& files() const { return files_; }
    void remove() const;

private:
    std::error_code copy(const std::vector<MailAttachment>& attachments, const std::string& parent);

    std::string path_;
    std::vector<std::string> files_;
    std::string problem_;
};

} // namespace platform::mail
