#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace wardlock::test {

namespace fs = std::filesystem;

namespace {

// A test may have taken a folder's permissions away; without them an ordinary user could not empty it.
void openFolders(const fs::path& top) {
    std::error_code ignored;
    fs::permissions(top, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (fs::directory_iterator it(top, ignored), end; it != end; it.increment(ignored))
        if (it->is_directory(ignored) && !it->is_symlink(ignored))
            openFolders(it->path());
}

} // namespace

TemporaryFolder::TemporaryFolder() {
    // The canonical path: a caller compares it with resolved ones.
    path_ = (fs::canonical(fs::temp_directory_path()) / "wl.XXXXXX").string();
    if (!::mkdtemp(path_.data()))
        throw std::system_error(errno, std::generic_category(), "mkdtemp " + path_);
}

TemporaryFolder::~TemporaryFolder() {
    openFolders(path_);
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::operator/(std::string_view name) const {
    return path_ + '/' + std::string(name);
}

} // namespace wardlock::test
