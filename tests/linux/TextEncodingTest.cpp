#include "linux/TextEncoding.h"

#include "platform/foundation/Utf8.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(TextEncoding, IsWhatTheServerSays) {
    EXPECT_EQ(decodedPage("Gr\xf6\xdf", "text/html; charset=ISO-8859-1"), "Größ");
    EXPECT_EQ(decodedPage("\xcf\xf0\xe8", "text/html;Charset=\"windows-1251\""), "При");
    EXPECT_EQ(decodedPage("<meta charset=utf-8>\xf6", "text/html; charset=latin1"), "<meta charset=utf-8>ö");
}

TEST(TextEncoding, IsElseWhatThePageSays) {
    EXPECT_EQ(decodedPage("<meta http-equiv=x content='text/html; charset=koi8-r'>\xd0", "text/html"),
              "<meta http-equiv=x content='text/html; charset=koi8-r'>п");
}

TEST(TextEncoding, IsElseUtf8OrWesternByTheBytes) {
    EXPECT_EQ(decodedPage("Größe", ""), "Größe");
    EXPECT_EQ(decodedPage("Gr\xf6\xdf"
                          "e \x80",
                          ""),
              "Größe €");
}

TEST(TextEncoding, IsThatOfTheByteOrderMarkBeforeAll) {
    EXPECT_EQ(decodedPage(std::string_view("\xff\xfe"
                                           "A\0\xac\x20",
                                           6),
                          "text/html; charset=latin1"),
              "A€");
}

TEST(TextEncoding, IsValidWhateverTheBytes) {
    for (const std::string_view bytes : {"\xff\xff\xfe\xfd", "\xf8\x88\x80\x80\x80", "\xed\xa0\x80",
                                         "\xf4\x90\x80\x80", "\xef\xbb\xbf\xff\xff\xfe\xfd"})
        EXPECT_TRUE(isValidUtf8(decodedPage(bytes, "text/html; charset=utf-8")));
}

TEST(TextEncoding, ReplacesWhatTheEncodingDoesNotHave) {
    EXPECT_EQ(decodedPage("a\xff"
                          "b\xe2\x82",
                          "text/html; charset=utf-8"),
              "a\uFFFDb\uFFFD\uFFFD");
    EXPECT_EQ(decodedPage("a\xe4", "text/html; charset=no-such-thing"), "aä");
}

} // namespace
} // namespace platform
