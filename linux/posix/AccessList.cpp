#include "linux/posix/AccessList.h"

#include "linux/posix/LastError.h"

#include <cerrno>
#include <linux/limits.h>
#include <sys/xattr.h>

namespace platform::posix {

namespace {

constexpr const char* attribute = "system.posix_acl_access";

/// Returns whether the last call failed because the file has no list, or its file system has none at all.
bool meansNoList() {
    return errno == ENODATA || errno == ENOTSUP;
}

std::error_code outcome(int result) {
    return result == 0 || meansNoList() ? std::error_code() : lastError();
}

} // namespace

std::error_code copyAccessList(const std::string& path, int file) {
    std::string list(XATTR_SIZE_MAX, '\0');
    const ssize_t size = ::lgetxattr(path.c_str(), attribute, list.data(), list.size());
    if (size < 0)
        return meansNoList() ? outcome(::fremovexattr(file, attribute)) : lastError();
    // A list that is there and cannot be set is an error, whatever the reason.
    return ::fsetxattr(file, attribute, list.data(), static_cast<std::size_t>(size), 0) == 0
               ? std::error_code()
               : lastError();
}

} // namespace platform::posix
