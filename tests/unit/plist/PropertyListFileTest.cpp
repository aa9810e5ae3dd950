#include "platform/plist/PropertyListFile.h"

#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyList.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/FewDescriptors.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Dictionary;
using platform::dictionaryWithContentsOfFile;
using platform::MutableDictionary;
using platform::Update;
using platform::updateFile;
using platform::writeToFileAtomically;

constexpr const char* file = "/var/mobile/Library/Preferences/a.plist";
const std::string damaged = std::string(file) + ".damaged";

Dictionary one() {
    return {{"one", 1}};
}

class PropertyListFile : public DeviceRootFixture {
protected:
    unsigned modeOf(const std::string& devicePath) const {
        return static_cast<unsigned>(fs::symlink_status(onDisk(devicePath)).permissions());
    }
    /// How many files are beside the document, itself included; the folder of its versions does not count.
    std::size_t filesInFolder() const {
        const fs::directory_iterator all(onDisk("/var/mobile/Library/Preferences"));
        return static_cast<std::size_t>(std::count_if(
            begin(all), end(all), [](const auto& entry) { return entry.path().extension() != ".history"; }));
    }
    static bool setTwo(MutableDictionary& entries) {
        entries.set("two", 2);
        return true;
    }
};

TEST_F(PropertyListFile, ReadsTheDictionaryOfAFile) {
    writeFile(file, "<plist><dict><key>one</key><integer>1</integer></dict></plist>");
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one());
}

TEST_F(PropertyListFile, ReadsAnEmptyDictionaryAsADictionary) {
    writeFile(file, "<plist><dict/></plist>");
    EXPECT_EQ(dictionaryWithContentsOfFile(file), Dictionary());
}

TEST_F(PropertyListFile, ReadsNothingWithoutADictionary) {
    EXPECT_EQ(dictionaryWithContentsOfFile(file), std::nullopt);
    for (const char* bytes : {"", "no list", "<plist><array/></plist>", "<plist><dict><key>one</key>"}) {
        writeFile(file, bytes);
        EXPECT_EQ(dictionaryWithContentsOfFile(file), std::nullopt) << bytes;
        EXPECT_EQ(readFile(file), bytes);
    }
    removeFile(file);
    makeFolder(file);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), std::nullopt);
}

TEST_F(PropertyListFile, WritesTheXmlFormForItsOwnerAlone) {
    ASSERT_TRUE(writeToFileAtomically(one(), file));
    EXPECT_EQ(readFile(file), platform::dataWithPropertyList(one()));
    EXPECT_EQ(modeOf(file), 0600u);
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(PropertyListFile, WritesAnEmptyDictionary) {
    ASSERT_TRUE(writeToFileAtomically(Dictionary(), file));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), Dictionary());
}

TEST_F(PropertyListFile, KeepsTheModeOfTheOldFile) {
    ASSERT_TRUE(writeToFileAtomically(one(), file));
    fs::permissions(onDisk(file), static_cast<fs::perms>(0644));
    ASSERT_TRUE(writeToFileAtomically(Dictionary(), file));
    EXPECT_EQ(modeOf(file), 0644u);
}

TEST_F(PropertyListFile, WritesThroughALinkAndKeepsIt) {
    writeFile("/var/mobile/real.plist", platform::dataWithPropertyList(Dictionary()));
    fs::create_symlink("../../real.plist", onDisk(file));
    ASSERT_TRUE(writeToFileAtomically(one(), file));
    EXPECT_TRUE(fs::is_symlink(onDisk(file)));
    EXPECT_EQ(dictionaryWithContentsOfFile("/var/mobile/real.plist"), one());
}

TEST_F(PropertyListFile, CreatesNoFolder) {
    EXPECT_FALSE(writeToFileAtomically(one(), "/var/none/a.plist"));
    EXPECT_FALSE(exists("/var/none"));
}

TEST_F(PropertyListFile, DoesNotReplaceAFolder) {
    makeFolder(file);
    EXPECT_FALSE(writeToFileAtomically(one(), file));
    EXPECT_TRUE(fs::is_directory(onDisk(file)));
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(PropertyListFile, KeepsTheBytesOfADamagedDocumentBesideIt) {
    writeFile(file, "broken");
    fs::permissions(onDisk(file), static_cast<fs::perms>(0644));
    ASSERT_TRUE(writeToFileAtomically(one(), file));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one());
    EXPECT_EQ(readFile(damaged), "broken");
    EXPECT_EQ(modeOf(damaged), 0600u);
}

