// Two writers at once: no document that anyone wrote is missing, and the order is the one in which they
// wrote.

#include "platform/files/DeviceRoot.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/versions/VersionFixture.h"

#include <algorithm>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

using Values = std::vector<int>;

class TwoWriters : public VersionFixture {
protected:
    /// The value of the document when another process writes 2 before the first call of that function.
    int writeBoth(const std::string& function) {
        memory.addFile(document, bytesOf(0), 0600, parent, parent);
        write(1);
        bool wrote = false;
        files.before(function, [&] {
            platform::FileSystem::setCurrent(&memory);
            wrote = write(2).written;
            platform::FileSystem::setCurrent(&files);
        });
        EXPECT_TRUE(write(3).written);
        EXPECT_TRUE(wrote) << function << " is not called";
        const auto root = platform::propertyListWithData(*memory.contents(document));
        return static_cast<int>(root->dictionary().find("value")->integer());
    }
};

TEST_F(TwoWriters, LoseNoVersionAtAnyCallOfTheOther) {
    for (const char* function : {"readFile", "status", "list", "create", "lock", "write", "sync", "close",
                                 "link", "rename", "syncFolder"}) {
        SCOPED_TRACE(function);
        const int last = writeBoth(function);
        meet();
        const Values all = values();
        EXPECT_EQ(all.back(), last);
        for (const int value : {0, 1, 2, 3})
            EXPECT_TRUE(std::ranges::find(all, value) != all.end()) << value;
        for (const auto& version : versions())
            folder().remove(version);
        ASSERT_FALSE(memory.remove(document));
    }
}

TEST_F(TwoWriters, LoseNoVersionInTwoProcesses) {
    constexpr int each = 45;
    const TemporaryFolder disk;
    const std::string path = disk / "a.plist";
    platform::FileSystem::setCurrent(nullptr);
    platform::setVersionClock(nullptr);
    const auto writeAll = [&](int first) {
        for (int value = first; value < first + each; ++value)
            if (!platform::updateFileOfMachine(path,
                                               [value](platform::MutableDictionary& entries) {
                                                   entries.set("value", value);
                                                   return true;
                                               },
                                               platform::Sync::None, {})
                     .written)
                return false;
        return true;
    };
    const pid_t other = ::fork();
    ASSERT_GE(other, 0);
    if (other == 0)
        ::_exit(writeAll(1000) ? 0 : 1);
    EXPECT_TRUE(writeAll(2000));
    int status = -1;
    ASSERT_EQ(::waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);

    meet(platform::FileSystem::current(), path);
    platform::VersionFolder kept(platform::FileSystem::current(), path);
    std::vector<platform::Version> found;
    ASSERT_FALSE(kept.list(found));
    std::multiset<std::int64_t> written;
    std::uint64_t last = 0;
    for (const auto& version : found) {
        EXPECT_GE(version.number, last);
        last = version.number;
        if (const auto bytes = kept.read(version, 10000))
            written.insert(platform::propertyListWithData(*bytes)->dictionary().find("value")->integer());
    }
    for (const int first : {1000, 2000})
        for (int value = first; value < first + each; ++value)
            EXPECT_TRUE(written.contains(value)) << value;
    std::string now;
    ASSERT_FALSE(platform::FileSystem::current().readFile(path, 10000, now));
    EXPECT_EQ(kept.read(found.back(), 10000), now);
}

} // namespace
} // namespace wardlock::test
