#include "tests/unit/cli/VerbsFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Value;

/// Over a device with the demonstration's applications.
class AppCommand : public VerbsFixture {
protected:
    AppCommand() {
        const ProcessResult made = run({"device", "init", "--demo", root()});
        EXPECT_EQ(made.exitCode, 0) << made.errors;
        storeApps({"com.apple.mobilemail", "org.example.gone"});
    }
    void storeApps(const Array& apps) const {
        platform::MutableDictionary record(account("Ben", true));
        record.set(kAppsRestricted, apps);
        write({{"foreign", 7}, {kEnabled, true}, {kPasscode, ""}, {kAccounts, Array{record.copy()}}});
    }
    Value storedApps() const { return stored(0, kAppsRestricted); }
    void install(const std::string& folder, const std::string& identifier, const std::string& name) const {
        writeFile("/Applications/" + folder + ".app/Info.plist",
                  platform::dataWithPropertyList(platform::Dictionary{{"CFBundleIdentifier", identifier},
                                                                      {"CFBundleDisplayName", name}}));
    }
};

TEST_F(AppCommand, ListsWhatThePickerOffersTheRestrictedOnesFirst) {
    const ProcessResult result = run({"apps"});
    EXPECT_TRUE(result.output.starts_with("restricted  Mail              com.apple.mobilemail\n"
                                          "restricted                    org.example.gone  (not installed)\n"
                                          "allowed     7 Minute Walk     org.example.walkseven\n"
                                          "allowed     App Store         com.apple.AppStore\n"))
        << result.output;
    EXPECT_EQ(result.output.find("com.apple.Preferences"), std::string::npos) << "it is never offered";
    EXPECT_TRUE(
        run({"apps", "--json"})
            .output.starts_with(
                R"({"identifier":"com.apple.mobilemail","name":"Mail","installed":true,"restricted":true})"));
}

TEST_F(AppCommand, ListsAnAppOnceThatIsStoredTwice) {
    storeApps({"com.apple.mobilemail", "com.apple.mobilemail"});
    const std::string output = run({"apps"}).output;
    EXPECT_EQ(output.find("com.apple.mobilemail"), output.rfind("com.apple.mobilemail"));
    EXPECT_NE(output.find("allowed     7 Minute Walk"), std::string::npos);
}

TEST_F(AppCommand, RestrictsAppsByNameOrIdentifierInOneChange) {
    expectAnnounces({"restrict", "FaceTime", "com.apple.mobilenotes", "mail"},
                    {R"({"key":"kAppsRestricted","value":["com.apple.mobilemail","org.example.gone",)"
                     R"("com.apple.facetime","com.apple.mobilenotes"],)"});
    EXPECT_EQ(storedApps(), Value(Array{"com.apple.mobilemail", "org.example.gone", "com.apple.facetime",
                                        "com.apple.mobilenotes"}));
}

TEST_F(AppCommand, AllowsAppsThatAreNoLongerInstalledToo) {
    expectAnnounces({"allow", "org.example.gone", "Mail"}, {R"({"key":"kAppsRestricted","value":[],)"});
    EXPECT_EQ(storedApps(), Value(Array{}));
}

TEST_F(AppCommand, ListsTheAppsThatANameFits) {
    install("One", "org.example.one", "Twin");
    install("Two", "org.example.two", "Twin");
    expectRefuses({"restrict", "twin"}, 1,
                  "restrict: 'twin' matches 2 apps: org.example.one, org.example.two");
    expectPrints({"restrict", "org.example.two"}, "");
}

TEST_F(AppCommand, RefusesWhatThePickerDoesNotOffer) {
    expectRefuses({"restrict", "com.apple.Preferences"}, 1, "restrict: no app 'com.apple.Preferences'");
    expectRefuses({"restrict", "Mail", "FaceTme"}, 1, "restrict: no app 'FaceTme'; did you mean 'FaceTime'?");
    expectRefuses({"restrict"}, 2, "restrict: missing argument APP (see wardlock restrict --help)");
    expectRefuses({"allow", "--account", "Tom", "Mail"}, 1, "allow: no account 'Tom'");
    expectRefuses({"apps", "Mail"}, 2, "apps: unexpected argument 'Mail' (see wardlock apps --help)");
}

TEST_F(AppCommand, RefusesAnAccountWithoutAList) {
    write(
        {{kEnabled, true}, {kPasscode, ""}, {kAccounts, Array{platform::Dictionary{{kAccountName, "Ben"}}}}});
    const ProcessResult result = run({"restrict", "Mail"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock restrict: account 1 (Ben) has no list of restricted apps\n");
}

/// Over a device root for which Settings was not opened yet.
class AppCommandOnNewRoot : public VerbsFixture {
protected:
    static constexpr const char* modulePath = "/Library/MobileSubstrate/DynamicLibraries/AppList.dylib";

    AppCommandOnNewRoot() {
        writeFile("/Applications/One.app/Info.plist",
                  platform::dataWithPropertyList(platform::Dictionary{
                      {"CFBundleIdentifier", "org.example.one"}, {"CFBundleDisplayName", "One"}}));
    }
};

TEST_F(AppCommandOnNewRoot, ListsTheInstalledAppsAndCreatesNoLink) {
    expectPrints({"apps"}, "restricted       org.example.stored  (not installed)\n"
                           "allowed     One  org.example.one\n");
    expectPrints({"complete", "apps"}, "One\n");
    EXPECT_FALSE(exists(modulePath));
}

TEST_F(AppCommandOnNewRoot, RestrictsAndAllowsAppsByName) {
    expectPrints({"restrict", "one"}, "");
    EXPECT_EQ(stored(1, kAppsRestricted), Value(Array{"org.example.stored", "org.example.one"}));
    expectPrints({"allow", "One"}, "");
    EXPECT_EQ(stored(1, kAppsRestricted), Value(Array{"org.example.stored"}));
}

TEST_F(AppCommandOnNewRoot, ListsTheAppsInPlaceOfALinkThatLeadsNowhere) {
    std::filesystem::create_symlink("/nowhere/AppList.dylib", onDisk(modulePath));
    EXPECT_NE(run({"apps"}).output.find("org.example.one"), std::string::npos);
}

TEST_F(AppCommandOnNewRoot, ListsNothingWhereTheListCannotBeLoaded) {
    writeFile(modulePath, "not a module");
    const ProcessResult result = run({"apps"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(result.errors.starts_with("wardlock apps: cannot list applications: " + onDisk(modulePath)))
        << result.errors;
}

TEST_F(AppCommandOnNewRoot, ChangesRestrictedAppsWhereTheListCannotBeLoaded) {
    writeFile(modulePath, "not a module");
    ProcessResult result = run({"allow", "org.example.stored"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.errors.starts_with("wardlock allow: cannot list applications: ")) << result.errors;
    EXPECT_EQ(stored(1, kAppsRestricted), Value(Array{}));
    result = run({"restrict", "One"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.starts_with("wardlock restrict: cannot list applications: ")) << result.errors;
    EXPECT_TRUE(result.errors.ends_with("wardlock restrict: no app 'One'\n")) << result.errors;
}

} // namespace
} // namespace wardlock::test
