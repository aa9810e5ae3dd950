#include "settings/Log.h"

#include "platform/files/FileSystem.h"
#include "platform/runtime/NSOperationQueue.h"
#include "tests/support/SettingsFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

using namespace wardlock;
using platform::FileSystem;
using platform::NSOperationQueue;

namespace {

class Log : public test::SettingsFixture {
protected:
    ~Log() override { FileSystem::setCurrent(nullptr); }

    static void runQueue() { NSOperationQueue::mainQueue().drain(); }
};

} // namespace

TEST_F(Log, CreatesTheFileForTheFirstEntry) {
    jLog("%@", "a");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\na");
}

TEST_F(Log, KeepsItsEntriesInCallOrder) {
    jLog("first %d", 1);
    jLog("second %@", "2");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nfirst 1\nsecond 2");
}

TEST_F(Log, WritesNothingBeforeTheMainQueueRuns) {
    jLog("later");
    EXPECT_FALSE(exists(logPath));
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nlater");
}

TEST_F(Log, FormatsAtTheTimeOfTheCall) {
    std::string text = "before";
    jLog("%@", text);
    text = "after!";
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nbefore");
}

TEST_F(Log, AppendsToAnExistingLog) {
    writeFile(logPath, "\nold \xe2\x82\xac");
    jLog("new");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nold \xe2\x82\xac\nnew");
}

TEST_F(Log, ClearsALogThatIsNotUtf8) {
    writeFile(logPath, "\nold \xff\xfe bytes");
    jLog("new");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nnew");
}

TEST_F(Log, ClearsALogThatEndsInsideACharacter) {
    writeFile(logPath, "\nold \xe2\x82");
    jLog("new");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nnew");
}

TEST_F(Log, ValidatesTheWholeLogAtEachEntry) {
    jLog("one");
    runQueue();
    writeFile(logPath, readFile(logPath) + "\xff");
    jLog("two");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\ntwo");
}

