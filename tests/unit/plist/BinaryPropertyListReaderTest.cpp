#include "platform/plist/PropertyList.h"
#include "tests/unit/plist/BinaryPropertyList.h"
#include "tests/unit/plist/PropertyListReading.h"

#include <gtest/gtest.h>

#include <bit>

namespace platform {
namespace {

using wardlock::test::bigEndian;
using wardlock::test::binaryOf;
using wardlock::test::BinaryPropertyList;
using wardlock::test::reading;

std::string readingOf(std::string_view object) {
    return reading(binaryOf(object));
}

/// With the length in an integer object of its own after the marker.
std::string counted(char marker, std::uint64_t length, int lengthSize, std::string_view content) {
    const char lengthMarker = lengthSize == 1   ? '\x10'
                              : lengthSize == 2 ? '\x11'
                              : lengthSize == 4 ? '\x12'
                                                : '\x13';
    return std::string(1, marker) + lengthMarker + bigEndian(length, lengthSize) + std::string(content);
}

std::string arrayOf(std::string_view references) {
    return static_cast<char>(0xA0 + references.size()) + std::string(references);
}

TEST(BinaryReader, ReadsBooleans) {
    EXPECT_EQ(readingOf("\x08"), "false");
    EXPECT_EQ(readingOf("\x09"), "true");
}

TEST(BinaryReader, RefusesNullFillAndUnknownMarkers) {
    for (const char* object : {"\x0F", "\x01", "\x0C", "\x70", "\x90", "\xB0", "\xE0", "\xF0"})
        EXPECT_EQ(readingOf(object), "no document") << int(object[0]);
    EXPECT_EQ(readingOf(std::string_view("\0", 1)), "no document");
}

TEST(BinaryReader, ReadsIntegersOfEverySize) {
    EXPECT_EQ(readingOf("\x10\xFF"), "255");
    EXPECT_EQ(readingOf("\x11\xFF\xFE"), "65534");
    EXPECT_EQ(readingOf("\x12\xFF\xFF\xFF\xFE"), "4294967294");
    EXPECT_EQ(readingOf("\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE"), "-2");
    EXPECT_EQ(readingOf("\x14" + bigEndian(0, 8) + bigEndian(~0ull, 8)), "18446744073709551615u");
    EXPECT_EQ(readingOf("\x14" + bigEndian(0, 8) + bigEndian(5, 8)), "5");
    EXPECT_EQ(readingOf("\x14" + bigEndian(~0ull, 8) + bigEndian(~0ull, 8)), "-1");
}

TEST(BinaryReader, RefusesIntegersBeyondSixtyFourBits) {
    EXPECT_EQ(readingOf("\x14" + bigEndian(1, 8) + bigEndian(0, 8)), "no document");
    EXPECT_EQ(readingOf("\x14" + bigEndian(~0ull, 8) + bigEndian(1, 8)), "no document");
    EXPECT_EQ(readingOf("\x15" + std::string(32, '\0')), "no document");
}

TEST(BinaryReader, ReadsRealsOfBothSizes) {
    EXPECT_EQ(readingOf("\x22" + bigEndian(std::bit_cast<std::uint32_t>(1.5f), 4)), "real 1.5");
    EXPECT_EQ(readingOf("\x23" + bigEndian(std::bit_cast<std::uint64_t>(0.1), 8)), "real 0.1");
    EXPECT_EQ(readingOf("\x21\x01\x02"), "no document");
    EXPECT_EQ(readingOf("\x24" + std::string(16, '\0')), "no document");
}

TEST(BinaryReader, ReadsDates) {
    EXPECT_EQ(readingOf("\x33" + bigEndian(std::bit_cast<std::uint64_t>(1.5), 8)), "date 1.5");
    EXPECT_EQ(readingOf("\x32\x01\x02\x03\x04"), "no document");
}

TEST(BinaryReader, ReadsDataAndStrings) {
    EXPECT_EQ(readingOf("\x43"
                        "a\xFF"
                        "c"),
              "<61ff63>");
    EXPECT_EQ(readingOf("\x40"), "<>");
    EXPECT_EQ(readingOf("\x53"
                        "abc"),
              "\"abc\"");
    EXPECT_EQ(readingOf("\x50"), "\"\"");
    EXPECT_EQ(readingOf(std::string_view("\x53"
                                         "a\0c",
                                         4)),
              "\"a\\x00c\"");
    EXPECT_EQ(readingOf(std::string_view("\x64\x00\x61\x20\xAC\xD8\x3D\xDE\x00", 9)),
              "\"a\u20AC\U0001F600\"");
}

TEST(BinaryReader, RefusesTextThatIsWhatItsMarkerDenies) {
    EXPECT_EQ(readingOf("\x52"
                        "a\xE4"),
              "no document");
    EXPECT_EQ(readingOf(std::string_view("\x62\xD8\x3D\x00\x61", 5)), "no document");
    EXPECT_EQ(readingOf("\x61\xDE\x01"), "no document");
}

TEST(BinaryReader, ReadsLengthsOfEverySize) {
    const std::string text(300, 'x');
    for (const int size : {2, 4, 8})
        EXPECT_EQ(readingOf(counted('\x5F', 300, size, text)), "\"" + text + "\"") << size;
    EXPECT_EQ(readingOf(counted('\x4F', 1, 1, "a")), "<61>");
    EXPECT_EQ(readingOf(counted('\xAF', 0, 1, "")), "[]");
}

TEST(BinaryReader, RefusesLengthsBeyondTheBytes) {
    for (const char marker : {'\x4F', '\x5F', '\x6F', '\xAF', '\xDF'}) {
        for (const std::uint64_t length :
             {2ull, 0xFFull, 1ull << 31, 1ull << 62, 1ull << 63, ~0ull, ~0ull / 2 + 2})
            EXPECT_EQ(readingOf(counted(marker, length, 8, "a")), "no document")
                << int(marker) << " " << length;
    }
    EXPECT_EQ(readingOf("\x53"
                        "ab"),
              "no document");
    EXPECT_EQ(readingOf("\x13\x01"), "no document");
    EXPECT_EQ(readingOf("\x33\x01"), "no document");
    EXPECT_EQ(readingOf("\x5F"), "no document");
    EXPECT_EQ(readingOf("\x5F\x13\x01"), "no document");
}

TEST(BinaryReader, RefusesLengthsThatAreNotIntegers) {
    EXPECT_EQ(readingOf("\x5F\x51"
                        "abc"),
              "no document");
    EXPECT_EQ(readingOf("\x5F\x14" + std::string(15, '\0') +
                        "\x01"
                        "a"),
              "no document");
}

/// An array of a boolean, with offsets and references of so many bytes; `high` is the first byte of each.
std::string wideList(int offsetSize, int referenceSize, char highOfOffset = '\0',
                     char highOfReference = '\0') {
    const auto number = [](std::uint64_t value, int size, char high) {
        std::string bytes = bigEndian(value, size);
        if (high != 0)
            bytes[0] = high;
        return bytes;
    };
    std::string bytes = "bplist00\xA1" + number(1, referenceSize, highOfReference);
    const std::size_t boolean = bytes.size();
    bytes += '\x09';
    const std::size_t table = bytes.size();
    bytes += number(8, offsetSize, highOfOffset) + number(boolean, offsetSize, '\0');
    return bytes + std::string(6, '\0') + bigEndian(static_cast<std::uint64_t>(offsetSize), 1) +
           bigEndian(static_cast<std::uint64_t>(referenceSize), 1) + bigEndian(2, 8) + bigEndian(0, 8) +
           bigEndian(table, 8);
}

TEST(BinaryReader, ReadsOffsetsAndReferencesUpToSixteenBytesWide) {
    for (int size = 1; size <= 16; ++size) {
        EXPECT_EQ(reading(wideList(size, 1)), "[true]") << size;
        EXPECT_EQ(reading(wideList(1, size)), "[true]") << size;
    }
    EXPECT_EQ(reading(wideList(17, 1)), "no document");
    EXPECT_EQ(reading(wideList(1, 17)), "no document");
    EXPECT_EQ(reading(wideList(0, 1)), "no document");
}

TEST(BinaryReader, RefusesWideOffsetsAndReferencesBeyondTheBytes) {
    for (int size = 9; size <= 16; ++size) {
        EXPECT_EQ(reading(wideList(size, 1, '\x01')), "no document") << size;
        EXPECT_EQ(reading(wideList(1, size, '\0', '\x01')), "no document") << size;
    }
}

TEST(BinaryReader, ReadsAUidAsADictionary) {
    EXPECT_EQ(readingOf("\x80\x05"), "{\"CF$UID\": 5}");
    EXPECT_EQ(readingOf("\x83\xFF\xFF\xFF\xFF"), "{\"CF$UID\": 4294967295}");
    EXPECT_EQ(readingOf("\x88" + std::string(9, '\x01')), "no document");
}

TEST(BinaryReader, ReadsArraysAndDictionaries) {
    EXPECT_EQ(reading(BinaryPropertyList{{"\xA2\x01\x02", "\x09", "\x10\x05"}}.bytes()), "[true, 5]");
    EXPECT_EQ(reading(BinaryPropertyList{{"\xD2\x01\x02\x03\x04",
                                          "\x51"
                                          "z",
                                          "\x51"
                                          "a",
                                          "\x09", "\x08"}}
                          .bytes()),
              "{\"z\": true, \"a\": false}");
    EXPECT_EQ(readingOf("\xA0"), "[]");
    EXPECT_EQ(readingOf("\xD0"), "{}");
}

TEST(BinaryReader, RefusesSets) {
    EXPECT_EQ(reading(BinaryPropertyList{{"\xC1\x01", "\x09"}}.bytes()), "no document");
}

TEST(BinaryReader, KeepsTheFirstOfDuplicateKeys) {
    EXPECT_EQ(reading(BinaryPropertyList{{"\xD3\x01\x02\x01\x03\x04\x05",
                                          "\x51"
                                          "a",
                                          "\x51"
                                          "b",
                                          "\x10\x01", "\x10\x02", "\x10\x03"}}
                          .bytes()),
              "{\"a\": 1, \"b\": 2}");
}

TEST(BinaryReader, RefusesKeysThatAreNotStrings) {
    EXPECT_EQ(reading(BinaryPropertyList{{"\xD1\x01\x01", "\x10\x05"}}.bytes()), "no document");
}

TEST(BinaryReader, RefusesKeysThatAreDamagedStrings) {
    const std::string notAscii = "\x51\xE4";
    const std::string beyondTheBytes = "\x5F\x10\x7F";
    for (const std::string& key : {notAscii, beyondTheBytes})
        EXPECT_EQ(reading(BinaryPropertyList{{"\xD1\x01\x02", key, "\x09"}}.bytes()), "no document");
}

TEST(BinaryReader, ReadsAStringThatIsAKeyAndAValue) {
    EXPECT_EQ(reading(BinaryPropertyList{
                  {"\xD1\x01\x01",
                   "\x51"
                   "a"}}.bytes()),
              "{\"a\": \"a\"}");
}

TEST(BinaryReader, ReadsAnObjectNamedSeveralTimes) {
    EXPECT_EQ(reading(BinaryPropertyList{{"\xA3\x01\x02\x01",
                                          "\x51"
                                          "a",
                                          "\xA1\x01"}}
                          .bytes()),
              "[\"a\", [\"a\"], \"a\"]");
}

TEST(BinaryReader, ReadsTheTopObjectWhereverItIs) {
    BinaryPropertyList list{{"\x09", std::string("\xA1\x00", 2)}};
    list.topObject = 1;
    EXPECT_EQ(reading(list.bytes()), "[true]");
}

TEST(BinaryReader, RefusesAContainerThatContainsItself) {
    EXPECT_EQ(reading(BinaryPropertyList{{std::string("\xA1\x00", 2)}}.bytes()), "no document");
    EXPECT_EQ(reading(BinaryPropertyList{
                  {"\xA1\x01", std::string("\xD1\x02\x00", 3),
                   "\x51"
                   "a"}}.bytes()),
              "no document");
}

TEST(BinaryReader, RefusesReferencesToNoObject) {
    EXPECT_EQ(reading(BinaryPropertyList{{"\xA1\x01"}}.bytes()), "no document");
    BinaryPropertyList list{{"\x09"}};
    list.topObject = 1;
    EXPECT_EQ(reading(list.bytes()), "no document");
    list.topObject = ~0ull;
    EXPECT_EQ(reading(list.bytes()), "no document");
}

TEST(BinaryReader, RefusesWhatSharedReferencesMakeTooLarge) {
    // Each of sixty-six arrays names the next one twice: 2^66 values.
    BinaryPropertyList list;
    for (char i = 1; i <= 66; ++i)
        list.objects.push_back(arrayOf(std::string(2, i)));
    list.objects.push_back("\x09");
    EXPECT_EQ(reading(list.bytes()), "no document");
}

TEST(BinaryReader, ReadsWhatSharedReferencesMakeModeratelyLarge) {
    BinaryPropertyList list;
    for (char i = 1; i <= 10; ++i)
        list.objects.push_back(arrayOf(std::string(2, i)));
    list.objects.push_back("\x09");
    const auto value = propertyListWithData(list.bytes());
    ASSERT_TRUE(value);
    EXPECT_TRUE(value->array()[0].array().isSameObject(value->array()[1].array()));
}

TEST(BinaryReader, RefusesTextThatSharedReferencesMakeTooLarge) {
    // Four levels of fourteen references to a text of sixty thousand letters are two thousand million.
    BinaryPropertyList list;
    for (char i = 1; i <= 4; ++i)
        list.objects.push_back(arrayOf(std::string(14, i)));
    list.objects.push_back(counted('\x5F', 60'000, 2, std::string(60'000, 'x')));
    EXPECT_EQ(reading(list.bytes()), "no document");
}

/// Arrays one in another around the innermost object.
std::string nested(int levels, const std::string& innermost = "\xA0") {
    std::string objects;
    std::string table;
    for (int i = 0; i < levels; ++i) {
        table += bigEndian(8 + objects.size(), 4);
        objects += i + 1 < levels ? "\xA1" + bigEndian(static_cast<std::uint64_t>(i) + 1, 4) : innermost;
    }
    return "bplist00" + objects + table + std::string(6, '\0') + "\x04\x04" +
           bigEndian(static_cast<std::uint64_t>(levels), 8) + bigEndian(0, 8) +
           bigEndian(8 + objects.size(), 8);
}

TEST(BinaryReader, ReadsNestingUpToItsBound) {
    EXPECT_NE(reading(nested(512)), "no document");
    EXPECT_EQ(reading(nested(513)), "no document");
}

TEST(BinaryReader, CountsAUidAsTheDictionaryItBecomes) {
    EXPECT_NE(reading(nested(512, "\x80\x05")), "no document");
    EXPECT_EQ(reading(nested(513, "\x80\x05")), "no document");
    EXPECT_NE(reading(nested(513, "\x09")), "no document");
}

TEST(BinaryReader, RefusesNestingAMillionDeep) {
    EXPECT_EQ(reading(nested(1'000'000)), "no document");
}

TEST(BinaryReader, BoundsNestingThroughSharedObjects) {
    // The top array names a shallow chain of 300 first, then a chain of 300 that ends in the first one.
    std::vector<std::string> objects{"\xA2" + bigEndian(1, 2) + bigEndian(301, 2)};
    for (std::uint64_t i = 1; i <= 600; ++i)
        objects.push_back(i == 300 ? "\xA0" : "\xA1" + bigEndian(i == 600 ? 1 : i + 1, 2));
    std::string all = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(all.size(), 2);
        all += object;
    }
    const std::size_t tableOffset = all.size();
    all += table + std::string(6, '\0') + "\x02\x02" + bigEndian(objects.size(), 8) + bigEndian(0, 8) +
           bigEndian(tableOffset, 8);
    EXPECT_EQ(reading(all), "no document");
}

