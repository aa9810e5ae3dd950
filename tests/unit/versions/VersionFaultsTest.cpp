// Every call to the file system of one write, with every fault there: the document is written as without
// versions, and what was kept stays.

#include "platform/files/AtomicWriter.h"
#include "tests/unit/versions/VersionFixture.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <set>

namespace wardlock::test {
namespace {

using Values = std::vector<int>;

class VersionFaults : public VersionFixture {
protected:
    static constexpr std::int64_t day = 86'400'000;

    /// A disk with the versions 0, 1 and 2, and a document that another program wrote: a write of 4 then
    /// keeps two versions, and removes one that is too old.
    std::unique_ptr<MemoryFileSystem> disk() {
        auto made = std::make_unique<MemoryFileSystem>();
        made->actAs(parent, parent);
        made->addFolder("/d");
        platform::FileSystem::setCurrent(made.get());
        now = 1'700'000'000'000;
        write(0);
        write(1);
        now += 100 * day;
        write(2);
        now += 2 * day;
        made->addFile(document, bytesOf(3), 0600, parent, parent);
        made->addFile("/d/.a.plist.0123456789abcdef.wardlock-new", "left", 0600, parent, parent);
        platform::FileSystem::setCurrent(nullptr);
        return made;
    }
    static platform::Update writeOver(platform::FileSystem& faulty) {
        platform::FileSystem::setCurrent(&faulty);
        platform::Update update = write(4);
        platform::FileSystem::setCurrent(nullptr);
        return update;
    }
    static std::vector<std::string> callsOfAWrite(MemoryFileSystem& over) {
        FaultyFileSystem faulty(over);
        writeOver(faulty);
        return faulty.functions();
    }
    /// The number of the call that gives the new document its name among the versions.
    std::size_t callsUpToLastLink() {
        const auto calls = callsOfAWrite(*disk());
        const auto last = std::find(calls.rbegin(), calls.rend(), "link");
        return static_cast<std::size_t>(calls.rend() - last);
    }
    static Values valuesOn(MemoryFileSystem& over) {
        platform::VersionFolder kept(over, document);
        std::vector<platform::Version> found;
        kept.list(found);
        Values values;
        for (const auto& version : found)
            if (const auto bytes = kept.read(version, 10000))
                values.push_back(valueOf(*bytes));
        return values;
    }
    static int valueOf(const std::string& bytes) {
        const auto root = platform::propertyListWithData(bytes);
        return root ? static_cast<int>(root->dictionary().find("value")->integer()) : -1;
    }
    static void expectWhole(MemoryFileSystem& over) {
        const auto bytes = over.contents(document);
        ASSERT_TRUE(bytes);
        EXPECT_TRUE(bytes == bytesOf(3) || bytes == bytesOf(4)) << *bytes;
        EXPECT_EQ(over.openHandles(), 0u);
    }
    /// A version that never became the document would be there between the one before it and its return.
    static void expectNoneRepeated(MemoryFileSystem& over) {
        const Values values = valuesOn(over);
        for (const int value : values)
            EXPECT_EQ(std::ranges::count(values, value), 1) << value;
    }
    /// Another process meets the document and writes: the history has these versions, and the document since.
    static void expectHistoryGoesOn(MemoryFileSystem& over, const Values& kept) {
        const int current = valueOf(*over.contents(document));
        meet(over);
        platform::FileSystem::setCurrent(&over);
        write(5);
        platform::FileSystem::setCurrent(nullptr);
        const Values values = valuesOn(over);
        ASSERT_GE(values.size(), 3u);
        EXPECT_EQ(values.back(), 5);
        EXPECT_EQ(values[values.size() - 2], current);
        for (const int value : kept)
            EXPECT_TRUE(std::ranges::find(values, value) != values.end()) << value << " is lost";
        for (const std::string& name : over.names("/d"))
            EXPECT_FALSE(name.ends_with(".wardlock-new")) << name;
    }
};

TEST_F(VersionFaults, MeetEveryCallThatKeepsVersions) {
    const auto calls = callsOfAWrite(*disk());
    EXPECT_EQ(std::ranges::count(calls, "link"), 2);
    EXPECT_GE(std::ranges::count(calls, "remove"), 2);
    EXPECT_EQ(valuesOn(*disk()), (Values{0, 1, 2}));
}

TEST_F(VersionFaults, LeaveTheDocumentAndItsVersionsWholeAfterAKill) {
    const std::size_t count = callsOfAWrite(*disk()).size();
    for (std::size_t number = 1; number <= count + 1; ++number) {
        SCOPED_TRACE("killed at call " + std::to_string(number));
        const auto over = disk();
        FaultyFileSystem faulty(*over);
        faulty.killFrom(number);
        writeOver(faulty);
        over->endProcess();
        expectWhole(*over);
        expectHistoryGoesOn(*over, {2, 3});
        expectNoneRepeated(*over);
    }
}

/// Other files of the folder are written by the same class, without versions.
TEST_F(VersionFaults, LeaveNoVersionOfAKilledWriteAfterTheWriteOfAnotherFile) {
    const std::size_t count = callsOfAWrite(*disk()).size();
    for (std::size_t number = 1; number <= count + 1; ++number) {
        SCOPED_TRACE("killed at call " + std::to_string(number));
        const auto over = disk();
        FaultyFileSystem faulty(*over);
        faulty.killFrom(number);
        writeOver(faulty);
        over->endProcess();
        ASSERT_FALSE(platform::AtomicWriter(*over).write("/d/trial", "trial", platform::Sync::None));
        platform::FileSystem::setCurrent(over.get());
        ASSERT_FALSE(platform::replaceFileOfMachine("/d/b.plist", bytesOf(1)));
        platform::FileSystem::setCurrent(nullptr);
        expectHistoryGoesOn(*over, {2, 3});
        expectNoneRepeated(*over);
    }
}

TEST_F(VersionFaults, LeaveNoVersionOfAKilledWriteWhenTheNextIsKilledToo) {
    const std::size_t link = callsUpToLastLink();
    for (std::size_t number = 1; number <= callsOfAWrite(*disk()).size() + 4; ++number) {
        SCOPED_TRACE("killed at call " + std::to_string(number));
        const auto over = disk();
        for (const std::size_t killed : {link + 1, number}) {
            FaultyFileSystem faulty(*over);
            faulty.killFrom(killed);
            writeOver(faulty);
            over->endProcess();
        }
        expectWhole(*over);
        expectHistoryGoesOn(*over, {2, 3});
        expectNoneRepeated(*over);
    }
}

TEST_F(VersionFaults, LeaveTheDocumentAndItsVersionsWholeAfterAPowerCut) {
    const std::size_t count = callsOfAWrite(*disk()).size();
    std::size_t ways = 0;
    for (std::size_t number = 1; number <= count + 1; ++number) {
        const auto over = disk();
        FaultyFileSystem faulty(*over);
        faulty.killFrom(number);
        writeOver(faulty);
        for (const auto& after : over->disksAfterPowerCut()) {
            SCOPED_TRACE("power cut at call " + std::to_string(number) + ", way " + std::to_string(++ways));
            expectWhole(*after);
            // Names in the folder of versions are not waited for: the last ones may be missing then.
            expectHistoryGoesOn(*after, {2});
        }
    }
    EXPECT_GT(ways, count);
}

TEST_F(VersionFaults, NeverFailAWriteThatWouldSucceedWithoutVersions) {
    const auto calls = callsOfAWrite(*disk());
    std::size_t harmless = 0;
    for (const std::errc error : {std::errc::io_error, std::errc::no_space_on_device,
                                  std::errc::permission_denied, std::errc::too_many_links})
        for (std::size_t number = 1; number <= calls.size(); ++number) {
            const bool ofVersions = calls[number - 1] == "link" || calls[number - 1] == "remove";
            SCOPED_TRACE(calls[number - 1] + ", call " + std::to_string(number));
            const auto over = disk();
            FaultyFileSystem faulty(*over);
            faulty.failCall(number, error);
            const platform::Update update = writeOver(faulty);
            expectWhole(*over);
            if (!ofVersions)
                continue;
            ++harmless;
            EXPECT_FALSE(update.error);
            EXPECT_EQ(over->contents(document), bytesOf(4));
        }
    EXPECT_GE(harmless, 16u);
}

TEST_F(VersionFaults, KeepNothingOfAWriteOnAFullDisk) {
    const std::size_t count = callsOfAWrite(*disk()).size();
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE("disk full from call " + std::to_string(number));
        const auto over = disk();
        FaultyFileSystem faulty(*over);
        faulty.fillDiskFrom(number);
        writeOver(faulty);
        expectWhole(*over);
        const Values values = valuesOn(*over);
        // A folder that could not be synchronised is a failure of a document that is in place.
        if (over->contents(document) != bytesOf(4)) {
            EXPECT_TRUE(std::ranges::find(values, 4) == values.end());
        }
        EXPECT_TRUE(std::ranges::find(values, 2) != values.end());
    }
}

TEST_F(VersionFaults, ChangeNothingByInterruptions) {
    const auto over = disk();
    FaultyFileSystem faulty(*over);
    faulty.interruptCalls();
    EXPECT_TRUE(writeOver(faulty).written);
    EXPECT_EQ(valuesOn(*over), (Values{1, 2, 3, 4}));
}

} // namespace
} // namespace wardlock::test