TEST_F(Log, SurvivesAMessageThatIsNotUtf8) {
    jLog("%@", "broken \xff\xc3(\xe2\x82 end");
    jLog("next");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nbroken \xef\xbf\xbd\xef\xbf\xbd(\xef\xbf\xbd\xef\xbf\xbd end\nnext");
}

TEST_F(Log, KeepsLettersOfAllLengthsInAMessage) {
    const std::string letters = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80";
    jLog("%@", letters);
    jLog("%@", letters + "\xff");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\n" + letters + "\n" + letters + "\xef\xbf\xbd");
}

TEST_F(Log, KeepsLineFeedsAndConversionsInsideAMessage) {
    jLog("%@", "two\nlines, 100%");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\ntwo\nlines, 100%");
}

TEST_F(Log, LosesOnlyTheEntryThatCannotBeWritten) {
    makeFolder(logPath);
    jLog("lost");
    runQueue();
    EXPECT_TRUE(std::filesystem::is_directory(onDisk(logPath)));
    std::filesystem::remove(onDisk(logPath));
    jLog("kept");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nkept");
}

TEST_F(Log, CreatesNoFolder) {
    std::filesystem::remove_all(onDisk("/var/mobile"));
    jLog("lost");
    runQueue();
    EXPECT_FALSE(exists("/var/mobile"));
}

TEST_F(Log, KeepsTheLogWhereItCannotBeOpenedForWriting) {
    writeFile(logPath, "\nold");
    test::FaultyFileSystem files(FileSystem::current());
    files.failEvery("openToAppend", std::errc::permission_denied);
    FileSystem::setCurrent(&files);
    jLog("lost");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nold");
}

TEST_F(Log, KeepsALogThatIsTooLongToBeValidated) {
    writeFile(logPath, "\nold");
    test::FaultyFileSystem files(FileSystem::current());
    files.failEvery("readFile", std::errc::file_too_large);
    FileSystem::setCurrent(&files);
    jLog("new");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nold\nnew");
}

TEST_F(Log, ValidatesALogOfSixteenMegabytesAndKeepsALongerOneUnread) {
    constexpr std::size_t bound = std::size_t{16} << 20;
    writeFile(logPath, "\xff");
    std::filesystem::resize_file(onDisk(logPath), bound + 1);
    jLog("kept");
    runQueue();
    EXPECT_EQ(std::filesystem::file_size(onDisk(logPath)), bound + 1 + 5);
    EXPECT_EQ(readFile(logPath).substr(bound + 1), "\nkept");

    std::filesystem::resize_file(onDisk(logPath), bound);
    jLog("replaced");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nreplaced");
}

TEST_F(Log, ReplacesALogThatCannotBeRead) {
    writeFile(logPath, "\nold");
    test::FaultyFileSystem files(FileSystem::current());
    files.failEvery("readFile", std::errc::permission_denied);
    FileSystem::setCurrent(&files);
    jLog("new");
    runQueue();
    EXPECT_EQ(readFile(logPath), "\nnew");
}

TEST_F(Log, MakesALogReadableThatItsOwnerMayNotRead) {
    constexpr std::uint32_t user = 501;
    test::MemoryFileSystem files;
    files.actAs(user, user);
    files.addFolder(onDisk("/var/mobile"));
    files.addFile(onDisk(logPath), "\nold", 0200, user, user);
    FileSystem::setCurrent(&files);
    jLog("one");
    jLog("two");
    runQueue();
    EXPECT_EQ(files.textOf(onDisk(logPath)), "\none\ntwo");
}

TEST_F(Log, WritesTheWholeEntryHoweverShortTheWrites) {
    test::FaultyFileSystem files(FileSystem::current());
    files.limitWrites(3);
    files.interruptCalls();
    FileSystem::setCurrent(&files);
    jLog("%@", std::string(100, 'x'));
    runQueue();
    EXPECT_EQ(readFile(logPath), "\n" + std::string(100, 'x'));
}

TEST_F(Log, OpensTheFileForWritingOnlyWhenItExists) {
    test::MemoryFileSystem files;
    files.addFolder(onDisk("/var/mobile"));
    FileSystem::setCurrent(&files);
    jLog("a");
    runQueue();
    EXPECT_EQ(files.contents(onDisk(logPath)), "\na");
    EXPECT_EQ(files.openHandles(), 0U);

    files.forgetCalls();
    jLog("b");
    runQueue();
    EXPECT_EQ(files.contents(onDisk(logPath)), "\na\nb");
    for (const std::string& call : files.calls())
        EXPECT_NE(call.substr(0, 6), "rename") << "an existing log is appended to, not replaced";
}

TEST_F(Log, AcceptsEntriesFromAnyThreadWithoutMixingThem) {
    constexpr int threadCount = 8;
    constexpr int entriesEach = 50;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back([thread] {
            for (int entry = 0; entry < entriesEach; ++entry)
                jLog("%d:%d", thread, entry);
        });
    for (std::thread& thread : threads)
        thread.join();
    runQueue();

    const std::string log = readFile(logPath);
    std::array<int, threadCount> next{};
    std::size_t at = 0;
    while (at < log.size()) {
        ASSERT_EQ(log[at], '\n');
        const std::size_t end = std::min(log.find('\n', at + 1), log.size());
        const std::string entry = log.substr(at + 1, end - at - 1);
        const int thread = std::stoi(entry);
        ASSERT_LT(thread, threadCount);
        EXPECT_EQ(entry, std::to_string(thread) + ":" + std::to_string(next[thread]++));
        at = end;
    }
    for (const int count : next)
        EXPECT_EQ(count, entriesEach);
}

TEST_F(Log, WritesWhileOtherThreadsLog) {
    constexpr int entries = 200;
    std::thread writer([] {
        for (int entry = 0; entry < entries; ++entry)
            jLog("%d", entry);
    });
    for (int round = 0; round < 50; ++round)
        runQueue();
    writer.join();
    runQueue();
    std::string expected;
    for (int entry = 0; entry < entries; ++entry)
        expected += "\n" + std::to_string(entry);
    EXPECT_EQ(readFile(logPath), expected);
}
