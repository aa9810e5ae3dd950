#include "cli/doctor/CharacterChecks.h"
#include "cli/doctor/FontCharacters.h"
#include "cli/doctor/FontFolders.h"
#include "tests/support/DeviceRootFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

std::string number16(unsigned number) {
    return {static_cast<char>(number >> 8 & 0xff), static_cast<char>(number & 0xff)};
}

std::string number32(unsigned number) {
    return number16(number >> 16) + number16(number & 0xffff);
}

/// A table of characters with one group: those from first to last, whose pictures begin with number 1.
std::string groups(unsigned first, unsigned last) {
    return number16(12) + number16(0) + number32(28) + number32(0) + number32(1) + number32(first) +
           number32(last) + number32(1);
}

/// A table with one segment of 16-bit characters, and the one that ends every such table.
std::string segments(unsigned first, unsigned last, unsigned added, unsigned offset = 0,
                     const std::string& pictures = "") {
    return number16(4) + number16(32) + number16(0) + number16(4) + std::string(6, '\0') + number16(last) +
           number16(0xffff) + number16(0) + number16(first) + number16(0xffff) + number16(added) +
           number16(1) + number16(offset) + number16(0) + pictures;
}

/// A font with another table and this table of characters, from `start` of its file.
std::string font(const std::string& characters, unsigned start = 0) {
    const std::string table =
        number16(0) + number16(1) + number16(0) + number16(4) + number32(12) + characters;
    const unsigned end = start + 12 + 2 * 16;
    return number32(0x10000) + number16(2) + std::string(6, '\0') + "OS/2" + number32(0) + number32(0) +
           number32(0) + "cmap" + number32(0) + number32(end) + number32(unsigned(table.size())) + table;
}

constexpr unsigned girl = 0x1f467;
constexpr unsigned han = 0x6f22;

class DoctorFonts : public DeviceRootFixture {
protected:
    bool shows(const std::string& bytes, char32_t character) const {
        writeFile("/fonts/Some.ttf", bytes);
        return cli::fontShows(onDisk("/fonts/Some.ttf"), character);
    }
    void addFont(const std::string& name, const std::string& characters) const {
        writeFile("/fonts/" + name, font(characters));
    }
    std::vector<std::string> folders() const { return {onDisk("/none"), onDisk("/fonts")}; }
};

TEST_F(DoctorFonts, ShowTheCharactersOfTheirGroups) {
    EXPECT_TRUE(shows(font(groups(girl, girl)), girl));
    EXPECT_TRUE(shows(font(groups(girl - 5, girl + 5)), girl));
    EXPECT_FALSE(shows(font(groups(girl + 1, girl + 5)), girl));
    EXPECT_FALSE(shows(font(groups(girl - 5, girl - 1)), girl));
}

TEST_F(DoctorFonts, ShowTheCharactersOfTheirSegments) {
    EXPECT_TRUE(shows(font(segments(han - 1, han, 1)), han));
    EXPECT_FALSE(shows(font(segments(han + 1, han + 2, 1)), han));
    // Picture 0 stands for a missing one.
    EXPECT_FALSE(shows(font(segments(han, han, 0x10000 - han)), han));
    // The list of pictures is behind the two offsets.
    EXPECT_TRUE(shows(font(segments(han, han + 1, 0, 4, number16(7) + number16(0))), han));
    EXPECT_FALSE(shows(font(segments(han - 1, han, 0, 4, number16(7) + number16(0))), han));
    // The lower half of a character that has more than 16 bits.
    EXPECT_FALSE(shows(font(segments(girl & 0xffff, girl & 0xffff, 1)), girl));
}

TEST_F(DoctorFonts, AreReadInCollectionsToo) {
    const std::string head = "ttcf" + number32(0x10000) + number32(1) + number32(16);
    EXPECT_TRUE(shows(head + font(groups(girl, girl), unsigned(head.size())), girl));
}

TEST_F(DoctorFonts, ShowNothingWhenTheyAreDamaged) {
    const std::string whole = font(groups(girl, girl));
    for (std::size_t size = 0; size < whole.size() - 3; ++size)
        EXPECT_FALSE(shows(whole.substr(0, size), girl)) << size;
    EXPECT_FALSE(shows("not a font at all, but long enough to be one", girl));
    EXPECT_FALSE(cli::fontShows(onDisk("/none"), girl));
    EXPECT_FALSE(cli::fontShows(onDisk("/fonts"), girl));
}

TEST_F(DoctorFonts, AreFoundByACharacterWhateverTheirNames) {
    addFont("deep/Nameless.otf", groups(girl, girl));
    writeFile("/fonts/Emoji.txt", font(groups(han, han)));
    EXPECT_EQ(cli::fontFileFor(girl, folders()), onDisk("/fonts/deep/Nameless.otf"));
    EXPECT_EQ(cli::fontFileFor(han, folders()), "");
}

TEST_F(DoctorFonts, AreRecommendedForEmoji) {
    // Older fonts have the faces alone.
    addFont("Faces.ttf", groups(0x1f600, 0x1f640));
    const auto without = cli::emojiIn(folders());
    EXPECT_FALSE(without.works);
    EXPECT_EQ(without.need, cli::CheckResult::Need::Optional);
    EXPECT_EQ(without.advice, std::vector<std::string>{"Install the package fonts-noto-color-emoji."});
    EXPECT_EQ(without.facts["path"], nullptr);
    addFont("People.ttf", groups(0x1f400, 0x1f4ff));
    const auto with = cli::emojiIn(folders());
    EXPECT_TRUE(with.works);
    EXPECT_EQ(with.text, onDisk("/fonts/People.ttf"));
}

TEST_F(DoctorFonts, AreRecommendedForEastAsianLetters) {
    addFont("Han.ttf", segments(0x4e00, 0x9fff, 1));
    addFont("Kana.ttf", segments(0x3040, 0x30ff, 1));
    const auto without = cli::eastAsianLettersIn(folders());
    EXPECT_FALSE(without.works);
    EXPECT_EQ(without.text, "no installed font shows those of Korean; names have boxes in their place");
    EXPECT_EQ(without.advice, std::vector<std::string>{"Install the package fonts-noto-cjk."});
    addFont("Hangul.ttf", segments(0xac00, 0xd7a3, 1));
    const auto with = cli::eastAsianLettersIn(folders());
    EXPECT_TRUE(with.works);
    EXPECT_EQ(with.facts["Chinese"], onDisk("/fonts/Han.ttf"));
    EXPECT_EQ(with.facts["Korean"], onDisk("/fonts/Hangul.ttf"));
}

} // namespace
} // namespace wardlock::test
