// How many versions are kept, and for how long.

#include "tests/support/TemporaryFolder.h"
#include "tests/support/doubles/UnsyncedFileSystem.h"
#include "tests/unit/versions/VersionFixture.h"

#include <algorithm>
#include <fstream>
#include <numeric>

namespace wardlock::test {
namespace {

using Values = std::vector<int>;

constexpr std::int64_t day = std::int64_t{24} * 60 * 60 * 1000;

class VersionBounds : public VersionFixture {
protected:
    static Values range(int first, int last) {
        Values all(static_cast<std::size_t>(last - first + 1));
        std::iota(all.begin(), all.end(), first);
        return all;
    }
    /// Versions that an earlier process kept, each of a file of its own.
    void addVersions(std::uint64_t first, std::uint64_t last, std::int64_t time) {
        memory.addFolder(history);
        for (std::uint64_t number = first; number <= last; ++number) {
            const platform::Version version = {
                .number = number, .time = time, .origin = {"settings", 1}, .digest = number};
            memory.addFile(std::string(history) + '/' + version.name(), "x");
        }
    }
};

TEST_F(VersionBounds, KeepTwoHundred) {
    writeMany(1, 205);
    EXPECT_EQ(values(), range(6, 205));
}

TEST_F(VersionBounds, KeepNoneThatWasReplacedMoreThanNinetyDaysAgo) {
    writeMany(1, 3);
    now += 89 * day;
    write(4);
    EXPECT_EQ(values(), range(1, 4));
    now += 2 * day;
    write(5);
    // The third was replaced by the fourth two days ago.
    EXPECT_EQ(values(), range(3, 5));
}

TEST_F(VersionBounds, KeepTheYoungestAndTheOneBeforeHoweverOld) {
    writeMany(1, 3);
    now += 1000 * day;
    write(4);
    now += 2 * day;
    meet();
    EXPECT_EQ(values(), (Values{3, 4}));
    replaceAsAnotherProgram(bytesOf(5));
    now += 1000 * day;
    meet();
    now += 2 * day;
    meet();
    EXPECT_EQ(values(), (Values{4, 5}));
}

TEST_F(VersionBounds, AreNotStretchedByAnEarlierClockThatWasAhead) {
    writeMany(1, 2);
    now += 365 * day;
    write(3);
    now -= 365 * day;
    writeMany(4, 5);
    now += 91 * day;
    write(6);
    now += 2 * day;
    write(7);
    EXPECT_EQ(values(), range(5, 7));
}

TEST_F(VersionBounds, AreReachedStepByStepFromTenThousandVersions) {
    const TemporaryFolder disk;
    const std::string path = disk / "a.plist";
    platform::FileSystem::setCurrent(nullptr);
    UnsyncedFileSystem unsynced(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&unsynced);
    platform::VersionFolder kept(unsynced, path);
    ASSERT_FALSE(kept.create());
    std::ofstream(disk / "x") << "x";
    for (std::uint64_t number = 1; number <= 10'000; ++number)
        ASSERT_FALSE(kept.add(disk / "x", {.number = number, .time = now, .origin = {"settings", 1}}));

    std::vector<platform::Version> found;
    int value = 0;
    for (std::size_t expected = 10'000; expected > platform::VersionFolder::mostVersions; ++value) {
        ++now;
        const auto set = [value](platform::MutableDictionary& entries) {
            entries.set("value", value);
            return true;
        };
        ASSERT_TRUE(platform::updateFile(path, set).written);
        ASSERT_FALSE(kept.list(found));
        expected = std::max(expected + 1 - platform::VersionFolder::mostRemoved,
                            platform::VersionFolder::mostVersions);
        ASSERT_EQ(found.size(), expected);
        EXPECT_EQ(found.back().number, 10'001u + static_cast<std::uint64_t>(value));
    }
    EXPECT_LT(value, 200);
}

TEST_F(VersionBounds, LeaveOtherFilesAlone) {
    memory.addFolder(history);
    memory.addFile(std::string(history) + "/notes.txt", "notes");
    writeMany(1, 205);
    EXPECT_EQ(memory.contents(std::string(history) + "/notes.txt"), "notes");
}

TEST_F(VersionBounds, CountFilesThatOnlyLookLikeVersionsNeither) {
    writeMany(1, 3);
    const std::string planted = std::string(history) + "/9999999999-9999999999999-x.plist";
    memory.addFile(planted, "x");
    write(4);
    EXPECT_EQ(values(), range(1, 4));
    EXPECT_TRUE(memory.contents(planted));
}

TEST_F(VersionBounds, AreReachedPastFilesThatOnlyLookLikeVersions) {
    memory.addFolder(history);
    const std::string planted = std::string(history) + "/0000000000-0000000000000-x.plist";
    memory.addFile(planted, "x");
    writeMany(1, 205);
    EXPECT_EQ(values(), range(6, 205));
    EXPECT_TRUE(memory.contents(planted));
}

TEST_F(VersionBounds, EndTheCountingAtTheLargestNumber) {
    addVersions(platform::largestVersionNumber, platform::largestVersionNumber, now);
    EXPECT_TRUE(write(1).written);
    EXPECT_EQ(versions().size(), 1u);
}

} // namespace
} // namespace wardlock::test
