// The file that was read last is not parsed again; what is returned is always what the file contains.
#include "platform/plist/PropertyListFile.h"
#include "tests/support/DeviceRootFixture.h"

#include <atomic>
#include <filesystem>
#include <thread>
#include <vector>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Dictionary;
using platform::dictionaryWithContentsOfFile;
using platform::MutableDictionary;
using platform::updateFile;

constexpr const char* file = "/var/mobile/Library/Preferences/a.plist";
constexpr const char* otherFile = "/var/mobile/Library/Preferences/b.plist";

std::string document(int number) {
    return "<plist><dict><key>number</key><integer>" + std::to_string(number) + "</integer></dict></plist>";
}

class RecentDocument : public DeviceRootFixture {
protected:
    static Dictionary with(int number) { return {{"number", number}}; }
};

TEST_F(RecentDocument, IsTheSameObjectWhileTheFileStaysTheSame) {
    writeFile(file, document(1));
    const auto first = dictionaryWithContentsOfFile(file);
    const auto second = dictionaryWithContentsOfFile(file);
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(first->isSameObject(*second));
}

TEST_F(RecentDocument, IsReadAgainAfterAChangeThatKeepsSizeAndTimes) {
    writeFile(file, document(1));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(1));
    const auto time = fs::last_write_time(onDisk(file));
    writeFile(file, document(2));
    fs::last_write_time(onDisk(file), time);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(2));
}

TEST_F(RecentDocument, IsReadAgainAfterAChangeFarFromItsBeginning) {
    const std::string before = "<plist><dict><key>a</key><string>" + std::string(100'000, 'a');
    const std::string after = "</string></dict></plist>";
    writeFile(file, before + 'b' + after);
    const auto first = dictionaryWithContentsOfFile(file);
    writeFile(file, before + 'c' + after);
    const auto second = dictionaryWithContentsOfFile(file);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->find("a")->string().back(), 'b');
    EXPECT_EQ(second->find("a")->string().back(), 'c');
}

TEST_F(RecentDocument, IsNotReturnedForAnotherFile) {
    writeFile(file, document(1));
    writeFile(otherFile, document(2));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(1));
    EXPECT_EQ(dictionaryWithContentsOfFile(otherFile), with(2));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(1));
}

TEST_F(RecentDocument, IsNotReturnedOnceTheFileIsMissingOrDamaged) {
    writeFile(file, document(1));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(1));
    writeFile(file, "damaged");
    EXPECT_FALSE(dictionaryWithContentsOfFile(file));
    writeFile(file, document(1));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(1));
    removeFile(file);
    EXPECT_FALSE(dictionaryWithContentsOfFile(file));
}

TEST_F(RecentDocument, IsReadAgainAfterAChangeOfThisProcess) {
    writeFile(file, document(1));
    const auto before = dictionaryWithContentsOfFile(file);
    const auto update = updateFile(file, [](MutableDictionary& entries) {
        entries.set("number", 2);
        return true;
    });
    EXPECT_TRUE(update.written);
    EXPECT_EQ(dictionaryWithContentsOfFile(file), with(2));
    EXPECT_EQ(before, with(1));
}

TEST_F(RecentDocument, IsReadByManyThreadsAtATime) {
    writeFile(file, document(1));
    writeFile(otherFile, document(2));
    std::atomic<int> wrong = 0;
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 4; ++reader)
        readers.emplace_back([&wrong, reader] {
            for (int i = 0; i < 100; ++i) {
                const bool first = (i + reader) % 3 != 0;
                if (dictionaryWithContentsOfFile(first ? file : otherFile) != with(first ? 1 : 2))
                    ++wrong;
            }
        });
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace wardlock::test
