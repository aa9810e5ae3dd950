// A clock that was wrong removes no recent version.

#include "tests/unit/versions/VersionFixture.h"

#include <algorithm>
#include <numeric>

namespace wardlock::test {
namespace {

using Values = std::vector<int>;

constexpr std::int64_t day = std::int64_t{24} * 60 * 60 * 1000;

class WrongClock : public VersionFixture {
protected:
    static Values upTo(int last) {
        Values all(static_cast<std::size_t>(last));
        std::iota(all.begin(), all.end(), 1);
        return all;
    }
    /// Writes with the clock at another time, which is corrected afterwards.
    void writeAt(std::int64_t wrong, int first, int last) {
        const std::int64_t right = now;
        now = wrong;
        writeMany(first, last);
        now = right;
    }
};

TEST_F(WrongClock, RemovesNothingWhenItStartedAt1970Once) {
    writeMany(1, 3);
    writeAt(5000, 4, 4);
    writeMany(5, 6);
    EXPECT_EQ(values(), upTo(6));
    now += 3 * day;
    writeMany(7, 8);
    EXPECT_EQ(values(), upTo(8));
}

TEST_F(WrongClock, RemovesNothingWhenItStartedAt1970BeforeTheFirstVersion) {
    writeAt(5000, 1, 3);
    writeMany(4, 5);
    now += 3 * day;
    writeMany(6, 7);
    EXPECT_EQ(values(), upTo(7));
}

TEST_F(WrongClock, RemovesNothingWhenItWasAHundredDaysSlow) {
    writeMany(1, 3);
    writeAt(now - 100 * day, 4, 5);
    writeMany(6, 7);
    now += 3 * day;
    writeMany(8, 9);
    EXPECT_EQ(values(), upTo(9));
}

TEST_F(WrongClock, RemovesNothingWhenItWasSlowForTheSecondVersion) {
    write(1);
    writeAt(now - 100 * day, 2, 2);
    writeMany(3, 4);
    now += 3 * day;
    writeMany(5, 6);
    EXPECT_EQ(values(), upTo(6));
}

TEST_F(WrongClock, RemovesNothingWhileItIsSlow) {
    writeMany(1, 2);
    now += 80 * day;
    writeMany(3, 5);
    for (const std::int64_t behind : {100 * day, 60 * day, 30 * day}) {
        now -= behind;
        writeMany(6, 7);
        now += 2 * day;
        writeMany(8, 9);
        now += behind - 2 * day;
    }
    now += 3 * day;
    writeMany(10, 11);
    const Values all = values();
    for (const int value : upTo(11))
        EXPECT_TRUE(std::ranges::find(all, value) != all.end()) << value;
}

TEST_F(WrongClock, RemovesNothingWhenItWasAheadForADay) {
    writeMany(1, 3);
    writeAt(now + 365 * day, 4, 5);
    EXPECT_EQ(values(), upTo(5));
    writeMany(6, 7);
    now += 3 * day;
    writeMany(8, 9);
    EXPECT_EQ(values(), upTo(9));
}

TEST_F(WrongClock, StretchesTheTimeOfAVersionByNoMoreThanThirtyDaysOfAPause) {
    writeMany(1, 3);
    now += 50 * day;
    write(4);
    now += 41 * day;
    write(5);
    EXPECT_EQ(values(), upTo(5)) << "a pause of 41 days is not confirmed yet";
    now += 2 * day;
    write(6);
    EXPECT_EQ(values(), (Values{3, 4, 5, 6}));
}

} // namespace
} // namespace wardlock::test
