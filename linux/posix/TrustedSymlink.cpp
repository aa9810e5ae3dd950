#include "linux/posix/TrustedSymlink.h"

#include "linux/posix/FileDescriptor.h"
#include "linux/posix/LastError.h"
#include "platform/files/FileSystem.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::posix {

namespace {

class ForeignLink final : public std::error_category {
public:
    const char* name() const noexcept override { return "symbolic link"; }
    std::string message(int) const override { return "The symbolic link belongs to another user"; }
    std::error_condition default_error_condition(int) const noexcept override {
        return std::errc::permission_denied;
    }
};

const std::error_category& foreignLink() {
    // Never destroyed: an error may be printed until the process has ended.
    static const auto* const category = new ForeignLink;
    return *category;
}

} // namespace

std::error_code readTrustedSymlink(const std::string& path, std::string& target) {
    const FileDescriptor link(::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct stat found;
    if (!link || ::fstat(link.get(), &found) != 0)
        return lastError();
    if (!S_ISLNK(found.st_mode))
        return std::make_error_code(std::errc::invalid_argument);
    if (found.st_uid != 0 && found.st_uid != ::geteuid())
        return {1, foreignLink()};
    char text[PATH_MAX];
    const ssize_t length = ::readlinkat(link.get(), "", text, sizeof text);
    if (length < 0)
        return lastError();
    target.assign(text, static_cast<std::size_t>(length));
    return {};
}

std::error_code openThroughTrustedSymlinks(const std::string& path, int flags, int& descriptor) {
    std::string destination;
    for (int links = 0; links <= longestLinkChain; ++links) {
        const std::string& file = links == 0 ? path : destination;
        descriptor = ::open(file.c_str(), flags | O_NOFOLLOW);
        if (descriptor >= 0)
            return {};
        // The error of open(2) for a link in the last component.
        if (errno != ELOOP)
            return lastError();
        std::string text;
        if (std::error_code error = readTrustedSymlink(file, text))
            return error;
        destination = linkDestination(file, text);
    }
    return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

} // namespace platform::posix
