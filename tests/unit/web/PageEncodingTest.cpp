#include "linux/web/PageEncoding.h"

#include "linux/web/EncodingLabels.h"
#include "platform/base/Utf8.h"

#include <gtest/gtest.h>

namespace platform::web {
namespace {

TEST(PageEncoding, IsTheEncodingThatTheServerNames) {
    EXPECT_EQ(decodedPage("Gr\xf6\xdf", "text/html; charset=ISO-8859-1"), "Größ");
    EXPECT_EQ(decodedPage("\xcf\xf0\xe8", "text/html;Charset=\"windows-1251\""), "При");
    EXPECT_EQ(decodedPage("<meta charset=utf-8>\xf6", "text/html; charset=latin1"), "<meta charset=utf-8>ö");
}

TEST(PageEncoding, IsOtherwiseTheEncodingThatThePageNames) {
    EXPECT_EQ(
        decodedPage("<meta http-equiv=content-type content='text/html; charset=koi8-r'>\xd0", "text/html"),
        "<meta http-equiv=content-type content='text/html; charset=koi8-r'>п");
}

TEST(PageEncoding, IsNamedByAMetaElementOnly) {
    for (const char* beginning :
         {"<!-- <meta charset=koi8-r> -->", "<p title='charset=koi8-r'>", "charset=koi8-r",
          "<script>'<meta charset=koi8-r>'</script>", "<meta name=charset content='charset=koi8-r'>",
          "<title><meta charset=koi8-r></title>", "<meta charset='no-such-thing'>", "<meta charset=utf-7>"})
        EXPECT_EQ(decodedPage(std::string(beginning) + "\xd0", ""), std::string(beginning) + "Ð");
    EXPECT_EQ(
        decodedPage("<META content='text/html;\ncharset = \"koi8-r\"' HTTP-EQUIV=Content-Type>\xd0", ""),
        "<META content='text/html;\ncharset = \"koi8-r\"' HTTP-EQUIV=Content-Type>п");
    EXPECT_EQ(decodedPage("<meta charset=utf-16>ü", ""), "<meta charset=utf-16>ü");
    EXPECT_EQ(decodedText("<meta charset=koi8-r>\xd0", ""), "<meta charset=koi8-r>Ð");
}

TEST(PageEncoding, IsNotAnEncodingThatOnlyTheConverterKnows) {
    for (const char* label :
         {"utf-7", "UTF-8//IGNORE", "ibm037", "ucs-4", "", " ", "utf-8 utf8", "no-such-thing"})
        EXPECT_EQ(encodingOf(label), nullptr) << label;
    EXPECT_EQ(decodedPage("+ADw-b+AD4-", "text/html; charset=utf-7"), "+ADw-b+AD4-");
}

TEST(PageEncoding, ReadsEveryEncodingOfTheWeb) {
    struct Sample {
        const char* label;
        std::string_view bytes;
        const char* text;
    };
    for (const Sample& sample :
         std::initializer_list<Sample>{{"utf8", "\xc3\xa4", "ä"},
                                       {"ibm866", "\x80", "А"},
                                       {"latin2", "\xb1", "ą"},
                                       {"latin3", "\xa1", "Ħ"},
                                       {"latin4", "\xb3", "ŗ"},
                                       {"cyrillic", "\xb0", "А"},
                                       {"arabic", "\xc7", "ا"},
                                       {"greek", "\xc1", "Α"},
                                       {"logical", "\xe0", "א"},
                                       {"latin6", "\xa2", "Ē"},
                                       {"iso-8859-13", "\xe0", "ą"},
                                       {"iso-8859-14", "\xa1", "Ḃ"},
                                       {"iso-8859-15", "\xa4", "€"},
                                       {"iso-8859-16", "\xa4", "€"},
                                       {"koi8-r", "\xd0", "п"},
                                       {"koi8-u", "\xa4", "є"},
                                       {"macintosh", "\x80", "Ä"},
                                       {"tis-620", "\xa1", "ก"},
                                       {"cp1250", "\x9c", "ś"},
                                       {"cp1251", "\xcf", "П"},
                                       {"latin1", "\x80", "€"},
                                       {"cp1253", "\xc1", "Α"},
                                       {"latin5", "\xfe", "ş"},
                                       {"cp1255", "\xe0", "א"},
                                       {"cp1256", "\xc7", "ا"},
                                       {"cp1257", "\xe0", "ą"},
                                       {"cp1258", "\xd0", "Đ"},
                                       {"x-mac-cyrillic", "\x80", "А"},
                                       {"gb2312", "\xc4\xe3", "你"},
                                       {"gb18030", "\x81\x30\x84\x36", "¥"},
                                       {"big5", "\xa7\x41", "你"},
                                       {"euc-jp", "\xa4\xa2", "あ"},
                                       {"iso-2022-jp", "\x1b$B$\"\x1b(B", "あ"},
                                       {"sjis", "\x82\xa0\x87\x40", "あ①"},
                                       {"euc-kr", "\xb0\xa1\x81\x41", "가갂"},
                                       {"utf-16be", std::string_view("\x20\xac\0A", 4), "€A"},
                                       {"utf-16",
                                        std::string_view("\xac\x20"
                                                         "A\0",
                                                         4),
                                        "€A"}})
        EXPECT_EQ(decodedPage(sample.bytes, std::string("text/html; charset=") + sample.label), sample.text)
            << sample.label;
}

TEST(PageEncoding, ContinuesAfterHalfACharacter) {
    EXPECT_EQ(decodedPage(std::string_view("\xff\xfe\x00\xd8"
                                           "A\0",
                                           6),
                          ""),
              "\uFFFDA");
}

TEST(PageEncoding, IsOtherwiseUtf8OrWesternByTheBytes) {
    EXPECT_EQ(decodedPage("Größe", ""), "Größe");
    EXPECT_EQ(decodedPage("Gr\xf6\xdf"
                          "e \x80",
                          ""),
              "Größe €");
}

TEST(PageEncoding, IsNamedByTheByteOrderMarkFirst) {
    EXPECT_EQ(decodedPage(std::string_view("\xff\xfe"
                                           "A\0\xac\x20",
                                           6),
                          "text/html; charset=latin1"),
              "A€");
}

TEST(PageEncoding, IsValidWhateverTheBytes) {
    for (const std::string_view bytes : {"\xff\xff\xfe\xfd", "\xf8\x88\x80\x80\x80", "\xed\xa0\x80",
                                         "\xf4\x90\x80\x80", "\xef\xbb\xbf\xff\xff\xfe\xfd"})
        EXPECT_TRUE(isValidUtf8(decodedPage(bytes, "text/html; charset=utf-8")));
}

TEST(PageEncoding, ReplacesWhatTheEncodingDoesNotHave) {
    EXPECT_EQ(decodedPage("a\xff"
                          "b\xe2\x82",
                          "text/html; charset=utf-8"),
              "a\uFFFDb\uFFFD\uFFFD");
    EXPECT_EQ(decodedPage("a\xe4", "text/html; charset=no-such-thing"), "aä");
}

} // namespace
} // namespace platform::web
