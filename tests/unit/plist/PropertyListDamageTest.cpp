#include "platform/plist/PropertyList.h"
#include "tests/unit/plist/BinaryPropertyList.h"

#include <gtest/gtest.h>

#include <random>

namespace platform {
namespace {

using wardlock::test::BinaryPropertyList;

/// Every kind and form, in a document as a user might have edited it.
const std::string xmlDocument =
    "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"a\" \"b\">\n<plist "
    "version=\"1.0\">\n"
    "<!-- settings --><dict>\n\t<key>kEnabled</key>\n\t<true/>\n\t<key>kAccounts</key>\n\t<array>\n"
    "<dict><key>n</key><string>a&amp;b &#x20AC; <![CDATA[<c>]]> \u00e4</string><key>e</key><false/></dict>"
    "<dict><key>n</key><string/><key>e</key><true/></dict><array/><dict/>\n"
    "<integer>-0x1F</integer><real>1.5e3</real><date>2001-01-01T00:00:00Z</date><data>\n\tYWJj\n\tZGU=\n</"
    "data>"
    "\t</array>\n</dict>\n</plist>\n";

std::string binaryDocument() {
    return BinaryPropertyList{{std::string("\xD3\x01\x02\x03\x04\x05\x06", 7),
                               "\x58"
                               "kEnabled",
                               "\x59"
                               "kAccounts",
                               "\x51"
                               "x",
                               "\x09", "\xA3\x07\x08\x06", std::string("\x62\x00\x61\x20\xAC", 5),
                               "\x43"
                               "abc",
                               "\x33" + std::string(8, '\x41')}}
        .bytes();
}

/// Reads what may be damaged; what is read must survive being written and read again.
void expectReadOrRefused(const std::string& bytes) {
    const auto value = propertyListWithData(bytes);
    if (!value)
        return;
    const auto once = propertyListWithData(dataWithPropertyList(*value));
    ASSERT_TRUE(once);
    const auto twice = propertyListWithData(dataWithPropertyList(*once));
    ASSERT_EQ(once, twice);
}

void mutate(std::string& bytes, std::mt19937& random) {
    const std::size_t at = random() % bytes.size();
    switch (random() % 4) {
    case 0:
        bytes[at] = static_cast<char>(random());
        break;
    case 1:
        bytes[at] = static_cast<char>(bytes[at] ^ 1 << random() % 8);
        break;
    case 2:
        bytes.erase(at, 1 + random() % 8);
        break;
    default:
        bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 16));
        break;
    }
    if (bytes.empty())
        bytes = "x";
}

void expectReadOrRefusedMutated(const std::string& document, int times) {
    std::mt19937 random(19700101);
    for (int i = 0; i < times; ++i) {
        std::string bytes = document;
        for (std::size_t changes = 1 + random() % 6; changes > 0; --changes)
            mutate(bytes, random);
        ASSERT_NO_FATAL_FAILURE(expectReadOrRefused(bytes));
    }
}

TEST(DamagedPropertyList, IsRefusedWhenXmlIsCutBeforeItsEnd) {
    ASSERT_TRUE(propertyListWithData(xmlDocument));
    const std::size_t end = xmlDocument.size() - std::string("\n").size();
    for (std::size_t length = 0; length < end; ++length)
        ASSERT_FALSE(propertyListWithData(xmlDocument.substr(0, length))) << length;
    EXPECT_TRUE(propertyListWithData(xmlDocument.substr(0, end)));
}

TEST(DamagedPropertyList, IsRefusedWhenTheBeginningOfXmlIsCutOff) {
    const std::size_t firstElement = xmlDocument.find("<dict>") + 1;
    for (std::size_t start = firstElement; start < xmlDocument.size(); ++start)
        ASSERT_FALSE(propertyListWithData(xmlDocument.substr(start))) << start;
}

TEST(DamagedPropertyList, IsRefusedWhenBinaryIsCutAnywhere) {
    const std::string document = binaryDocument();
    ASSERT_TRUE(propertyListWithData(document));
    for (std::size_t length = 0; length < document.size(); ++length)
        ASSERT_FALSE(propertyListWithData(document.substr(0, length))) << length;
}

TEST(DamagedPropertyList, IsReadOrRefusedWhenAnyByteOfBinaryChanges) {
    const std::string document = binaryDocument();
    for (std::size_t at = 0; at < document.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string bytes = document;
            bytes[at] = static_cast<char>(byte);
            ASSERT_NO_FATAL_FAILURE(expectReadOrRefused(bytes)) << at << " " << byte;
        }
    }
}

TEST(DamagedPropertyList, IsReadOrRefusedWhenXmlIsMutated) {
    expectReadOrRefusedMutated(xmlDocument, 30'000);
}

TEST(DamagedPropertyList, IsReadOrRefusedWhenBinaryIsMutated) {
    expectReadOrRefusedMutated(binaryDocument(), 60'000);
}

} // namespace
} // namespace platform