TEST_F(PropertyListFile, KeepsADocumentWhoseRootIsNotADictionary) {
    writeFile(file, "<plist><array/></plist>");
    ASSERT_TRUE(updateFile(file, setTwo).written);
    EXPECT_EQ(readFile(damaged), "<plist><array/></plist>");
}

TEST_F(PropertyListFile, KeepsNothingBesideADocument) {
    writeFile(file, "<plist><dict/></plist>");
    ASSERT_TRUE(writeToFileAtomically(one(), file));
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(PropertyListFile, KeepsEachDifferentDamageUnderItsOwnNumber) {
    for (const char* bytes : {"first", "second", "first", "third", "second"}) {
        writeFile(file, bytes);
        ASSERT_TRUE(writeToFileAtomically(one(), file));
    }
    EXPECT_EQ(readFile(damaged), "first");
    EXPECT_EQ(readFile(damaged + ".2"), "second");
    EXPECT_EQ(readFile(damaged + ".3"), "third");
    EXPECT_EQ(filesInFolder(), 4u);
}

TEST_F(PropertyListFile, KeepsTheFirstEightAndTheLatestDamagedDocument) {
    for (int number = 1; number <= 12; ++number) {
        writeFile(file, "damage " + std::to_string(number));
        ASSERT_TRUE(writeToFileAtomically(one(), file));
    }
    EXPECT_EQ(readFile(damaged), "damage 1");
    EXPECT_EQ(readFile(damaged + ".8"), "damage 8");
    EXPECT_EQ(readFile(damaged + ".9"), "damage 12");
    EXPECT_EQ(filesInFolder(), 10u);
}

TEST_F(PropertyListFile, IsNotReplacedWhereItsDamagedBytesCannotBeKept) {
    writeFile(file, "broken");
    for (int number = 1; number <= 9; ++number)
        makeFolder(number == 1 ? damaged : damaged + "." + std::to_string(number));
    EXPECT_FALSE(writeToFileAtomically(one(), file));
    EXPECT_EQ(readFile(file), "broken");
}

TEST_F(PropertyListFile, IsMovedAsideWhenTooLargeToBeADocument) {
    writeFile(file, "");
    fs::resize_file(onDisk(file), 17 << 20);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), std::nullopt);
    ASSERT_TRUE(writeToFileAtomically(one(), file));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one());
    EXPECT_EQ(fs::file_size(onDisk(damaged)), 17u << 20);
}

/// Runs `work` in a process of an ordinary user who owns the device's files; whether it returned true.
template <class Work>
bool asOwner(const std::string& root, Work work) {
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0) {
        for (const auto& entry : fs::recursive_directory_iterator(root))
            EXPECT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0);
        fs::permissions(fs::path(root).parent_path(), static_cast<fs::perms>(0755));
    }
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit((::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0)) && work() ? 0 : 1);
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status == 0;
}

TEST_F(PropertyListFile, IsMovedAsideAndReplacedByAReadableOneWhenItMayNotBeRead) {
    writeFile(file, "hidden");
    fs::permissions(onDisk(file), fs::perms::none);
    EXPECT_TRUE(asOwner(
        root(), [] { return !dictionaryWithContentsOfFile(file) && updateFile(file, setTwo).written; }));
    EXPECT_EQ(modeOf(file), 0600u);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), (Dictionary{{"two", 2}}));
    fs::permissions(onDisk(damaged), fs::perms::owner_all);
    EXPECT_EQ(readFile(damaged), "hidden");
}

