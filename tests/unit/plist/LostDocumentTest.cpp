// Documents that cannot be read, or not now, and what a write makes of them.

#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Dictionary;
using platform::dictionaryWithContentsOfFile;
using platform::MutableDictionary;
using platform::updateFile;

constexpr const char* file = "/var/mobile/Library/Preferences/a.plist";
constexpr std::size_t tooLarge = std::size_t(17) << 20;
const Dictionary one{{"one", 1}};

bool setTwo(MutableDictionary& entries) {
    entries.set("two", 2);
    return true;
}

class LostDocument : public DeviceRootFixture {
protected:
    ~LostDocument() override { platform::FileSystem::setCurrent(nullptr); }

    static std::string kept(int number) {
        return std::string(file) + (number == 1 ? ".damaged" : ".damaged." + std::to_string(number));
    }
    /// A file that root cannot read as a document either.
    void putUnreadable() const {
        writeFile(file, "");
        fs::resize_file(onDisk(file), tooLarge);
    }
};

TEST_F(LostDocument, IsReplacedAfterAnyNumberOfFailedAttempts) {
    putUnreadable();
    FaultyFileSystem full(platform::FileSystem::current());
    full.failEvery("rename", std::errc::no_space_on_device);
    platform::FileSystem::setCurrent(&full);
    for (int attempt = 1; attempt <= 12; ++attempt)
        EXPECT_EQ(updateFile(file, setTwo).error, std::errc::no_space_on_device) << attempt;
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_TRUE(updateFile(file, setTwo).written);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), (Dictionary{{"two", 2}}));
    EXPECT_EQ(fs::file_size(onDisk(kept(1))), tooLarge);
    EXPECT_FALSE(exists(kept(2)));
}

TEST_F(LostDocument, ReplacesTheLastOfNineThatAreKept) {
    for (int number = 1; number <= 9; ++number)
        writeFile(kept(number), "damage " + std::to_string(number));
    for (int time = 1; time <= 2; ++time) {
        putUnreadable();
        EXPECT_TRUE(updateFile(file, setTwo).written);
        EXPECT_EQ(fs::file_size(onDisk(kept(9))), tooLarge);
    }
    EXPECT_EQ(readFile(kept(8)), "damage 8");
    EXPECT_FALSE(exists(kept(10)));
}

TEST_F(LostDocument, IsLeftWhereFoldersTakeAllNamesToKeepIt) {
    for (int number = 1; number <= 9; ++number)
        makeFolder(kept(number));
    putUnreadable();
    EXPECT_EQ(updateFile(file, setTwo).error, std::errc::is_a_directory);
    EXPECT_EQ(fs::file_size(onDisk(file)), tooLarge);
    EXPECT_TRUE(fs::is_directory(onDisk(kept(9))));
}

TEST_F(LostDocument, IsReplacedByAReadableFileOfBytes) {
    MemoryFileSystem memory;
    memory.addFolder("/d", 0777);
    memory.addFile("/d/a", "hidden", 0000, 1000, 1000);
    memory.actAs(1000, 1000);
    platform::FileSystem::setCurrent(&memory);
    EXPECT_FALSE(platform::replaceFileOfMachine("/d/a", platform::dataWithPropertyList(one)));
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0600u);
}

TEST_F(LostDocument, IsLeftWhileNoDescriptorIsLeftToReadIt) {
    writeFile(file, platform::dataWithPropertyList(one));
    FaultyFileSystem files(platform::FileSystem::current());
    files.failEvery("readFile", std::errc::too_many_files_open);
    platform::FileSystem::setCurrent(&files);
    EXPECT_EQ(platform::replaceFileOfMachine(onDisk(file), "<plist><dict/></plist>"),
              std::errc::too_many_files_open);
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one);
}

TEST_F(LostDocument, IsNotChangedByWhatNeedsItsEntries) {
    const auto neverCalled = [](MutableDictionary&) {
        ADD_FAILURE() << "there are no entries";
        return true;
    };
    EXPECT_FALSE(platform::updateExistingFile(file, neverCalled).read);
    EXPECT_FALSE(exists(file));
    writeFile(file, "broken");
    EXPECT_FALSE(platform::updateExistingFile(file, neverCalled).error);
    EXPECT_EQ(readFile(file), "broken");
    putUnreadable();
    EXPECT_EQ(platform::updateExistingFile(file, neverCalled).error, std::errc::file_too_large);
    EXPECT_EQ(fs::file_size(onDisk(file)), tooLarge);
    writeFile(file, platform::dataWithPropertyList(one));
    EXPECT_TRUE(platform::updateExistingFile(file, setTwo).written);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), (Dictionary{{"one", 1}, {"two", 2}}));
}

TEST_F(LostDocument, IsToldFromOneThatCannotBeRead) {
    std::error_code error;
    EXPECT_EQ(dictionaryWithContentsOfFile(file, error), std::nullopt);
    EXPECT_FALSE(error);
    writeFile(file, "broken");
    EXPECT_EQ(dictionaryWithContentsOfFile(file, error), std::nullopt);
    EXPECT_FALSE(error);
    putUnreadable();
    EXPECT_EQ(dictionaryWithContentsOfFile(file, error), std::nullopt);
    EXPECT_EQ(error, std::errc::file_too_large);
    writeFile(file, platform::dataWithPropertyList(one));
    EXPECT_EQ(dictionaryWithContentsOfFile(file, error), one);
    EXPECT_FALSE(error);
}

TEST_F(LostDocument, IsOneWhoseChangeIsInPlaceAndMayNotLast) {
    writeFile(file, platform::dataWithPropertyList(one));
    FaultyFileSystem files(platform::FileSystem::current());
    files.failEvery("syncFolder", std::errc::io_error);
    platform::FileSystem::setCurrent(&files);
    const platform::Update update = updateFile(file, setTwo);
    EXPECT_TRUE(update.written);
    EXPECT_EQ(update.error, std::errc::io_error);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), update.dictionary);
    EXPECT_TRUE(platform::writeToFileAtomically(one, file));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one);
}

/// Reads a document as the last thing of its process, when memory that was freed has other content.
class LateReader {
public:
    ~LateReader() {
        const std::vector<std::string> others(64, std::string(400, 'J'));
        for (int time = 0; time < 3; ++time)
            if (dictionaryWithContentsOfFile(file) != one)
                ::_exit(1);
    }
};

TEST_F(LostDocument, IsNotOneThatIsReadWhileTheProcessEnds) {
    writeFile(file, platform::dataWithPropertyList(one));
    const pid_t child = ::fork();
    if (child == 0) {
        // Destroyed after whatever the first reading creates.
        static LateReader late;
        for (int time = 0; time < 3; ++time)
            dictionaryWithContentsOfFile(file);
        std::exit(0);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace wardlock::test
