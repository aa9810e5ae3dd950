// A reader expects the keys and the indentation of the document that was read before. What it reads does not
// depend on them.
#include "platform/plist/PropertyList.h"
#include "platform/values/Value.h"
#include "tests/support/ValueText.h"
#include "tests/unit/plist/BinaryPropertyList.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace platform {
namespace {

using wardlock::test::BinaryPropertyList;
using wardlock::test::text;

struct Sample {
    const char* name;
    std::string document;
    /// "no document" where nothing can be read.
    std::string text;
};

const std::string prolog = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                           "<plist version=\"1.0\">\n";

std::string xml(const std::string& root) {
    return prolog + root + "\n</plist>\n";
}

/// A dictionary with as many keys as given.
std::string wide(std::size_t keys) {
    std::string entries;
    for (std::size_t i = 0; i < keys; ++i)
        entries += "\n\t<key>key " + std::to_string(i) + "</key>\n\t<true/>";
    return xml("<dict>" + entries + "\n</dict>");
}

std::string wideText(std::size_t keys) {
    std::string entries;
    for (std::size_t i = 0; i < keys; ++i)
        entries += (i ? ", " : "") + ("\"key " + std::to_string(i) + "\": true");
    return "{" + entries + "}";
}

/// A binary document of the given dictionary, whose references name "a", "b", true and false.
std::string binary(const char* dictionary, std::size_t length) {
    return BinaryPropertyList{{"\x51"
                               "a",
                               "\x51"
                               "b",
                               "\x09",
                               "\x08",
                               {dictionary, length}},
                              4}
        .bytes();
}

/// A binary document of a dictionary with these objects as its keys.
std::string binaryWith(const std::string& key, const std::string& other) {
    return BinaryPropertyList{{key, other, "\x09", std::string("\xD2\x00\x01\x02\x02", 5)}, 3}.bytes();
}

std::vector<Sample> samples() {
    const std::string a = "\n\t<key>a</key>\n\t";
    const std::string b = "\n\t<key>b</key>\n\t";
    const std::string inner = "\n\t\t<key>a</key>\n\t\t<true/>\n\t\t<key>b</key>\n\t\t<false/>";
    return {
        {"two keys", xml("<dict>" + a + "<true/>" + b + "<string>x</string>\n</dict>"),
         "{\"a\": true, \"b\": \"x\"}"},
        {"the same keys with other values",
         xml("<dict>" + a + "<integer>1</integer>" + b + "<array/>\n</dict>"), "{\"a\": 1, \"b\": []}"},
        {"the keys in another order", xml("<dict>" + b + "<true/>" + a + "<false/>\n</dict>"),
         "{\"b\": true, \"a\": false}"},
        {"fewer keys", xml("<dict>" + a + "<true/>\n</dict>"), "{\"a\": true}"},
        {"more keys", xml("<dict>" + a + "<true/>" + b + "<true/>\n\t<key>c</key>\n\t<true/>\n</dict>"),
         "{\"a\": true, \"b\": true, \"c\": true}"},
        {"a key twice", xml("<dict>" + a + "<true/>" + b + "<true/>" + a + "<false/>\n</dict>"),
         "{\"a\": false, \"b\": true}"},
        {"no keys", xml("<dict/>"), "{}"},
        {"no value for the last key", xml("<dict>" + a + "<true/>\n\t<key>b</key>\n</dict>"), "no document"},
        {"no dictionary", xml("<array>\n\t<true/>\n</array>"), "[true]"},
        {"no white space", "<plist><dict><key>a</key><true/><key>b</key><true/></dict></plist>",
         "{\"a\": true, \"b\": true}"},
        {"comments around the keys",
         xml("<dict>\n\t<!-- 1 --><key>a</key><!-- 2 -->\n\t<true/>" + b + "<true/>\n</dict>"),
         "{\"a\": true, \"b\": true}"},
        {"references in a key", xml("<dict>\n\t<key>&#97;&amp;</key>\n\t<true/>\n</dict>"), "{\"a&\": true}"},
        {"dictionaries at two depths",
         xml("<dict>" + a + "<dict>" + inner + "\n\t</dict>" + b + "<dict>" + inner + "\n\t</dict>\n</dict>"),
         "{\"a\": {\"a\": true, \"b\": false}, \"b\": {\"a\": true, \"b\": false}}"},
        {"as many keys as are remembered", wide(64), wideText(64)},
        {"more keys than are remembered", wide(65), wideText(65)},
        {"the binary form", binary("\xD2\x00\x01\x02\x02", 5), "{\"a\": true, \"b\": true}"},
        {"the binary form with a key twice", binary("\xD2\x00\x00\x03\x02", 5), "{\"a\": false}"},
        {"the binary form with fewer keys", binary("\xD1\x00\x02", 3), "{\"a\": true}"},
        {"the binary form with keys in another order", binary("\xD2\x01\x00\x02\x03", 5),
         "{\"b\": true, \"a\": false}"},
        {"the binary form with other keys of the same length", binaryWith("\x51x", "\x51y"),
         "{\"x\": true, \"y\": true}"},
        {"the binary form with longer keys", binaryWith("\x52xx", "\x51y"), "{\"xx\": true, \"y\": true}"},
        {"the binary form with a key outside ASCII", binaryWith("\x51\xE9", "\x51y"), "no document"},
        {"the binary form with data as a key", binaryWith("\x41x", "\x51y"), "no document"},
        {"the binary form with objects before the keys",
         BinaryPropertyList{{"\x09", "\x51x", "\x51y", std::string("\xD2\x01\x02\x00\x00", 5)}, 3}.bytes(),
         "{\"x\": true, \"y\": true}"},
    };
}

std::string read(const std::string& document) {
    const auto value = propertyListWithData(document);
    return value ? text(*value) : "no document";
}

TEST(DocumentShape, ChangesNothingOfTheNextDocument) {
    for (const Sample& before : samples())
        for (const Sample& sample : samples()) {
            SCOPED_TRACE(std::string(sample.name) + " after " + before.name);
            EXPECT_EQ(read(before.document), before.text);
            EXPECT_EQ(read(sample.document), sample.text);
            EXPECT_EQ(read(sample.document), sample.text);
        }
}

/// Keys in a row at two depths, and one that is a value too.
std::string nestedBinary() {
    const std::string root("\xD3\x00\x01\x02\x02\x08\x04", 7);
    return BinaryPropertyList{{"\x54name", "\x55list ", "\x54mode", root, "\x09", "\x54last", "\x51z",
                               "\xD2\x05\x06\x04\x04", "\xA1\x07"},
                              3}
        .bytes();
}

TEST(DocumentShape, ChangesNothingOfADamagedDocument) {
    const std::string whole = nestedBinary();
    const std::string other = binary("\xD1\x00\x02", 3);
    ASSERT_EQ(read(whole),
              "{\"name\": \"mode\", \"list \": [{\"last\": true, \"z\": true}], \"mode\": true}");
    for (std::size_t place = 8; place < whole.size(); ++place)
        for (int change = 1; change < 256; ++change) {
            std::string damaged = whole;
            damaged[place] = static_cast<char>(damaged[place] ^ change);
            EXPECT_EQ(read(other), "{\"a\": true}");
            const std::string expected = read(damaged);
            read(whole);
            EXPECT_EQ(read(damaged), expected) << place << " ^ " << change;
        }
}

TEST(DocumentShape, LeavesTheValuesOfAnEarlierDocumentValid) {
    const auto all = samples();
    std::vector<std::optional<Value>> values;
    for (int round = 0; round < 2; ++round)
        for (const Sample& sample : all)
            values.push_back(propertyListWithData(sample.document));
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i] ? text(*values[i]) : "no document", all[i % all.size()].text);
}

TEST(DocumentShape, IsSharedByThreads) {
    const auto all = samples();
    std::atomic<int> wrong = 0;
    std::vector<std::thread> readers;
    for (std::size_t reader = 0; reader < 4; ++reader)
        readers.emplace_back([&, reader] {
            for (std::size_t i = 0; i < 200; ++i) {
                const Sample& sample = all[(i * (reader + 1)) % all.size()];
                if (read(sample.document) != sample.text)
                    ++wrong;
            }
        });
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace platform
