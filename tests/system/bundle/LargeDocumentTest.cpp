// A document that can be read and only just: no change on the pages may make one that cannot be read again.

#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListBounds.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t megabyte = std::size_t{1} << 20;

class LargeDocument : public SettingsApplicationFixture {
protected:
    /// Opens Wardlock on a document whose XML is this.
    void open(std::string bytes) {
        bytes_ = std::move(bytes);
        writeFile(documentPath, bytes_);
        start();
        tap("Wardlock");
    }
    /// As it was, and nothing beside it.
    testing::AssertionResult documentIsUnchanged() const {
        const fs::directory_iterator all(onDisk("/var/mobile/Library/Preferences"));
        // Its versions are in a folder.
        if (std::count_if(begin(all), end(all), [](const auto& entry) { return !entry.is_directory(); }) != 1)
            return testing::AssertionFailure() << "there is another file beside it";
        if (readFile(documentPath) != bytes_)
            return testing::AssertionFailure() << "its bytes are others";
        return testing::AssertionSuccess();
    }
    /// Types the text and stores it.
    void enter(std::string_view label, std::string text) {
        type(label, std::move(text));
        settings().page().endEditing();
    }
    std::string nameOfSecondAccount() const {
        return std::string(
            document().find(kAccounts)->array().at(1).dictionary().find(kAccountName)->string());
    }

private:
    std::string bytes_;
};

TEST_F(LargeDocument, LosesNothingByTwoTaps) {
    // Fourteen megabytes that another program has written: "<" has to be escaped, ">" need not be, and is by
    // us.
    std::string bytes = platform::dataWithPropertyList(documentOf({"Ann", "Ben"}));
    bytes.insert(bytes.find("<key>kAccounts</key>"),
                 "<key>others</key><string>" + std::string(14 * megabyte, '>') + "</string>");
    open(bytes);
    tap("Enabled");
    EXPECT_TRUE(documentIsUnchanged());
    tap("Enabled");
    EXPECT_TRUE(documentIsUnchanged());
    tap("Ben");
    tap("Siri");
    EXPECT_TRUE(documentIsUnchanged());
    ASSERT_TRUE(settings().page().goBack());
    EXPECT_TRUE(hasRow("Ann"));
    EXPECT_TRUE(hasRow("Ben"));
}

TEST_F(LargeDocument, IsNotWrittenForATooLongName) {
    open(platform::dataWithPropertyList(documentOf({"Ann", "Ben"})));
    tap("Ben");
    enter("Account Name", std::string(5 * megabyte, '&'));
    EXPECT_TRUE(documentIsUnchanged());
    enter("Account Name", "Cleo");
    EXPECT_TRUE(nameOfSecondAccount() == "Cleo");
}

TEST_F(LargeDocument, IsWrittenForANameThatFits) {
    open(platform::dataWithPropertyList(documentOf({"Ann", "Ben"})));
    const std::string name(2 * megabyte, '&');
    tap("Ben");
    enter("Account Name", name);
    EXPECT_TRUE(nameOfSecondAccount() == name);
}

TEST_F(LargeDocument, IsWrittenAtTheLargestReadableSize) {
    platform::MutableDictionary entries(documentOf({"Ann"}));
    entries.set(kEnabled, false);
    entries.set("other", "");
    const std::size_t others = platform::dataWithPropertyList(entries.copy()).size();
    entries.set("other", std::string(platform::largestDocument - others, 'x'));
    // "<true/>" is a byte shorter than "<false/>".
    open(platform::dataWithPropertyList(entries.copy()));
    tap("Enabled");
    EXPECT_EQ(fs::file_size(onDisk(documentPath)), platform::largestDocument - 1);
    tap("Enabled");
    EXPECT_EQ(fs::file_size(onDisk(documentPath)), platform::largestDocument);
    EXPECT_TRUE(documentIsUnchanged());
}

} // namespace
} // namespace wardlock::test
