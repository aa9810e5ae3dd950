#include "platform/plist/PropertyList.h"
#include "platform/ui/UIView.h"
#include "specifiers/PreferenceHelper.h"
#include "specifiers/PreferenceHelperAdditions.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::PSSpecifier;

/// A bundle that contains lock.png, lock.jpg, a.b.png and inner/deep.png.
class RowIcon : public DeviceRootFixture {
protected:
    RowIcon() {
        writeFile("/Icons.bundle/Info.plist",
                  platform::dataWithPropertyList(platform::Dictionary{{"CFBundleName", "Icons"}}));
        for (const char* name : {"lock.png", "lock.jpg", "a.b.png", "inner/deep.png"})
            writeFile(std::string("/Icons.bundle/") + name, "picture");
        bundle = platform::NSBundle::bundleWithPath("/Icons.bundle");
    }

    /// The file that the row's icon was loaded from; empty when the row shows none.
    std::string iconNamed(std::string_view fileName) {
        setIcon(*row, bundle.get(), fileName);
        const auto image = row->imageForKey("iconImage");
        return image ? std::filesystem::relative(image->path(), bundle->bundlePath()).string() : "";
    }

    std::shared_ptr<platform::NSBundle> bundle;
    std::shared_ptr<PSSpecifier> row = PSSpecifier::preferenceSpecifierNamed(
        "Row", nullptr, {}, {}, nullptr, platform::PSCellType::Button, nullptr);
};

TEST_F(RowIcon, IsPngWithoutAnExtension) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
}

TEST_F(RowIcon, IsTheNamedFileWithAnExtension) {
    EXPECT_EQ(iconNamed("lock.jpg"), "lock.jpg");
}

TEST_F(RowIcon, IsPngWithAnEmptyExtension) {
    EXPECT_EQ(iconNamed("lock."), "lock.png");
}

TEST_F(RowIcon, SplitsItsNameAtTheLastFullStop) {
    EXPECT_EQ(iconNamed("a.b.png"), "a.b.png");
    EXPECT_EQ(iconNamed("a.b."), "a.b.png") << "the extension is empty, not \"b.\"";
    EXPECT_EQ(iconNamed("a.b"), "") << "the extension is \"b\"";
}

TEST_F(RowIcon, MayBeInAFolder) {
    EXPECT_EQ(iconNamed("inner/deep"), "inner/deep.png");
}

TEST_F(RowIcon, IsAbsentWhenItsFileIsMissing) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
    EXPECT_EQ(iconNamed("missing"), "");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(row->propertyForKey("iconImage")));
}

TEST_F(RowIcon, IsAbsentWithoutAName) {
    EXPECT_EQ(iconNamed(""), "");
}

TEST_F(RowIcon, IsAbsentWhenItsTargetIsGone) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
    const auto helper = PreferenceHelper::initWithTarget(nullptr, {}, {});
    EXPECT_EQ(helper->withIcon(row, "lock"), row);
    EXPECT_EQ(row->imageForKey("iconImage"), nullptr);
}

TEST_F(RowIcon, IsAddedFromTheHelpersBundleAndTakenFromTheTargetsBundle) {
    // A view's class lies in the platform's library, the helper's in this program.
    const auto target = std::make_shared<platform::UIView>(platform::CGRectZero);
    const std::string own = platform::NSBundle::bundleForClass(typeid(PreferenceHelper))->bundlePath();
    const std::string theirs = platform::NSBundle::bundleForObject(*target)->bundlePath();
    ASSERT_NE(own, theirs);
    MemoryFileSystem files;
    files.addFile(own + "/lock.png", "picture");
    files.addFile(theirs + "/lock.png", "picture");
    platform::FileSystem::setCurrent(&files);
    const auto helper = PreferenceHelper::initWithTarget(target, {}, {});
    const auto bound = helper->link("Row", nullptr);
    const auto added = addIcon(bound, "lock")->imageForKey("iconImage");
    const auto taken = helper->withIcon(bound, "lock")->imageForKey("iconImage");
    platform::FileSystem::setCurrent(nullptr);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->path(), own + "/lock.png");
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(taken->path(), theirs + "/lock.png");
}

TEST_F(RowIcon, IsAddedToTheRowItself) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
    EXPECT_EQ(addIcon(row, "missing"), row);
    EXPECT_EQ(row->imageForKey("iconImage"), nullptr);
}

} // namespace
} // namespace wardlock::test
