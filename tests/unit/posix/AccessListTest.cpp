// Files with an access list, which gives rights to single users beyond the permission bits.

#include "platform/files/AtomicWriter.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Sync;

/// An entry of a list as the kernel stores it. The number is of a user; entries of other kinds have none.
struct Entry {
    std::uint16_t kind;
    std::uint16_t rights;
    std::uint32_t number = 0xFFFFFFFF;
};
enum Kind : std::uint16_t { Owner = 1, User = 2, OwningGroup = 4, Mask = 16, Others = 32 };

std::string listOf(std::initializer_list<Entry> entries) {
    const std::uint32_t version = 2;
    std::string list(sizeof version + entries.size() * sizeof(Entry), '\0');
    std::memcpy(list.data(), &version, sizeof version);
    std::memcpy(list.data() + sizeof version, entries.begin(), entries.size() * sizeof(Entry));
    return list;
}

class AccessList : public ::testing::Test {
protected:
    AccessList() { std::ofstream(path()) << "old"; }
    void SetUp() override {
        if (::setxattr(path().c_str(), attribute, one.data(), one.size(), 0) != 0)
            GTEST_SKIP() << "this file system has no access lists: " << std::strerror(errno);
    }

    std::string path() const { return folder_ / "a"; }
    std::string folder() const { return folder_.path(); }
    static std::optional<std::string> listAt(const std::string& path) {
        std::string list(1024, '\0');
        const ssize_t size = ::getxattr(path.c_str(), attribute, list.data(), list.size());
        return size < 0 ? std::nullopt : std::optional(list.substr(0, static_cast<std::size_t>(size)));
    }
    std::error_code write() {
        return platform::AtomicWriter(platform::FileSystem::native()).write(path(), "new", Sync::None);
    }
    unsigned mode() const { return static_cast<unsigned>(fs::status(path()).permissions()); }

    static constexpr const char* attribute = "system.posix_acl_access";
    static constexpr std::uint32_t someUser = 12345;
    /// One user may read and write, the owning group nothing.
    const std::string one =
        listOf({{Owner, 6}, {User, 6, someUser}, {OwningGroup, 0}, {Mask, 6}, {Others, 0}});

private:
    TemporaryFolder folder_;
};

TEST_F(AccessList, IsKeptWhenTheFileIsReplaced) {
    ASSERT_FALSE(write());
    EXPECT_EQ(listAt(path()), one);
    EXPECT_EQ(mode(), 0660u);
}

TEST_F(AccessList, IsNotTakenFromTheFolderWhereTheOldFileHasNone) {
    ASSERT_EQ(::setxattr(folder().c_str(), "system.posix_acl_default", one.data(), one.size(), 0), 0);
    ASSERT_EQ(::removexattr(path().c_str(), attribute), 0);
    fs::permissions(path(), fs::perms(0640));
    ASSERT_FALSE(write());
    EXPECT_EQ(listAt(path()), std::nullopt);
    EXPECT_EQ(mode(), 0640u);
}

TEST_F(AccessList, IsNotNeededForAPrivateFile) {
    fs::permissions(path(), fs::perms(0600));
    ASSERT_FALSE(write());
    EXPECT_EQ(listAt(path()), std::nullopt);
    EXPECT_EQ(mode(), 0600u);
}

} // namespace
} // namespace wardlock::test