TEST_F(PropertyListFile, IsKeptInAFolderThatMayNotBeChanged) {
    writeFile(file, platform::dataWithPropertyList(one()));
    fs::permissions(onDisk("/var/mobile/Library/Preferences"), static_cast<fs::perms>(0555));
    EXPECT_TRUE(asOwner(root(), [] {
        const Update update = updateFile(file, setTwo);
        return update.changed && !update.written && update.error == std::errc::permission_denied &&
               update.dictionary.size() == 2;
    }));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one());
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(PropertyListFile, IsKeptWhileNoDescriptorIsLeftToReadIt) {
    writeFile(file, platform::dataWithPropertyList(one()));
    {
        const FewDescriptors none(0);
        EXPECT_EQ(dictionaryWithContentsOfFile(file), std::nullopt);
        const Update update = updateFile(file, setTwo);
        EXPECT_TRUE(update.changed);
        EXPECT_FALSE(update.written);
        EXPECT_EQ(update.error, std::errc::too_many_files_open);
        EXPECT_FALSE(writeToFileAtomically(Dictionary(), file));
    }
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one());
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(PropertyListFile, IsUpdatedFromWhatIsOnDiskNow) {
    writeFile(file, platform::dataWithPropertyList(one()));
    const Update update = updateFile(file, setTwo);
    EXPECT_TRUE(update.changed);
    EXPECT_TRUE(update.written);
    EXPECT_FALSE(update.error);
    EXPECT_EQ(update.dictionary, (Dictionary{{"one", 1}, {"two", 2}}));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), update.dictionary);
}

TEST_F(PropertyListFile, KeepsTheOrderOfTheEntriesItDoesNotChange) {
    writeFile(file, platform::dataWithPropertyList(Dictionary{{"z", 1}, {"two", 0}, {"a", "x"}}));
    ASSERT_TRUE(updateFile(file, setTwo).written);
    EXPECT_EQ(readFile(file), platform::dataWithPropertyList(Dictionary{{"z", 1}, {"two", 2}, {"a", "x"}}));
}

TEST_F(PropertyListFile, IsUpdatedFromNothingWhereItIsMissingOrDamaged) {
    EXPECT_EQ(updateFile(file, setTwo).dictionary, (Dictionary{{"two", 2}}));
    writeFile(file, "broken");
    EXPECT_EQ(updateFile(file, setTwo).dictionary, (Dictionary{{"two", 2}}));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), (Dictionary{{"two", 2}}));
}

TEST_F(PropertyListFile, IsNotWrittenWhenNothingChanged) {
    writeFile(file, "broken");
    const Update update = updateFile(file, [](MutableDictionary& entries) {
        entries.set("two", 2);
        return false;
    });
    EXPECT_FALSE(update.changed);
    EXPECT_FALSE(update.written);
    EXPECT_EQ(update.dictionary, (Dictionary{{"two", 2}}));
    EXPECT_EQ(readFile(file), "broken");
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(PropertyListFile, IsNotWrittenWhenTheChangeThrows) {
    writeFile(file, platform::dataWithPropertyList(one()));
    const auto change = [](MutableDictionary& entries) -> bool {
        entries.set("two", 2);
        throw std::runtime_error("no");
    };
    EXPECT_THROW(updateFile(file, change), std::runtime_error);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), one());
    EXPECT_EQ(filesInFolder(), 1u);
}

/// The same over memory, where every call can fail.
class PropertyListFileFault : public ::testing::TestWithParam<std::string> {
protected:
    struct Stage {
        explicit Stage(const std::string& bytes) {
            memory.addFolder("/d");
            memory.addFile("/d/a", bytes);
            platform::FileSystem::setCurrent(&files);
        }
        ~Stage() { platform::FileSystem::setCurrent(nullptr); }

        MemoryFileSystem memory;
        FaultyFileSystem files{memory};
    };
    PropertyListFileFault() { environment.set("WARDLOCK_DEVICE_ROOT", "/"); }

    static bool setTwo(MutableDictionary& entries) {
        entries.set("two", 2);
        return true;
    }
    static std::size_t callsOfUpdate() {
        Stage stage(GetParam());
        EXPECT_TRUE(updateFile("/d/a", setTwo).written);
        return stage.files.calls();
    }
    /// The old bytes must be in some file for as long as they are worth keeping.
    static void expectNothingLost(const MemoryFileSystem& memory, const Update& update) {
        const bool replaced = memory.contents("/d/a") == platform::dataWithPropertyList(update.dictionary);
        EXPECT_TRUE(replaced || memory.contents("/d/a") == GetParam());
        if (replaced && GetParam() == "broken") {
            const bool first = memory.contents("/d/a.damaged") == "broken";
            EXPECT_TRUE(first || memory.contents("/d/a.damaged.2") == "broken");
        }
        EXPECT_EQ(update.written, replaced);
    }

