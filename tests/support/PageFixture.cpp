#include "tests/support/PageFixture.h"

#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/ui/UIApplication.h"
#include "settings/DefaultSettings.h"

namespace wardlock::test {

using platform::Array;
using platform::Dictionary;
using platform::Value;

PageFixture::PageFixture() : window(std::make_shared<platform::UIWindow>(device.bounds)) {
    platform::UIApplication::sharedApplication().setKeyWindow(window);
    changes.onPost = [this](const RecordingNotificationCenter::Post&) {
        documentThen.push_back(platform::dictionaryWithContentsOfFile(documentPath));
    };
}

PageFixture::~PageFixture() {
    platform::FileSystem::setCurrent(nullptr);
    platform::UIApplication::sharedApplication().setKeyWindow(nullptr);
}

void PageFixture::writeDocument(const Dictionary& document) const {
    writeFile(documentPath, platform::dataWithPropertyList(document));
}

Dictionary PageFixture::document() const {
    const auto document = platform::dictionaryWithContentsOfFile(documentPath);
    EXPECT_TRUE(document) << "no document on disk";
    return document.value_or(Dictionary());
}

Array PageFixture::accounts() const {
    const auto stored = document();
    const auto* accounts = platform::arrayValue(stored.find("kAccounts"));
    EXPECT_TRUE(accounts) << "no accounts in the document";
    return accounts ? *accounts : Array();
}

Dictionary PageFixture::account(std::size_t index) const {
    return accounts().at(index).dictionary();
}

void PageFixture::writeAccounts(const Array& accounts) const {
    writeDocument({{"kEnabled", true}, {"kPasscode", ""}, {"kAccounts", accounts}});
}

std::string PageFixture::markDocument() const {
    std::string bytes = readFile(documentPath);
    const std::string written = bytes;
    bytes.insert(bytes.find("<dict>"), "<!-- not written again -->");
    writeFile(documentPath, bytes);
    return written;
}

void PageFixture::expectOneChange(std::string_view key, const Value& object) {
    ASSERT_EQ(changes.posts.size(), 1u);
    const auto post = changes.posts.front();
    const auto then = documentThen.front();
    changes.posts.clear();
    documentThen.clear();
    EXPECT_EQ(post.name, "com.tavix.wardlock/update");
    EXPECT_FALSE(post.object);
    EXPECT_TRUE(post.deliverImmediately);
    ASSERT_TRUE(post.userInfo);
    EXPECT_TRUE(*post.userInfo == Dictionary({{"key", Value(key)}, {"object", object}}));
    EXPECT_TRUE(then == platform::dictionaryWithContentsOfFile(documentPath));
}

void PageFixture::expectNoChange() {
    EXPECT_EQ(changes.posts.size(), 0u);
}

void PageFixture::refuseWrites() {
    faulty_.failEvery("create", std::errc::no_space_on_device);
    platform::FileSystem::setCurrent(&faulty_);
}

Dictionary accountNamed(std::string_view name, bool enabled) {
    platform::MutableDictionary record(DefaultSettings().find("kAccounts")->array().at(0).dictionary());
    record.set("kAccountName", Value(name));
    record.set("kAccountEnabled", Value(enabled));
    return record.copy();
}

std::shared_ptr<platform::PSSpecifier> rowNamed(platform::PSListController& page, std::string_view label) {
    for (const auto& row : page.specifiers())
        if (row->name() == label && row->cellType() != platform::PSCellType::Group)
            return row;
    ADD_FAILURE() << "no row \"" << label << '"';
    return nullptr;
}

std::shared_ptr<platform::PSSpecifier> rowOfKey(platform::PSListController& page, std::string_view key) {
    for (const auto& row : page.specifiers())
        if (row->identifier() == key)
            return row;
    ADD_FAILURE() << "no row of " << key;
    return nullptr;
}

void tap(platform::PSListController& page, std::string_view label) {
    const auto row = rowNamed(page, label);
    if (!row)
        return;
    const auto path = page.sections().find(*row);
    ASSERT_TRUE(path);
    page.tableViewDidSelectRowAtIndexPath(*path);
}

std::vector<std::string> names(platform::PSListController& page) {
    std::vector<std::string> names;
    for (const auto& row : page.specifiers())
        names.push_back(row->name());
    return names;
}

} // namespace wardlock::test
