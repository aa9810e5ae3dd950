#include "platform/versions/Version.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace wardlock::test {
namespace {

using platform::VersionAction;

const platform::Version sample = {
    .number = 42,
    .time = 1763787685123,
    .origin = {.place = "settings", .process = 0x1a2b3c4d, .action = VersionAction::Change, .of = 0},
    .digest = 0x0123456789abcdef};
constexpr const char* sampleName = "0000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef.plist";

class Version : public ::testing::Test {};

TEST_F(Version, HasANameThatDescribesIt) {
    EXPECT_EQ(sample.name(), sampleName);
    EXPECT_EQ(platform::Version::ofName(sampleName), sample);
}

TEST_F(Version, HasANameForEveryAction) {
    for (const VersionAction action : {VersionAction::Undo, VersionAction::Redo, VersionAction::Restore}) {
        platform::Version version = sample;
        version.origin.action = action;
        version.origin.of = 7;
        EXPECT_EQ(platform::Version::ofName(version.name()), version) << version.name();
    }
}

TEST_F(Version, HasANameForTheLargestNumbers) {
    platform::Version version = sample;
    version.number = platform::largestVersionNumber;
    version.origin = {.place = "abcdefghijklmnop",
                      .process = ~0u,
                      .action = VersionAction::Restore,
                      .of = platform::largestVersionNumber};
    version.digest = ~std::uint64_t(0);
    EXPECT_EQ(platform::Version::ofName(version.name()), version);
    EXPECT_LE(version.name().size(), 255u);
}

TEST_F(Version, IsDatedWithinTheBoundsOfItsName) {
    platform::Version version = sample;
    version.time = -5;
    EXPECT_EQ(platform::Version::ofName(version.name())->time, 0);
    version.time = std::int64_t(1) << 62;
    EXPECT_EQ(platform::Version::ofName(version.name())->time, 9'999'999'999'999);
}

TEST_F(Version, IsNotReadFromAnotherName) {
    for (const char* name :
         {"", ".plist", "notes.plist", "0000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef",
          "000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef.plist",
          "-000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef.plist",
          "0000000042-1763787685123-Settings-1a2b3c4d-change-0123456789abcdef.plist",
          "0000000042-1763787685123--1a2b3c4d-change-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4g-change-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-change7-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-undo-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-undo+1-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-undo12345678901-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-drop-0123456789abcdef.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef-.plist",
          "0000000042-1763787685123-settings-1a2b3c4d-change-0123456789abcdef.plist.plist"})
        EXPECT_EQ(platform::Version::ofName(name), std::nullopt) << name;
}

TEST_F(Version, IsOlderByItsNumberWhateverTheClockSaid) {
    platform::Version later = sample;
    later.number = 43;
    later.time = 1;
    EXPECT_TRUE(isOlder(sample, later));
    EXPECT_FALSE(isOlder(later, sample));
}

TEST_F(Version, IsOlderByItsTimeWhereTwoHaveOneNumber) {
    platform::Version later = sample;
    later.time += 1;
    later.digest = 0;
    EXPECT_TRUE(isOlder(sample, later));
    EXPECT_FALSE(isOlder(later, sample));
    EXPECT_FALSE(isOlder(sample, sample));
}

TEST_F(Version, HasTheDigestOfItsContentAlone) {
    using platform::versionDigest;
    EXPECT_EQ(versionDigest("<plist/>"), versionDigest("<plist/>"));
    EXPECT_NE(versionDigest("<plist/>"), versionDigest("<plist />"));
    EXPECT_NE(versionDigest(""), versionDigest(std::string_view("\0", 1)));
    EXPECT_NE(versionDigest("\x80"), versionDigest("\x81"));
    // Each byte counts, wherever it is, and so does the order of words.
    std::set<std::uint64_t> digests;
    std::size_t texts = 0;
    for (std::size_t length = 0; length <= 100; ++length) {
        std::string text(length, '\0');
        digests.insert(versionDigest(text));
        ++texts;
        for (char& byte : text)
            for (const char other : {'\1', '\x80'}) {
                byte = other;
                digests.insert(versionDigest(text));
                byte = '\0';
                ++texts;
            }
    }
    EXPECT_EQ(digests.size(), texts);
    EXPECT_NE(versionDigest("12345678abcdefgh"), versionDigest("abcdefgh12345678"));
    const std::string block = "12345678abcdefghABCDEFGH!!!!!!!!";
    EXPECT_NE(versionDigest(block + std::string(32, 'x')), versionDigest(std::string(32, 'x') + block));
}

} // namespace
} // namespace wardlock::test
