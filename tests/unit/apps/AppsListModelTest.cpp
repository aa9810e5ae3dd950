#include "platform/text/Collation.h"
#include "tests/support/EnglishLocale.h"
#include "tests/support/ThrownException.h"
#include "tests/unit/apps/PickerFixture.h"

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Value;

class AppsListModel : public PickerFixture {};

TEST_F(AppsListModel, OffersAllInstalledApplicationsByNameWhateverTheirCase) {
    install({{"z", "banana"}, {"y", "Apple"}, {"x", "Cherry"}, {"w", "apricot"}, {"v", "Zoo"}});
    restrict({});
    EXPECT_EQ(rows(*open()), (Identifiers{"y", "w", "z", "x", "v"}));
}

TEST_F(AppsListModel, OrdersNamesOfAllScriptsWithoutRegardToCase) {
    install({{"a", "Ωmega"},
             {"b", "ωdd"},
             {"c", "éclair"},
             {"d", "Éclat"},
             {"e", "Привет"},
             {"f", "ПРИвес"},
             {"g", "メモ"},
             {"h", "zebra"}});
    restrict({});
    EXPECT_EQ(rows(*open()), (Identifiers{"h", "c", "d", "b", "a", "f", "e", "g"}));
}

TEST_F(AppsListModel, OrdersBothGroupsWithoutRegardToTheUsersLanguage) {
    const EnglishLocale english(environment);
    std::string apples;
    std::string zebra;
    platform::appendLocalizedKey("Äpfel", apples);
    platform::appendLocalizedKey("Zebra", zebra);
    ASSERT_LT(apples, zebra);
    install({{"a", "Äpfel"}, {"b", "Zebra"}, {"c", "äpfel"}, {"d", "zebra"}});
    restrict({"a", "b"});
    EXPECT_EQ(rows(*open()), (Identifiers{"b", "a", "d", "c"}));
}

TEST_F(AppsListModel, NeverOffersTheFiftyOneServicesOfTheSystem) {
    platform::MutableDictionary applications;
    const Array hidden = AppsListView(frame).hiddenDisplayIdentifiers();
    for (const Value& identifier : hidden)
        applications.set(identifier.string(), Value("Service"));
    applications.set("org.shown", Value("Shown"));
    install(applications.copy());
    restrict({});
    EXPECT_EQ(hidden.size(), 51u);
    EXPECT_EQ(rows(*open()), (Identifiers{"org.shown"}));
}

TEST_F(AppsListModel, NamesTheServicesInThisOrder) {
    EXPECT_EQ(AppsListView(frame).hiddenDisplayIdentifiers(),
              Array({
                  "com.apple.Preferences",
                  "com.apple.AdSheet",
                  "com.apple.AdSheetPhone",
                  "com.apple.AdSheetPad",
                  "com.apple.DataActivation",
                  "com.apple.DemoApp",
                  "com.apple.fieldtest",
                  "com.apple.iosdiagnostics",
                  "com.apple.iphoneos.iPodOut",
                  "com.apple.TrustMe",
                  "com.apple.WebSheet",
                  "com.apple.springboard",
                  "com.apple.purplebuddy",
                  "com.apple.datadetectors.DDActionsService",
                  "com.apple.FacebookAccountMigrationDialog",
                  "com.apple.iad.iAdOptOut",
                  "com.apple.ios.StoreKitUIService",
                  "com.apple.TextInput.kbd",
                  "com.apple.MailCompositionService",
                  "com.apple.mobilesms.compose",
                  "com.apple.quicklook.quicklookd",
                  "com.apple.ShoeboxUIService",
                  "com.apple.social.remoteui.SocialUIService",
                  "com.apple.WebViewService",
                  "com.apple.gamecenter.GameCenterUIService",
                  "com.apple.appleaccount.AACredentialRecoveryDialog",
                  "com.apple.CompassCalibrationViewService",
                  "com.apple.WebContentFilter.remoteUI.WebContentAnalysisUI",
                  "com.apple.PassbookUIService",
                  "com.apple.uikit.PrintStatus",
                  "com.apple.Copilot",
                  "com.apple.MusicUIService",
                  "com.apple.AccountAuthenticationDialog",
                  "com.apple.MobileReplayer",
                  "com.apple.SiriViewService",
                  "com.apple.AskPermissionUI",
                  "com.apple.CoreAuthUI",
                  "com.apple.Diagnostics",
                  "com.apple.family",
                  "com.apple.GameController",
                  "com.apple.HealthPrivacyService",
                  "com.apple.InCallService",
                  "com.apple.mobilesms.notification",
                  "com.apple.PhotosViewService",
                  "com.apple.PreBoard",
                  "com.apple.share",
                  "com.apple.SharedWebCredentialViewService",
                  "com.apple.PrintKit.Print-Center",
                  "com.apple.TencentWeiboAccountMigrationDialog",
                  "com.apple.webapp",
                  "com.apple.webapp1",
              }));
}