/// A sound document with the trailer's number at a place replaced.
std::string withTrailer(std::size_t place, int length, std::uint64_t number) {
    std::string bytes = BinaryPropertyList{{"\xA1\x01", "\x09"}}.bytes();
    return bytes.replace(bytes.size() - 32 + place, static_cast<std::size_t>(length),
                         bigEndian(number, length));
}

TEST(BinaryReader, RefusesTrailersThatLie) {
    ASSERT_EQ(reading(withTrailer(0, 1, 0)), "[true]");
    for (const std::uint64_t size : {0, 9, 255}) {
        EXPECT_EQ(reading(withTrailer(6, 1, size)), "no document") << size;
        EXPECT_EQ(reading(withTrailer(7, 1, size)), "no document") << size;
    }
    for (const std::uint64_t number : {3ull, 255ull, 1ull << 32, 1ull << 61, 1ull << 63, ~0ull}) {
        EXPECT_EQ(reading(withTrailer(8, 8, number)), "no document") << number;
        EXPECT_EQ(reading(withTrailer(16, 8, number)), "no document") << number;
        EXPECT_EQ(reading(withTrailer(24, 8, number)), "no document") << number;
    }
    EXPECT_EQ(reading(withTrailer(8, 8, 0)), "no document");
}

TEST(BinaryReader, RefusesOffsetsOutsideTheObjects) {
    const std::string bytes = BinaryPropertyList{{"\xA1\x01", "\x09"}}.bytes();
    const std::size_t table = bytes.size() - 32 - 4;
    for (const std::uint64_t offset : {0ull, 7ull, static_cast<unsigned long long>(table), 0xFFFFull}) {
        std::string wrong = bytes;
        wrong.replace(table + 2, 2, bigEndian(offset, 2));
        EXPECT_EQ(reading(wrong), "no document") << offset;
    }
}

TEST(BinaryReader, RefusesTooLittleForATrailer) {
    EXPECT_EQ(reading("bplist00"), "no document");
    EXPECT_EQ(reading("bplist00" + std::string(31, '\0')), "no document");
    EXPECT_EQ(reading("bplist00" + std::string(32, '\0')), "no document");
}

} // namespace
} // namespace platform