    Environment environment;
};

TEST_P(PropertyListFileFault, LosesNothingAtAnyCall) {
    const std::size_t count = callsOfUpdate();
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE(number);
        Stage stage(GetParam());
        stage.files.failCall(number, std::errc::io_error);
        const Update update = updateFile("/d/a", setTwo);
        expectNothingLost(stage.memory, update);
        EXPECT_EQ(stage.memory.openHandles(), 0u);
    }
}

TEST_P(PropertyListFileFault, LosesNothingOfAKilledProcess) {
    const std::size_t count = callsOfUpdate();
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE(number);
        Stage stage(GetParam());
        stage.files.killFrom(number);
        const Update update = updateFile("/d/a", setTwo);
        EXPECT_TRUE(update.error);
        expectNothingLost(stage.memory, update);
    }
}

TEST_P(PropertyListFileFault, LosesNothingOnAFullDisk) {
    Stage stage(GetParam());
    stage.memory.setCapacity(GetParam().size());
    const Update update = updateFile("/d/a", setTwo);
    EXPECT_FALSE(update.written);
    EXPECT_EQ(stage.memory.contents("/d/a"), GetParam());
    EXPECT_EQ(stage.memory.names("/d"), std::vector<std::string>{"a"});
}

TEST_F(PropertyListFile, IsUpdatedFromItsEntriesWhenItsReadingFailsOnce) {
    MemoryFileSystem memory;
    FaultyFileSystem files(memory);
    memory.addFolder("/d");
    memory.addFile("/d/a", platform::dataWithPropertyList(Dictionary{{"kept", true}}));
    files.failCall(1, std::errc::io_error);
    platform::FileSystem::setCurrent(&files);
    const Update update = platform::updateFileOfMachine("/d/a", setTwo);
    platform::FileSystem::setCurrent(nullptr);
    EXPECT_TRUE(platform::boolValue(update.dictionary.find("kept")));
    EXPECT_EQ(memory.contents("/d/a"), platform::dataWithPropertyList(update.dictionary));
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
}

TEST_P(PropertyListFileFault, KeepsTheFileWhenItsReadingLacksResources) {
    for (const std::errc shortage : {std::errc::too_many_files_open, std::errc::too_many_files_open_in_system,
                                     std::errc::not_enough_memory}) {
        Stage stage(GetParam());
        stage.files.failEvery("readFile", shortage);
        const Update update = updateFile("/d/a", setTwo);
        EXPECT_FALSE(update.written);
        EXPECT_EQ(update.error, shortage);
        EXPECT_EQ(stage.memory.contents("/d/a"), GetParam());
        EXPECT_EQ(stage.memory.names("/d"), std::vector<std::string>{"a"});
    }
}

TEST_P(PropertyListFileFault, KeepsUnreadableBytesUnderAnotherName) {
    Stage stage(GetParam());
    stage.files.failEvery("readFile", std::errc::io_error);
    EXPECT_TRUE(writeToFileAtomically(one(), "/d/a"));
    EXPECT_EQ(stage.memory.contents("/d/a"), platform::dataWithPropertyList(one()));
    EXPECT_EQ(stage.memory.contents("/d/a.damaged"), GetParam());
}

TEST_P(PropertyListFileFault, KeepsAFileThatCanNeitherBeReadNorLinked) {
    Stage stage(GetParam());
    stage.files.failEvery("readFile", std::errc::permission_denied);
    stage.files.failEvery("link", std::errc::operation_not_permitted);
    EXPECT_FALSE(writeToFileAtomically(one(), "/d/a"));
    EXPECT_EQ(stage.memory.contents("/d/a"), GetParam());
}

INSTANTIATE_TEST_SUITE_P(OldBytes, PropertyListFileFault,
                         ::testing::Values(std::string("broken"), platform::dataWithPropertyList(one())),
                         [](const auto& info) { return info.param == "broken" ? "Damaged" : "Document"; });

} // namespace
} // namespace wardlock::test