TEST_F(AppsListModel, HidesByExactIdentifierOnly) {
    install({{"com.apple.preferences", "Lower"}, {"com.apple.webapp2", "Two"}, {"com.apple.webap", "Short"}});
    restrict({});
    EXPECT_EQ(rows(*open()).size(), 3u);
}

TEST_F(AppsListModel, ReturnsANewArrayOfHiddenIdentifiersEachTime) {
    const AppsListView view(frame);
    EXPECT_FALSE(view.hiddenDisplayIdentifiers().isSameObject(view.hiddenDisplayIdentifiers()));
}

TEST_F(AppsListModel, ShowsRestrictedApplicationsFirstEachGroupByName) {
    install({{"a", "delta"}, {"b", "Bravo"}, {"c", "alpha"}, {"d", "Charlie"}});
    restrict({"a", "b"});
    EXPECT_EQ(rows(*open()), (Identifiers{"b", "a", "c", "d"}));
}

TEST_F(AppsListModel, ShowsAHiddenServiceThatIsRestricted) {
    install({{"com.apple.Preferences", "Settings"}, {"a", "Alpha"}});
    restrict({"com.apple.Preferences"});
    const auto view = open();
    EXPECT_EQ(rows(*view), (Identifiers{"com.apple.Preferences", "a"}));
    EXPECT_TRUE(isOn(*view, 0));
}

TEST_F(AppsListModel, ShowsWhatIsRestrictedButNoLongerInstalledAfterTheNamedRows) {
    install({{"a", "Zulu"}, {"b", "Bravo"}});
    restrict({"gone.2", "a", "gone.1"});
    const auto view = open();
    EXPECT_EQ(rows(*view), (Identifiers{"a", "gone.2", "gone.1", "b"}));
    EXPECT_TRUE(isOn(*view, 1));
}

TEST_F(AppsListModel, ListsTwiceWhatIsStoredTwice) {
    install({{"a", "Alpha"}, {"b", "Bravo"}});
    restrict({"b", "a", "b"});
    EXPECT_EQ(rows(*open()), (Identifiers{"a", "b", "b"}));
}

TEST_F(AppsListModel, KeepsTheStoredOrderOfTheRestricted) {
    install({{"a", "Alpha"}, {"b", "Bravo"}});
    restrict({"b", "a"});
    EXPECT_EQ(open()->enabled()->copy(), Array({"b", "a"}));
}

TEST_F(AppsListModel, OrdersNamesThatDifferInCaseOnlyTheSameEachTime) {
    install({{"a", "Note"}, {"b", "NOTE"}, {"c", "note"}});
    restrict({});
    EXPECT_EQ(rows(*open()), rows(*open()));
}

TEST_F(AppsListModel, SurvivesNamesThatAreEmptyOrNotUtf8) {
    install(
        {{"a", "\xff\xfe"}, {"b", ""}, {"c", std::string_view("A\0b", 3)}, {"d", 5}, {"", "no identifier"}});
    restrict({});
    EXPECT_EQ(rows(*open()), (Identifiers{"b", "c", "", "a", "d"}));
}

TEST_F(AppsListModel, EditsTheAccountAtSelectedIndex) {
    install({{"a", "Alpha"}, {"b", "Bravo"}});
    writeAccounts({Value(accountWith({"a"})), Value(accountWith({"b"}))});
    SelectedIndex = 1;
    EXPECT_EQ(open()->enabled()->copy(), Array({"b"}));
}

