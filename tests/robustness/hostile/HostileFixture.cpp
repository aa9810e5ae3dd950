#include "tests/robustness/hostile/HostileFixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace wardlock::test {

namespace fs = std::filesystem;

void HostileFixture::letOthersIn() const {
    fs::permissions(folder().path(), static_cast<fs::perms>(0755));
    for (const auto& entry : fs::recursive_directory_iterator(folder().path()))
        if (entry.is_directory() && !entry.is_symlink())
            fs::permissions(entry.path(), static_cast<fs::perms>(0755));
    const std::string probe = folder() / "probe";
    std::ofstream(probe) << "open to all";
    fs::permissions(probe, static_cast<fs::perms>(0644));
    // Else a refusal would prove nothing.
    ASSERT_EQ(OtherUser::reads(probe), 0) << "others do not come as far as the temporary folder";
}

void HostileFixture::letOthersWrite(const std::string& folder) const {
    fs::permissions(folder, fs::perms::all);
}

std::string HostileFixture::secret() const {
    std::string path = folder() / "secret";
    std::ofstream(path) << "secret";
    fs::permissions(path, static_cast<fs::perms>(0600));
    return path;
}

std::string HostileFixture::contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

unsigned HostileFixture::modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

} // namespace wardlock::test
