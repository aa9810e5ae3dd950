#include "linux/posix/LoopSources.h"

#include "linux/posix/FileDescriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

using platform::posix::FileDescriptor;
using platform::posix::LoopSource;
using platform::posix::LoopSources;

namespace wardlock::test {
namespace {

/// Waits for whatever descriptor it is given.
class Source : public LoopSource {
public:
    int descriptor() const override { return watched.get(); }
    short events() const override { return POLLIN; }
    std::optional<Clock::time_point> deadline() const override { return std::nullopt; }
    void process() override {}

    FileDescriptor watched;
    platform::Subscription turns = LoopSources::shared().add(*this);
};

/// The reading end of a pipe in which there is something to read.
FileDescriptor readable() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const FileDescriptor writing(ends[1]);
    EXPECT_EQ(write(writing.get(), "x", 1), 1);
    return FileDescriptor(ends[0]);
}

bool loopIsWoken() {
    pollfd watched{LoopSources::shared().descriptor(), POLLIN, 0};
    return poll(&watched, 1, 0) == 1;
}

TEST(LoopSources, WakeTheLoopForAnyOfThem) {
    Source first;
    Source second;
    LoopSources::shared().refresh();
    EXPECT_FALSE(loopIsWoken());
    second.watched = readable();
    LoopSources::shared().refresh();
    EXPECT_TRUE(loopIsWoken());
    second.watched.reset();
    LoopSources::shared().refresh();
    EXPECT_FALSE(loopIsWoken());
}

TEST(LoopSources, WatchADescriptorThatReusesAnotherSourcesNumber) {
    for (const bool laterGivesUp : {true, false}) {
        Source first;
        Source second;
        Source& loser = laterGivesUp ? second : first;
        Source& winner = laterGivesUp ? first : second;
        loser.watched = readable();
        LoopSources::shared().refresh();
        const int number = loser.watched.get();
        FileDescriptor next = readable();
        loser.watched.reset();
        // As a bus that comes back takes the lowest number that is free.
        winner.watched = FileDescriptor(fcntl(next.get(), F_DUPFD_CLOEXEC, number));
        ASSERT_EQ(winner.watched.get(), number);
        LoopSources::shared().refresh();
        EXPECT_TRUE(loopIsWoken()) << laterGivesUp;
    }
}

} // namespace
} // namespace wardlock::test
