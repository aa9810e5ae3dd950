#include "platform/files/StringFile.h"

#include "tests/support/DeviceRootFixture.h"

#include <sys/stat.h>

namespace wardlock::test {
namespace {

class StringFile : public DeviceRootFixture {
protected:
    std::optional<std::string> reading(std::string_view bytes) {
        writeFile("/tmp/text", bytes);
        return platform::stringWithContentsOfFile(onDisk("/tmp/text"));
    }
};

TEST_F(StringFile, ReturnsItsWholeTextUnchanged) {
    EXPECT_EQ(reading("Größe\r\n\xE2\x82\xAC\n"), "Größe\r\n\xE2\x82\xAC\n");
    EXPECT_EQ(reading(""), "");
}

TEST_F(StringFile, DropsTheByteOrderMarkAtItsBeginning) {
    EXPECT_EQ(reading("\xEF\xBB\xBF"
                      "Version 1"),
              "Version 1");
    EXPECT_EQ(reading("1\xEF\xBB\xBF"
                      "2"),
              "1\xEF\xBB\xBF"
              "2")
        << "elsewhere it is a character of the text";
    EXPECT_EQ(reading("\xEF\xBB\xBF"), "");
}

TEST_F(StringFile, IsRefusedUnlessItIsUtf8) {
    EXPECT_EQ(reading("Gr\xf6\xdf"), std::nullopt);
}

TEST_F(StringFile, IsRefusedWhenMissingOrAFolderOrAPipe) {
    EXPECT_EQ(platform::stringWithContentsOfFile(onDisk("/tmp/none")), std::nullopt);
    EXPECT_EQ(platform::stringWithContentsOfFile(onDisk("/tmp")), std::nullopt);
    ASSERT_EQ(mkfifo(onDisk("/tmp/pipe").c_str(), 0600), 0);
    EXPECT_EQ(platform::stringWithContentsOfFile(onDisk("/tmp/pipe")), std::nullopt);
}

} // namespace
} // namespace wardlock::test
