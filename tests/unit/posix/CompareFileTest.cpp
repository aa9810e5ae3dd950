// A file is compared with bytes in memory: by blocks on a disk, and by reading it where that is all there is.
#include "linux/posix/PosixFileSystem.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <optional>

namespace wardlock::test {
namespace {

/// More than a few blocks.
const std::string text(100'000, 'a');

class CompareFile : public ::testing::Test {
protected:
    CompareFile() { memory.addFolder(folder.path()); }

    void put(const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
        memory.addFile(path, bytes);
    }
    /// What every file system finds; nothing where one fails or they differ.
    std::optional<bool> isSame(const std::string& bytes) {
        std::optional<bool> found;
        for (platform::FileSystem* files :
             std::initializer_list<platform::FileSystem*>{&disk, &reading, &memory}) {
            bool same = false;
            const std::error_code error = files->compareFile(path, bytes, same);
            if (error || (found && *found != same))
                return std::nullopt;
            found = same;
        }
        return found;
    }

    TemporaryFolder folder;
    const std::string path = folder / "a";
    platform::posix::PosixFileSystem disk;
    MemoryFileSystem memory;
    /// Only reads whole files.
    FaultyFileSystem reading{disk};
};

TEST_F(CompareFile, FindsTheSameBytes) {
    for (const std::string& bytes : {text, std::string("short"), std::string()}) {
        put(bytes);
        EXPECT_EQ(isSame(bytes), true) << bytes.size();
    }
}

TEST_F(CompareFile, FindsADifferenceWhereverItIs) {
    put(text);
    for (const std::size_t place : {std::size_t(0), text.size() / 2, text.size() - 1}) {
        std::string other = text;
        other[place] = 'b';
        EXPECT_EQ(isSame(other), false) << place;
    }
}

TEST_F(CompareFile, FindsAnotherLength) {
    put(text);
    EXPECT_EQ(isSame(text + 'a'), false);
    EXPECT_EQ(isSame(text.substr(1)), false);
    EXPECT_EQ(isSame(""), false);
}

TEST_F(CompareFile, FailsWithoutAFile) {
    bool same = true;
    for (platform::FileSystem* files :
         std::initializer_list<platform::FileSystem*>{&disk, &reading, &memory}) {
        EXPECT_EQ(files->compareFile(path, "", same), std::errc::no_such_file_or_directory);
        EXPECT_EQ(files->compareFile(folder.path(), "", same), std::errc::is_a_directory);
    }
    EXPECT_TRUE(same) << "what a failed call leaves alone";
}

} // namespace
} // namespace wardlock::test