TEST_F(AppsListModel, IsBuiltFromTheAccountOfThePickerThatOpenedLast) {
    install({{"a", "Alpha"}, {"b", "Bravo"}});
    writeAccounts({Value(accountWith({"a"})), Value(accountWith({"b"}))});
    const auto first = open();
    SelectedIndex = 1;
    const auto second = open();
    first->setupArrays();
    EXPECT_EQ(first->enabled()->copy(), Array({"b"}));
}

TEST_F(AppsListModel, ThrowsWhenTheIndexIsOutsideTheAccounts) {
    restrict({});
    for (const std::intptr_t index : {std::intptr_t{1}, std::intptr_t{-1}, INTPTR_MAX, INTPTR_MIN}) {
        SelectedIndex = index;
        EXPECT_EQ(thrown([this] { open(); }), platform::NSRangeException) << index;
    }
}

TEST_F(AppsListModel, ThrowsWhenTheAccountsAreEmpty) {
    writeAccounts({});
    EXPECT_THROW(open(), platform::NSException);
}

TEST_F(AppsListModel, OffersEverythingWhenTheDocumentIsMissing) {
    install({{"a", "Alpha"}});
    const auto view = open();
    EXPECT_EQ(rows(*view), (Identifiers{"a"}));
    EXPECT_FALSE(view->enabled());
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(AppsListModel, OffersEverythingWhenTheAccountsAreOfAWrongKind) {
    install({{"a", "Alpha"}});
    writeDocument({{"kAccounts", "none"}});
    EXPECT_EQ(rows(*open()), (Identifiers{"a"}));
    writeDocument({{"kAccounts", Array({"no record"})}});
    EXPECT_EQ(rows(*open()), (Identifiers{"a"}));
}

TEST_F(AppsListModel, RestrictsNothingWhenTheRecordLacksItsList) {
    install({{"a", "Alpha"}});
    writeAccounts({Value(accountWithoutList())});
    const auto view = open();
    EXPECT_FALSE(view->enabled());
    EXPECT_EQ(rows(*view), (Identifiers{"a"}));
    EXPECT_FALSE(isOn(*view, 0));
}

TEST_F(AppsListModel, ListsTheRestrictedAloneWithoutTheLibrary) {
    list.reset();
    restrict({"a"});
    const auto view = open();
    EXPECT_EQ(rows(*view), (Identifiers{"a"}));
    EXPECT_TRUE(view->applications().empty());
    const auto shown = cell(*view, 0);
    EXPECT_EQ(shown->textLabel().text(), "");
    EXPECT_EQ(shown->image(), nullptr);
}

TEST_F(AppsListModel, LeavesForeignElementsOfTheListWhereTheyAre) {
    install({{"a", "Alpha"}, {"b", "Bravo"}});
    restrict({7, "a", true});
    const auto view = open();
    EXPECT_EQ(rows(*view), (Identifiers{"a", "b"}));
    tap(*view, 1);
    EXPECT_EQ(restricted(), Array({7, "a", true, "b"}));
}

TEST_F(AppsListModel, LeavesDisabledWithoutARole) {
    install({{"a", "Alpha"}});
    restrict({"a"});
    const auto view = open();
    EXPECT_FALSE(view->disabled());
    tap(*view, 0);
    EXPECT_FALSE(view->disabled());
    view->setDisabled(platform::MutableArray(Array({"a"})));
    EXPECT_EQ(view->disabled()->size(), 1u);
    EXPECT_EQ(rows(*view), (Identifiers{"a"}));
}

TEST_F(AppsListModel, ListsTenThousandApplications) {
    platform::MutableDictionary applications;
    for (int i = 0; i < 10000; ++i)
        applications.set("org." + std::to_string(i), Value("Name " + std::to_string(9999 - i)));
    install(applications.copy());
    restrict({"org.5"});
    const auto view = open();
    EXPECT_EQ(view->allApps().size(), 10000u);
    EXPECT_EQ(view->allApps().at(0).string(), "org.5");
    EXPECT_EQ(view->allApps().at(1).string(), "org.9999");
}

} // namespace
} // namespace wardlock::test
