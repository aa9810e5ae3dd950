// What the reader would not accept is not written: the file stays as it was, and the reason is reported.

#include "platform/base/Diagnostics.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/PropertyListError.h"
#include "platform/plist/PropertyListFile.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/unit/plist/BinaryPropertyList.h"

#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::Array;
using platform::dataWithPropertyList;
using platform::Dictionary;
using platform::dictionaryWithContentsOfFile;
using platform::MutableDictionary;
using platform::PropertyListError;
using platform::Update;
using platform::updateFile;
using platform::Value;
using platform::writeToFileAtomically;

constexpr const char* file = "/var/mobile/Library/Preferences/a.plist";

Dictionary ofText(std::string_view text) {
    return {{"text", text}};
}

/// A dictionary whose XML form takes so many bytes.
Dictionary ofSize(std::size_t bytes) {
    return ofText(std::string(bytes - dataWithPropertyList(ofText("")).size(), 'x'));
}

/// Containers inside each other, the dictionary included.
Dictionary ofLevels(std::size_t levels, Value innermost = Array{true}) {
    for (std::size_t level = 2; level < levels; ++level)
        innermost = level % 2 == 0 ? Value(Array{innermost}) : Value(Dictionary{{"k", innermost}});
    return {{"deep", innermost}};
}

std::string logged;

class DocumentBounds : public DeviceRootFixture {
protected:
    DocumentBounds() {
        logged.clear();
        platform::setDiagnosticsHandler([](std::string_view text) { logged += text; });
        writeFile(file, before);
    }
    ~DocumentBounds() override { platform::setDiagnosticsHandler(nullptr); }

    /// The error of a write that puts the dictionary in the file's place.
    static std::error_code errorOf(const Dictionary& dictionary) {
        const Update update = updateFile(file, [&](MutableDictionary& entries) {
            entries = MutableDictionary(dictionary);
            return true;
        });
        EXPECT_EQ(update.written, !update.error);
        return update.error;
    }
    /// As it was, and nothing beside it.
    testing::AssertionResult isUnchanged() const {
        const fs::directory_iterator all(onDisk("/var/mobile/Library/Preferences"));
        if (std::distance(begin(all), end(all)) != 1)
            return testing::AssertionFailure() << "there is another file beside it";
        if (readFile(file) != before)
            return testing::AssertionFailure() << "its bytes are others";
        return testing::AssertionSuccess();
    }

    std::string before = dataWithPropertyList(ofText("before"));
};

TEST_F(DocumentBounds, AreAsManyBytesAsTheReaderTakes) {
    const Dictionary largest = ofSize(platform::largestDocument);
    EXPECT_FALSE(errorOf(largest));
    EXPECT_EQ(fs::file_size(onDisk(file)), platform::largestDocument);
    EXPECT_TRUE(dictionaryWithContentsOfFile(file) == largest);
}

TEST_F(DocumentBounds, AreNotExceededByOneByte) {
    EXPECT_EQ(errorOf(ofSize(platform::largestDocument + 1)), PropertyListError::TooLarge);
    EXPECT_TRUE(isUnchanged());
    EXPECT_FALSE(writeToFileAtomically(ofSize(platform::largestDocument + 1), file));
    EXPECT_TRUE(isUnchanged());
}

TEST_F(DocumentBounds, CountTheBytesAsTheyAreWritten) {
    EXPECT_EQ(errorOf(ofText(std::string(platform::largestDocument / 4, '&'))), PropertyListError::TooLarge);
    EXPECT_EQ(errorOf(ofText(std::string(platform::largestDocument / 15, '\x01'))),
              PropertyListError::TooLarge);
    EXPECT_EQ(errorOf({{"data", Value::data(std::string(platform::largestDocument / 4 * 3, 'x'))}}),
              PropertyListError::TooLarge);
    EXPECT_EQ(errorOf({{std::string(platform::largestDocument, 'k'), true}}), PropertyListError::TooLarge);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(DocumentBounds, AreAsManyLevelsAsTheReaderTakes) {
    const Dictionary deepest = ofLevels(platform::deepestPropertyList);
    EXPECT_FALSE(errorOf(deepest));
    EXPECT_EQ(dictionaryWithContentsOfFile(file), deepest);
    for (const Value& innermost : {Value(Array()), Value(Dictionary())}) {
        EXPECT_FALSE(errorOf(ofLevels(platform::deepestPropertyList, innermost)));
        EXPECT_EQ(dictionaryWithContentsOfFile(file), ofLevels(platform::deepestPropertyList, innermost));
    }
}

TEST_F(DocumentBounds, AreNotExceededByOneLevel) {
    for (const Value& innermost : {Value(Array{true}), Value(Array()), Value(Dictionary())}) {
        EXPECT_EQ(errorOf(ofLevels(platform::deepestPropertyList + 1, innermost)),
                  PropertyListError::TooDeep);
        EXPECT_TRUE(isUnchanged());
    }
    EXPECT_EQ(errorOf(ofLevels(200'000)), PropertyListError::TooDeep);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(DocumentBounds, StopAWriteOfMoreValuesThanMemoryCanStore) {
    Value value = true;
    for (int level = 0; level < 70; ++level)
        value = Array{value, value};
    EXPECT_EQ(errorOf({{"many", value}}), PropertyListError::TooLarge);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(DocumentBounds, LeaveABinaryDocumentWhoseXmlFormExceedsThem) {
    // A dictionary whose one entry is an array of 120 arrays of as many arrays of as many booleans.
    BinaryPropertyList list{{std::string("\xD1\x01\x02"), "\x51"
                                                          "k"}};
    for (char next = 3; next <= 5; ++next)
        list.objects.push_back(std::string("\xAF\x10\x78") + std::string(120, next));
    list.objects.push_back("\x09");
    before = list.bytes();
    writeFile(file, before);
    ASSERT_TRUE(dictionaryWithContentsOfFile(file));
    const Update update = updateFile(file, [](MutableDictionary& entries) {
        entries.set("added", true);
        return true;
    });
    EXPECT_EQ(update.error, PropertyListError::TooLarge);
    EXPECT_EQ(update.dictionary.size(), 2U);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(DocumentBounds, LeaveADamagedFileInPlace) {
    before = "no list";
    writeFile(file, before);
    EXPECT_EQ(errorOf(ofSize(platform::largestDocument + 1)), PropertyListError::TooLarge);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(DocumentBounds, AreReportedToTheLogToo) {
    EXPECT_FALSE(writeToFileAtomically(ofSize(platform::largestDocument + 1), file));
    EXPECT_EQ(logged,
              onDisk(file) + " is left as it is: a property list of more than 16 MiB cannot be read again");
    logged.clear();
    EXPECT_FALSE(writeToFileAtomically(ofLevels(platform::deepestPropertyList + 1), file));
    EXPECT_EQ(logged, onDisk(file) +
                          " is left as it is: a property list of more than 512 levels cannot be read again");
}

} // namespace
} // namespace wardlock::test
