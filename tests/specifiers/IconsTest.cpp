#include "platform/foundation/PropertyList.h"
#include "specifiers/PreferenceHelper.h"
#include "specifiers/PreferenceHelperAdditions.h"
#include "tests/support/DeviceRootFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::PSSpecifier;

/// A bundle that holds lock.png, lock.jpg, a.b.png and inner/deep.png.
class Icons : public DeviceRootFixture {
protected:
    Icons() {
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

TEST_F(Icons, WithoutAnExtensionArePng) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
}

TEST_F(Icons, WithAnExtensionAreThatFile) {
    EXPECT_EQ(iconNamed("lock.jpg"), "lock.jpg");
}

TEST_F(Icons, WithAnEmptyExtensionArePng) {
    EXPECT_EQ(iconNamed("lock."), "lock.png");
}

TEST_F(Icons, SplitTheirNameAtTheLastFullStop) {
    EXPECT_EQ(iconNamed("a.b.png"), "a.b.png");
}

TEST_F(Icons, MayLieInAFolder) {
    EXPECT_EQ(iconNamed("inner/deep"), "inner/deep.png");
}

TEST_F(Icons, ThatAreNotThereLeaveTheRowWithoutOne) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
    EXPECT_EQ(iconNamed("missing"), "");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(row->propertyForKey("iconImage")));
}

TEST_F(Icons, OfNoNameLeaveTheRowWithoutOne) {
    EXPECT_EQ(iconNamed(""), "");
}

TEST_F(Icons, OfATargetThatIsGoneLeaveTheRowWithoutOne) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
    const auto helper = PreferenceHelper::initWithTarget(nullptr, {}, {});
    EXPECT_EQ(helper->withIcon(row, "lock"), row);
    EXPECT_EQ(row->imageForKey("iconImage"), nullptr);
}

TEST_F(Icons, AreAddedToTheVeryRow) {
    EXPECT_EQ(iconNamed("lock"), "lock.png");
    EXPECT_EQ(addIcon(row, "missing"), row);
    EXPECT_EQ(row->imageForKey("iconImage"), nullptr);
}

} // namespace
} // namespace wardlock::test
