#include "shell/device/BundleList.h"

#include "tests/support/DeviceRootFixture.h"

using wardlock::shell::BundleList;

namespace {

class ListedBundles : public wardlock::test::DeviceRootFixture {
protected:
    void putBundle(const std::string& folder, const std::string& entries) const {
        writeFile("/Library/PreferenceBundles/" + folder + "/Info.plist",
                  "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
    }
    static std::string named(const std::string& name) {
        return (name.empty() ? "" : "<key>CFBundleDisplayName</key><string>" + name + "</string>") +
               "<key>CFBundleExecutable</key><string>m</string>"
               "<key>NSPrincipalClass</key><string>C</string>";
    }
    static std::vector<std::string> names(const BundleList& list) {
        std::vector<std::string> names;
        for (const auto& entry : list.entries())
            names.push_back(entry.name);
        return names;
    }
};

} // namespace

TEST_F(ListedBundles, IsEmptyWithoutTheFolder) {
    EXPECT_TRUE(BundleList().entries().empty());
    EXPECT_TRUE(BundleList().leftOut().empty());
}

TEST_F(ListedBundles, ListsBundlesByNameWithoutRegardToCase) {
    putBundle("1.bundle", named("zebra"));
    putBundle("2.bundle", named("Apple"));
    putBundle("3.bundle", named("mango"));
    EXPECT_EQ(names(BundleList()), (std::vector<std::string>{"Apple", "mango", "zebra"}));
}

TEST_F(ListedBundles, NamesABundleWithoutANameAfterItsFolder) {
    putBundle("Plain.bundle", named(""));
    EXPECT_EQ(names(BundleList()), std::vector<std::string>{"Plain"});
}

TEST_F(ListedBundles, IgnoresEntriesThatAreNotBundles) {
    writeFile("/Library/PreferenceBundles/readme.txt", "");
    makeFolder("/Library/PreferenceBundles/other");
    EXPECT_TRUE(BundleList().entries().empty());
    EXPECT_TRUE(BundleList().leftOut().empty());
}

TEST_F(ListedBundles, LeavesBrokenBundlesOutWithTheReason) {
    makeFolder("/Library/PreferenceBundles/A.bundle");
    putBundle("B.bundle", "<key>NSPrincipalClass</key><string>C</string>");
    putBundle("C.bundle", "<key>CFBundleExecutable</key><string>m</string>");
    putBundle("D.bundle", named("Whole"));
    const BundleList list;
    EXPECT_EQ(names(list), std::vector<std::string>{"Whole"});
    EXPECT_EQ(list.leftOut(), (std::vector<std::string>{
                                  "“A.bundle” is not shown: its Info.plist cannot be read.",
                                  "“B.bundle” is not shown: its Info.plist names no module.",
                                  "“C.bundle” is not shown: its Info.plist names no principal class."}));
}

TEST_F(ListedBundles, CountsTheBrokenBundlesBeyondTwenty) {
    for (int number = 100; number < 121; ++number)
        makeFolder("/Library/PreferenceBundles/" + std::to_string(number) + ".bundle");
    EXPECT_EQ(BundleList().leftOut().back(), "1 more is not shown.");
    makeFolder("/Library/PreferenceBundles/121.bundle");
    EXPECT_EQ(BundleList().leftOut().back(), "2 more are not shown.");
}

TEST_F(ListedBundles, FindsTheIcon) {
    putBundle("Icon.bundle", named("Icon") + "<key>CFBundleIconFile</key><string>face.png</string>");
    writeFile("/Library/PreferenceBundles/Icon.bundle/face.png", "png");
    const BundleList list;
    ASSERT_EQ(list.entries().size(), 1U);
    ASSERT_TRUE(list.entries()[0].icon);
    EXPECT_TRUE(list.entries()[0].icon->path().ends_with("/face.png"));
}
