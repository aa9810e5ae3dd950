// The values of one document share its memory: what stays valid, and what is read where records repeat.
#include "platform/plist/PropertyList.h"
#include "platform/values/Value.h"
#include "tests/support/ValueText.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace platform {
namespace {

using wardlock::test::text;

/// Returns the text of what is read; "no document" where nothing is.
std::string read(const std::string& document) {
    const auto value = propertyListWithData(document);
    return value ? text(*value) : "no document";
}

std::string record(const std::string& a, const std::string& b) {
    return "<dict>\n\t<key>first of all keys</key>\n\t" + a + "\n\t<key>b</key>\n\t" + b + "\n</dict>";
}

std::string recordText(const std::string& a, const std::string& b) {
    return "{\"first of all keys\": " + a + ", \"b\": " + b + "}";
}

TEST(SharedDocument, LeavesAStringValidAfterTheDocument) {
    std::optional<Value> document = propertyListWithData(
        "<dict><key>list</key><array><dict><key>name</key><string>kept</string></dict></array></dict>");
    ASSERT_TRUE(document);
    std::optional<Value> name(*document->dictionary().find("list")->array()[0].dictionary().find("name"));
    document.reset();
    EXPECT_EQ(name->string(), "kept");
    name.reset();
}

TEST(SharedDocument, LeavesARecordValidAfterTheDocument) {
    std::optional<Value> document =
        propertyListWithData("<array>" + record("<true/>", "<integer>7</integer>") +
                             record("<false/>", "<string>x</string>") + "</array>");
    ASSERT_TRUE(document);
    const Dictionary second = document->array()[1].dictionary();
    document.reset();
    EXPECT_EQ(text(second), recordText("false", "\"x\""));
}

TEST(SharedDocument, LeavesChangedCopiesValidAfterTheDocument) {
    std::optional<Value> document =
        propertyListWithData("<array>" + record("<string>a</string>", "<data>YWI=</data>") + "</array>");
    ASSERT_TRUE(document);
    MutableArray copy(document->array());
    MutableDictionary changed(copy.at(0).dictionary());
    changed.set("c", *propertyListWithData("<array><string>of another document</string></array>"));
    copy.replace(0, changed.copy());
    document.reset();
    const Array result = copy.copy();
    EXPECT_EQ(result[0].dictionary().size(), 3u);
    EXPECT_EQ(result[0].dictionary().find("b")->data(), "ab");
    EXPECT_EQ(text(*result[0].dictionary().find("c")), "[\"of another document\"]");
}

TEST(SharedDocument, LeavesWhatABinaryDocumentNamesTwiceValidAfterIt) {
    using namespace std::string_literals;
    // An array that names one string twice.
    const std::string bytes = "bplist00"s + "\xA2\x01\x01"s + "\x54" + "kept"s + "\x08\x0B"s +
                              std::string(6, '\0') + "\x01\x01"s + std::string(7, '\0') + "\x02"s +
                              std::string(8, '\0') + std::string(7, '\0') + "\x10"s;
    std::optional<Value> document = propertyListWithData(bytes);
    ASSERT_TRUE(document);
    const Value second = document->array()[1];
    document.reset();
    EXPECT_EQ(second.string(), "kept");
}

TEST(SharedDocument, MayEndInAnotherThread) {
    const std::optional<Value> document =
        propertyListWithData("<array>" + record("<string>a</string>", "<string>b</string>") + "</array>");
    ASSERT_TRUE(document);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([copy = *document] {
            for (int turn = 0; turn < 1000; ++turn) {
                const Value string = *copy.array()[0].dictionary().find("b");
                EXPECT_EQ(string.string(), "b");
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(text(*document), "[" + recordText("\"a\"", "\"b\"") + "]");
}

TEST(RepeatedRecords, ReadAsTheFirst) {
    EXPECT_EQ(read("<array>" + record("<true/>", "<string>x</string>") + record("<false/>", "<true/>") +
                   record("<string/>", "<integer>5</integer>") + "</array>"),
              "[" + recordText("true", "\"x\"") + ", " + recordText("false", "true") + ", " +
                  recordText("\"\"", "5") + "]");
}

TEST(RepeatedRecords, ReadInOtherWhiteSpaceAndWithComments) {
    EXPECT_EQ(read("<array>" + record("<true/>", "<true/>") +
                   "<dict> <key>first of all keys</key><!-- c --><false/> <?x?> <key>b</key> <true/></dict>" +
                   record("<true/>", "<false/>") + "</array>"),
              "[" + recordText("true", "true") + ", " + recordText("false", "true") + ", " +
                  recordText("true", "false") + "]");
}

TEST(RepeatedRecords, MayHaveFewerMoreAndOtherKeys) {
    EXPECT_EQ(read("<array>" + record("<true/>", "<true/>") +
                   "<dict>\n\t<key>first of all keys</key>\n\t<true/></dict>" +
                   "<dict>\n\t<key>first of all keys</key>\n\t<false/>\n\t<key>c</key>\n\t<true/></dict>" +
                   record("<true/>", "<false/>") + "</array>"),
              "[" + recordText("true", "true") + ", {\"first of all keys\": true}, " +
                  "{\"first of all keys\": false, \"c\": true}, " + recordText("true", "false") + "]");
}

TEST(RepeatedRecords, KeepTheLastOfEqualKeys) {
    const std::string twice = "<dict><key>a</key><true/><key>b</key><true/><key>a</key><false/></dict>";
    EXPECT_EQ(
        read("<array>" + twice + twice + "<dict><key>a</key><true/><key>b</key><false/></dict></array>"),
        "[{\"a\": false, \"b\": true}, {\"a\": false, \"b\": true}, {\"a\": true, \"b\": false}]");
}

TEST(RepeatedRecords, MayHaveReferencesInTheirKeys) {
    const std::string escaped = "<dict><key>a&amp;b</key><true/><key>&#65;<!-- c --></key><false/></dict>";
    EXPECT_EQ(read("<array>" + escaped + escaped + "</array>"),
              "[{\"a&b\": true, \"A\": false}, {\"a&b\": true, \"A\": false}]");
}

TEST(RepeatedRecords, MayContainRecordsOfTheirOwnKind) {
    const std::string inner = record("<true/>", "<false/>");
    EXPECT_EQ(read("<array>" + record(inner, inner) + record(inner, "<true/>") + "</array>"),
              "[" + recordText(recordText("true", "false"), recordText("true", "false")) + ", " +
                  recordText(recordText("true", "false"), "true") + "]");
}

TEST(RepeatedRecords, AreNoDocumentWithAKeyWithoutAValue) {
    EXPECT_EQ(read("<array>" + record("<true/>", "<true/>") + record("<true/>", "") + "</array>"),
              "no document");
    EXPECT_EQ(read("<array>" + record("<true/>", "<true/>") + record("", "<true/>") + "</array>"),
              "no document");
    EXPECT_EQ(
        read("<array>" + record("<true/>", "<true/>") + record("<true/><true/>", "<true/>") + "</array>"),
        "no document");
}

TEST(RepeatedRecords, AreWrittenWithTheirOwnKeysAtEachDepth) {
    const std::string inner = record("<true/>", "<false/>");
    const auto value =
        propertyListWithData("<array>" + record(inner, "<true/>") + inner + record(inner, inner) +
                             "<dict><key>&lt;</key><true/></dict>" + inner + "</array>");
    ASSERT_TRUE(value);
    const std::string written = dataWithPropertyList(*value);
    EXPECT_EQ(read(written), text(*value));
    EXPECT_NE(
        written.find("\t\t<key>first of all keys</key>\n\t\t<dict>\n\t\t\t<key>first of all keys</key>\n"),
        std::string::npos);
    EXPECT_NE(written.find("\t<dict>\n\t\t<key>&lt;</key>\n\t\t<true/>\n\t</dict>\n"), std::string::npos);
}

} // namespace
} // namespace platform
