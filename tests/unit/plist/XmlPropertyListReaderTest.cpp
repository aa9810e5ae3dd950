#include "platform/plist/PropertyList.h"
#include "tests/unit/plist/PropertyListReading.h"

#include <gtest/gtest.h>

#include <cmath>

namespace platform {
namespace {

using wardlock::test::reading;
using wardlock::test::readingOfXml;

constexpr const char* header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

TEST(XmlReader, ReadsEveryKind) {
    EXPECT_EQ(readingOfXml(
                  "<dict><key>b</key><true/><key>i</key><integer>7</integer><key>r</key><real>1.5</real>"
                  "<key>s</key><string>x</string><key>d</key><data>YWJj</data>"
                  "<key>t</key><date>2001-01-02T00:00:01Z</date><key>a</key><array><false/></array></dict>"),
              "{\"b\": true, \"i\": 7, \"r\": real 1.5, \"s\": \"x\", \"d\": <616263>, \"t\": date 86401, "
              "\"a\": [false]}");
}

TEST(XmlReader, TakesAnyKindForTheRoot) {
    EXPECT_EQ(readingOfXml("<string>x</string>"), "\"x\"");
    EXPECT_EQ(readingOfXml("<true/>"), "true");
}

TEST(XmlReader, NeedsNoDeclarationDoctypeOrWrapper) {
    EXPECT_EQ(reading("<dict><key>a</key><integer>1</integer></dict>"), "{\"a\": 1}");
    EXPECT_EQ(reading(std::string(header) + "<array/>"), "[]");
}

TEST(XmlReader, PassesOverADoctype) {
    EXPECT_EQ(
        reading(std::string(header) +
                "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\"><plist version=\"1.0\"><true/></plist>"),
        "true");
    EXPECT_EQ(reading("<!DOCTYPE plist SYSTEM \"file:///a>b[c\"><plist><true/></plist>"), "true");
}

TEST(XmlReader, RefusesADoctypeWithDeclarationsOfItsOwn) {
    EXPECT_EQ(reading("<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>x</string></plist>"),
              "no document");
    EXPECT_EQ(reading("<!DOCTYPE plist []><plist><string>x</string></plist>"), "no document");
}

TEST(XmlReader, RefusesASecondDoctype) {
    EXPECT_EQ(reading("<!DOCTYPE plist><!DOCTYPE plist><plist><true/></plist>"), "no document");
}

TEST(XmlReader, PassesOverCommentsAndInstructionsBetweenElements) {
    EXPECT_EQ(reading("<!-- a --><?pi x?><plist><!-- <true/> --><dict><?x?><key>a</key><!-- - -> -->"
                      "<true/><!----></dict><!-- b --></plist><!-- c --> <?d?>\n"),
              "{\"a\": true}");
}

TEST(XmlReader, LeavesCommentsAndInstructionsOutOfText) {
    EXPECT_EQ(readingOfXml("<string>a<!-- & < -->b<?x & ?>c</string>"), "\"abc\"");
}

TEST(XmlReader, TakesAnyWhiteSpaceBetweenElements) {
    EXPECT_EQ(reading("\r\n \t<plist>\r\n<array> <true/>\t\r\n</array >\n</plist\t>\r\n"), "[true]");
}

TEST(XmlReader, RefusesTextBetweenElements) {
    EXPECT_EQ(readingOfXml("<array>x<true/></array>"), "no document");
    EXPECT_EQ(readingOfXml("x<true/>"), "no document");
    EXPECT_EQ(readingOfXml("<dict><key>a</key>b<true/></dict>"), "no document");
}

TEST(XmlReader, PassesOverAttributes) {
    EXPECT_EQ(reading("<plist version='1.0' x=\"a>b/>\"><array id=\"1\"><string lang = 'e/>n' >x</string>"
                      "<true  /><dict a='' /></array></plist>"),
              "[\"x\", true, {}]");
}

TEST(XmlReader, TakesEmptyContainersInBothForms) {
    EXPECT_EQ(readingOfXml("<array><array/><array></array><dict/><dict></dict><array /></array>"),
              "[[], [], {}, {}, []]");
}

TEST(XmlReader, TakesEmptyStringsAndDataInBothForms) {
    EXPECT_EQ(readingOfXml("<array><string/><string></string><data/><data></data><data> \n</data></array>"),
              "[\"\", \"\", <>, <>, <>]");
    EXPECT_EQ(readingOfXml("<dict><key/><true/></dict>"), "{\"\": true}");
}

TEST(XmlReader, TakesBooleansWithAnEndTag) {
    EXPECT_EQ(readingOfXml("<array><true></true><false></false></array>"), "[true, false]");
    EXPECT_EQ(readingOfXml("<true>x</true>"), "no document");
}

TEST(XmlReader, RefusesEmptyNumbersAndDates) {
    for (const char* element :
         {"<integer/>", "<integer></integer>", "<real/>", "<real></real>", "<date/>", "<date></date>"})
        EXPECT_EQ(readingOfXml(element), "no document") << element;
}

TEST(XmlReader, ResolvesTheFiveNamedReferences) {
    EXPECT_EQ(readingOfXml("<string>&lt;&gt;&amp;&apos;&quot;</string>"), "\"<>&'\\x22\"");
}

TEST(XmlReader, ResolvesNumericReferences) {
    EXPECT_EQ(readingOfXml("<string>&#65;&#x42;&#x00043;&#x20ac;&#8364;&#x1F600;&#x10FFFF;</string>"),
              "\"ABC\u20AC\u20AC\U0001F600\U0010FFFF\"");
}

TEST(XmlReader, ResolvesReferencesToControlCharacters) {
    EXPECT_EQ(readingOfXml("<string>&#0;&#1;&#9;&#10;&#13;&#x1f;&#127;</string>"),
              "\"\\x00\\x01\\x09\\x0a\\x0d\\x1f\x7f\"");
}

TEST(XmlReader, RefusesReferencesToInvalidCodePoints) {
    for (const char* reference :
         {"&#xD800;", "&#xDFFF;", "&#x110000;", "&#99999999999999999999;", "&#x1000000041;"})
        EXPECT_EQ(readingOfXml("<string>" + std::string(reference) + "</string>"), "no document")
            << reference;
}

TEST(XmlReader, RefusesOtherReferences) {
    for (const char* reference : {"&nbsp;", "&", "& ", "&;", "&#;", "&#x;", "&#-1;", "&#+1;", "&#12a;",
                                  "&#X41;", "&lt", "&AMP;", "&amp ;", "&# 65;"})
        EXPECT_EQ(readingOfXml("<string>a" + std::string(reference) + "</string>"), "no document")
            << reference;
}

TEST(XmlReader, ResolvesReferencesInKeys) {
    EXPECT_EQ(readingOfXml("<dict><key>a&amp;b&#x21;</key><true/></dict>"), "{\"a&b!\": true}");
}

TEST(XmlReader, DistinguishesAKeyFromASimilarlyWrittenOneOfTheLastRecord) {
    EXPECT_EQ(readingOfXml("<array><dict><key>a&amp;amp;b</key><true/></dict><dict><key>a&amp;b</key><true/"
                           "></dict></array>"),
              "[{\"a&amp;b\": true}, {\"a&b\": true}]");
    EXPECT_EQ(readingOfXml("<array><dict><key>a&lt;/key>b</key><true/></dict><dict><key>a</key>b</key><true/"
                           "></dict></array>"),
              "no document");
}

TEST(XmlReader, TakesCharacterDataSectionsLiterally) {
    EXPECT_EQ(readingOfXml("<string>a<![CDATA[<b>&amp;]]]]><![CDATA[>]]>c</string>"), "\"a<b>&amp;]]>c\"");
    EXPECT_EQ(readingOfXml("<dict><key><![CDATA[<k>]]></key><true/></dict>"), "{\"<k>\": true}");
    EXPECT_EQ(readingOfXml("<integer><![CDATA[12]]></integer>"), "12");
}

TEST(XmlReader, KeepsWhiteSpaceInStrings) {
    EXPECT_EQ(readingOfXml("<string> a\n\t b  </string>"), "\" a\\x0a\\x09 b  \"");
}

TEST(XmlReader, KeepsRawControlCharactersInStrings) {
    EXPECT_EQ(readingOfXml(std::string("<string>a\x01\r\n\0b</string>", 23)), "\"a\\x01\\x0d\\x0a\\x00b\"");
}

TEST(XmlReader, ReadsTheWholeRangeOfIntegers) {
    EXPECT_EQ(
        readingOfXml("<array><integer>-9223372036854775808</integer><integer>9223372036854775807</integer>"
                     "<integer>9223372036854775808</integer><integer>18446744073709551615</integer></array>"),
        "[-9223372036854775808, 9223372036854775807, 9223372036854775808u, 18446744073709551615u]");
}

TEST(XmlReader, RefusesIntegersBeyondThatRange) {
    for (const char* text :
         {"18446744073709551616", "-9223372036854775809", "0x10000000000000000", "-0x8000000000000001"})
        EXPECT_EQ(readingOfXml("<integer>" + std::string(text) + "</integer>"), "no document") << text;
}

TEST(XmlReader, ReadsHexadecimalAndSignedIntegers) {
    EXPECT_EQ(readingOfXml(
                  "<array><integer>0x1F</integer><integer>0Xff</integer><integer>-0x10</integer>"
                  "<integer>+5</integer><integer>- 6</integer><integer> \n7\t</integer><integer>007</integer>"
                  "<integer>-0</integer><integer>0xFFFFFFFFFFFFFFFF</integer></array>"),
              "[31, 255, -16, 5, -6, 7, 7, 0, 18446744073709551615u]");
}

TEST(XmlReader, RefusesMalformedIntegers) {
    for (const char* text : {"x", "1.5", "1e3", "0x", "0xG", "--1", "+-1", "1 2", "12abc", "-", "0x-1",
                             "\xC2\xA0"
                             "1"})
        EXPECT_EQ(readingOfXml("<integer>" + std::string(text) + "</integer>"), "no document") << text;
}

TEST(XmlReader, ReadsReals) {
    EXPECT_EQ(readingOfXml(
                  "<array><real>0</real><real>-1.25e-3</real><real>+2</real><real> .5 </real><real>5.</real>"
                  "<real>1E10</real><real>0.1</real><real>5e-324</real><real>1.7976931348623157e308</real></"
                  "array>"),
              "[real 0, real -0.00125, real 2, real 0.5, real 5, real 1e+10, real 0.1, real 5e-324, "
              "real 1.7976931348623157e+308]");
}

TEST(XmlReader, ReadsRealsThatAreNotANumberOrInfinite) {
    EXPECT_EQ(
        readingOfXml(
            "<array><real>nan</real><real>NaN</real><real>inf</real><real>-inf</real><real>+Infinity</real>"
            "<real>-INFINITY</real><real>1e999</real><real>-1e999</real></array>"),
        "[real nan, real nan, real inf, real -inf, real inf, real -inf, real inf, real -inf]");
}

TEST(XmlReader, ReadsRealsTooSmallAsZero) {
    EXPECT_EQ(readingOfXml("<real>1e-999</real>"), "real 0");
}

TEST(XmlReader, RefusesMalformedReals) {
    for (const char* text :
         {"x", "1,5", "1.5x", "--1", "- -1", "e5", ".", "-", "nano", "infi", "1 2", "0x1p3", "1e"})
        EXPECT_EQ(readingOfXml("<real>" + std::string(text) + "</real>"), "no document") << text;
}

TEST(XmlReader, ReadsDatesToTheSecond) {
    EXPECT_EQ(
        readingOfXml("<array><date>2001-01-01T00:00:00Z</date><date>1970-01-01T00:00:00Z</date>"
                     "<date>2024-02-29T23:59:59Z</date><date>0001-01-01T00:00:00Z</date>"
                     "<date>-0001-12-31T00:00:00Z</date><date>10000-01-01T00:00:00Z</date></array>"),
        "[date 0, date -978307200, date 730943999, date -63113904000, date -63145612800, date 252423993600]");
}

TEST(XmlReader, RefusesMalformedDates) {
    for (const char* text :
         {"2001-01-01", "2001-01-01T00:00:00", "2001-1-1T00:00:00Z", "2001-13-01T00:00:00Z",
          "2001-00-01T00:00:00Z", "2001-02-29T00:00:00Z", "2001-01-32T00:00:00Z", "2001-01-01T24:00:00Z",
          "2001-01-01T00:60:00Z", "2001-01-01T00:00:60Z", "2001-01-01T00:00:00Zx", "2001-01-01 00:00:00Z",
          "99999-01-01T00:00:00Z", "2001-01-01T00:00:00.5Z", "201-01-01T00:00:00Z", "2001-01-01T00:00:0aZ",
          "--001-01-01T00:00:00Z"})
        EXPECT_EQ(readingOfXml("<date>" + std::string(text) + "</date>"), "no document") << text;
}

TEST(XmlReader, ReadsBase64WithInnerWhiteSpace) {
    EXPECT_EQ(readingOfXml("<data>\n\tYW\r\n\tJj ZA = =\n</data>"), "<61626364>");
}

TEST(XmlReader, ReadsBase64WithoutItsPadding) {
    EXPECT_EQ(readingOfXml("<array><data>YQ</data><data>YWI</data><data>YQ=</data><data>YQ==</data></array>"),
              "[<61>, <6162>, <61>, <61>]");
}

TEST(XmlReader, SkipsCharactersOutsideTheAlphabetOfBase64) {
    EXPECT_EQ(readingOfXml("<array><data>Y-W_J.j</data><data>!YQ=?=*</data><data>\u00e4YW\u20acI</data>"
                           "<data>\x7F\xC2\xA0,;</data></array>"),
              "[<616263>, <61>, <6162>, <>]");
}

TEST(XmlReader, RefusesMalformedBase64) {
    for (const char* text : {"Y", "YWJjZ", "YQ==YQ==", "YQ===", "YWJj=", "=", "Y!=="})
        EXPECT_EQ(readingOfXml("<data>" + std::string(text) + "</data>"), "no document") << text;
}

TEST(XmlReader, KeepsTheLastOfDuplicateKeys) {
    EXPECT_EQ(readingOfXml("<dict><key>a</key><integer>1</integer><key>b</key><integer>2</integer>"
                           "<key>a</key><integer>3</integer></dict>"),
              "{\"a\": 3, \"b\": 2}");
}

TEST(XmlReader, ReadsRecordsWhoseKeysDifferFromTheLast) {
    EXPECT_EQ(
        readingOfXml("<array><dict><key>a</key><true/><key>b</key><true/></dict>"
                     "<dict><key>a</key><true/></dict>"
                     "<dict><key>a</key><true/><key>b</key><true/><key>c</key><true/></dict>"
                     "<dict><key>b</key><true/><key>a</key><true/></dict><dict/>"
                     "<dict><key>a</key><dict><key>a</key><false/></dict><key>b</key><true/></dict></array>"),
        "[{\"a\": true, \"b\": true}, {\"a\": true}, {\"a\": true, \"b\": true, \"c\": true}, "
        "{\"b\": true, \"a\": true}, {}, {\"a\": {\"a\": false}, \"b\": true}]");
}

TEST(XmlReader, RefusesADictionaryThatIsNotKeysAndValuesInTurn) {
    for (const char* content : {"<key>a</key>", "<true/>", "<key>a</key><key>b</key><true/>",
                                "<key>a</key><true/><false/>", "<key>a</key><true/><key>b</key>"})
        EXPECT_EQ(readingOfXml("<dict>" + std::string(content) + "</dict>"), "no document") << content;
}

TEST(XmlReader, RefusesKeysOutsideADictionary) {
    EXPECT_EQ(readingOfXml("<key>a</key>"), "no document");
    EXPECT_EQ(readingOfXml("<array><key>a</key></array>"), "no document");
}

TEST(XmlReader, RefusesTagsThatDoNotMatch) {
    for (const char* value :
         {"<array></dict>", "<dict></array>", "<string>x</key>", "<array><string>x</array>", "</array>",
          "<array>", "<integer>1</real>", "<string>x</string/>", "<array/></array>", "<string>x<b/></string>",
          "<dict><key>a</key></dict>", "<true></false>"})
        EXPECT_EQ(readingOfXml(value), "no document") << value;
}

TEST(XmlReader, RefusesUnknownElements) {
    for (const char* value :
         {"<set/>", "<String>x</String>", "<strings>x</strings>", "<dictionary/>", "< true/>", "<>", "<tru/>",
          "<plists><true/></plists>", "<ns:true/>", "<null/>"})
        EXPECT_EQ(readingOfXml(value), "no document") << value;
}

TEST(XmlReader, RefusesAnythingButWhiteSpaceInAnEndTag) {
    EXPECT_EQ(reading("<plist><array><string>x</string\r\n\t ></array ></plist >"), "[\"x\"]");
    for (const char* value :
         {"<string>x</string a='b'>", "<string>x</string x>", "<array></array/>", "<true></true />",
          "<dict><key>a</key b><true/></dict>", "<array></array x='>'>"})
        EXPECT_EQ(readingOfXml(value), "no document") << value;
    EXPECT_EQ(reading("<plist><true/></plist version=\"1.0\">"), "no document");
}

TEST(XmlReader, TreatsAPropertyListAsTheValueInIt) {
    EXPECT_EQ(readingOfXml("<plist version='1.0'><plist><integer>1</integer></plist></plist>"), "1");
    EXPECT_EQ(readingOfXml("<array><plist><true/></plist><false/><plist><dict><key>a</key><plist> <!-- b -->"
                           "<string>x</string> </plist><key>b</key><array/></dict></plist></array>"),
              "[true, false, {\"a\": \"x\", \"b\": []}]");
}

TEST(XmlReader, RefusesAPropertyListWithoutAValueOrWithMoreThanOne) {
    for (const char* value :
         {"<plist/>", "<plist></plist>", "<plist><true/><true/></plist>", "<plist><key>a</key></plist>",
          "<array><plist></array></plist>", "<dict><plist><key>a</key></plist><true/></dict>",
          "<dict><key>a</key><plist/></dict>", "<plist><true/>", "<plist><true/></dict>"})
        EXPECT_EQ(readingOfXml(value), "no document") << value;
}

TEST(XmlReader, BoundsPropertyListsInsideEachOther) {
    EXPECT_EQ(reading(repeated("<plist>", 513) + "<true/>" + repeated("</plist>", 513)), "true");
    EXPECT_EQ(reading(repeated("<plist>", 514) + "<true/>" + repeated("</plist>", 514)), "no document");
    EXPECT_EQ(reading(repeated("<plist>", 1'000'000)), "no document");
}

TEST(XmlReader, ReadsTheWritersFormOfCharactersThatXmlCannotContain) {
    EXPECT_EQ(readingOfXml("<string>a\uFFFD<!--U+0007-->\uFFFD<!--U+FFFE-->b\uFFFD<!--U+FFFF--></string>"),
              "\"a\\x07\uFFFEb\uFFFF\"");
    EXPECT_EQ(readingOfXml("<dict><key>&#xFFFD;<!--U+0000--></key><true/></dict>"), "{\"\\x00\": true}");
}

TEST(XmlReader, TreatsOtherCommentsAfterAReplacementCharacterAsComments) {
    for (const char* comment : {"U+0041", "U+0009", "U+FFFD", "U+D800", "U+007", "U+00007", "U+000G",
                                "u+0007", " U+0007", "U+0007 ", "U+-007", "U+", ""})
        EXPECT_EQ(readingOfXml("<string>\uFFFD<!--" + std::string(comment) + "--></string>"), "\"\uFFFD\"")
            << comment;
    EXPECT_EQ(readingOfXml("<string>a<!--U+0007--></string>"), "\"a\"");
    EXPECT_EQ(readingOfXml("<array><string>\uFFFD</string><!--U+0007--></array>"), "[\"\uFFFD\"]");
}

TEST(XmlReader, RefusesAMissingValueAndMoreThanOne) {
    EXPECT_EQ(readingOfXml(""), "no document");
    EXPECT_EQ(readingOfXml("<true/><true/>"), "no document");
    EXPECT_EQ(reading("<true/><true/>"), "no document");
    EXPECT_EQ(reading("<plist/>"), "no document");
    EXPECT_EQ(reading(header), "no document");
    EXPECT_EQ(reading(""), "no document");
    EXPECT_EQ(reading(" \n"), "no document");
}

TEST(XmlReader, RefusesAnythingAfterTheDocument) {
    EXPECT_EQ(reading("<plist><true/></plist><plist><true/></plist>"), "no document");
    EXPECT_EQ(reading("<plist><true/></plist>x"), "no document");
    EXPECT_EQ(reading("<true/></plist>"), "no document");
}

TEST(XmlReader, RefusesOtherTextFiles) {
    for (const char* text : {"{ a = 1; }", "hello", "{\"a\":1}", "<html></html>", "key=value\n",
                             "\x7f"
                             "ELF",
                             "bplist"})
        EXPECT_EQ(reading(text), "no document") << text;
}

TEST(XmlReader, ReadsNestingUpToItsBound) {
    EXPECT_NE(reading(repeated("<array>", 512) + repeated("</array>", 512)), "no document");
    EXPECT_EQ(reading(repeated("<array>", 513) + repeated("</array>", 513)), "no document");
}

TEST(XmlReader, RefusesNestingAMillionDeep) {
    constexpr int million = 1'000'000;
    EXPECT_EQ(reading(repeated("<array>", million) + repeated("</array>", million)), "no document");
    EXPECT_EQ(reading(repeated("<dict><key>a</key>", million)), "no document");
}

TEST(XmlReader, RefusesElementsWithoutAnEnd) {
    for (const char* document :
         {"<!-- ", "<!--->", "<?xml ", "<!DOCTYPE plist", "<!DOCTYPE plist \"", "<plist", "<plist a=\"",
          "<string>x", "<string><![CDATA[x]]", "<string>a<!-- b", "<array><", "<", "<true", "<true/",
          "<string>a</string", "<key"})
        EXPECT_EQ(reading(document), "no document") << document;
}

} // namespace
} // namespace platform
