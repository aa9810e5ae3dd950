#include "settings/DefaultSettings.h"
#include "settings/EnabledAccount.h"
#include "settings/Settings.h"
#include "tests/support/SettingsFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace wardlock;
using platform::Array;
using platform::Dictionary;
using platform::Value;

namespace {

constexpr std::string_view changeName = "com.tavix.wardlock/update";

class SettingsUpdate : public test::SettingsFixture {
protected:
    /// What the callback received, in order.
    using Change = std::pair<std::optional<Value>, std::optional<Value>>;

    ChangeCallback recordingCallback() {
        return [this](const Value* key, const Value* object) {
            changes.emplace_back(copied(key), copied(object));
        };
    }

    static std::optional<Value> copied(const Value* value) {
        return value ? std::optional<Value>(*value) : std::nullopt;
    }

    std::vector<Change> changes;
};

} // namespace

TEST_F(SettingsUpdate, ObservesTheChangeNotificationOfThePostName) {
    InitSettingsWithUpdateName("update");
    ASSERT_EQ(center.observers.size(), 1U);
    const auto& registration = center.observers[0];
    EXPECT_EQ(registration.name, changeName);
    EXPECT_EQ(registration.callback, &SettingsUpdateCallback);
    EXPECT_EQ(registration.observer, nullptr);
    EXPECT_FALSE(registration.object);
    EXPECT_EQ(registration.suspension, platform::CFNotificationSuspensionBehavior::DeliverImmediately);
}

TEST_F(SettingsUpdate, FormsTheNameFromThePostNameGiven) {
    InitSettingsWithUpdateName("other");
    ASSERT_EQ(center.observers.size(), 1U);
    EXPECT_EQ(center.observers[0].name, "com.tavix.wardlock/other");
}

TEST_F(SettingsUpdate, RegistersBeforeItLoads) {
    bool loaded = true;
    center.onAddObserver = [&](const auto&) {
        loaded = TweakSettings || EnabledAccount || exists(documentPath);
    };
    InitSettingsWithUpdateName("update");
    EXPECT_FALSE(loaded);
    EXPECT_TRUE(TweakSettings);
    EXPECT_EQ(readDocument(), DefaultSettings());
}

TEST_F(SettingsUpdate, KeepsTheCallbackBeforeItRegisters) {
    bool kept = false;
    center.onAddObserver = [&](const auto&) { kept = static_cast<bool>(UpdateCallback); };
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    EXPECT_TRUE(kept);
    EXPECT_EQ(center.observers.size(), 1U);
    EXPECT_TRUE(TweakSettings);
}

TEST_F(SettingsUpdate, DoesNotCallTheCallbackAtStart) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    EXPECT_TRUE(changes.empty());
}

TEST_F(SettingsUpdate, PostsNothingItself) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    center.deliver(changeName);
    EXPECT_TRUE(center.posts.empty());
}

TEST_F(SettingsUpdate, PassesTheChangeToTheCallbackAfterReloading) {
    std::optional<bool> enabledDuringCall;
    InitSettingsWithUpdateNameAndCallback("update", [&](const Value* key, const Value* object) {
        enabledDuringCall = boolForKey("kEnabled");
        changes.emplace_back(copied(key), copied(object));
    });
    EXPECT_TRUE(boolForKey("kEnabled"));
    writeDocument({{"kEnabled", false}, {"kPasscode", ""}, {"kAccounts", Array{}}});
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", false}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_EQ(enabledDuringCall, false);
    EXPECT_EQ(changes, (std::vector<Change>{{Value("kEnabled"), Value(false)}}));
}

TEST_F(SettingsUpdate, ReloadsFromDiskWhateverTheNotificationCarries) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", false}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_TRUE(boolForKey("kEnabled"));
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(SettingsUpdate, OnlyReloadsWithoutUserInfo) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    writeDocument({{"kEnabled", false}, {"kPasscode", ""}, {"kAccounts", Array{}}});
    center.deliver(changeName);
    EXPECT_FALSE(boolForKey("kEnabled"));
    EXPECT_TRUE(changes.empty());
}

TEST_F(SettingsUpdate, OnlyReloadsWithEmptyUserInfo) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    writeDocument({{"kEnabled", false}, {"kPasscode", ""}, {"kAccounts", Array{}}});
    const Dictionary empty;
    center.deliver(changeName, nullptr, &empty);
    EXPECT_FALSE(boolForKey("kEnabled"));
    EXPECT_TRUE(changes.empty());
}

TEST_F(SettingsUpdate, OnlyReloadsWithoutACallback) {
    InitSettingsWithUpdateName("update");
    writeDocument({{"kEnabled", false}, {"kPasscode", ""}, {"kAccounts", Array{}}});
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", false}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_FALSE(boolForKey("kEnabled"));
}

TEST_F(SettingsUpdate, PassesMissingValuesAsNull) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    const Dictionary keyOnly{{"key", "kEnabled"}};
    const Dictionary objectOnly{{"object", 7}};
    const Dictionary neither{{"other", 1}};
    center.deliver(changeName, nullptr, &keyOnly);
    center.deliver(changeName, nullptr, &objectOnly);
    center.deliver(changeName, nullptr, &neither);
    EXPECT_EQ(changes, (std::vector<Change>{{Value("kEnabled"), std::nullopt},
                                            {std::nullopt, Value(7)},
                                            {std::nullopt, std::nullopt}}));
}

TEST_F(SettingsUpdate, CreatesADocumentThatWentMissing) {
    InitSettingsWithUpdateName("update");
    removeFile(documentPath);
    center.deliver(changeName);
    EXPECT_EQ(readDocument(), DefaultSettings());
}

TEST_F(SettingsUpdate, ReplacesAndReleasesAnEarlierCallback) {
    auto captured = std::make_shared<int>(0);
    const std::weak_ptr<int> calls = captured;
    InitSettingsWithUpdateNameAndCallback("update", [captured](const Value*, const Value*) { ++*captured; });
    captured.reset();
    EXPECT_FALSE(calls.expired());
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    EXPECT_TRUE(calls.expired());
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", true}};
    SettingsUpdateCallback(center, nullptr, changeName, nullptr, &userInfo);
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(SettingsUpdate, ClearsAnEarlierCallbackWhereTheNewOneIsNull) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    InitSettingsWithUpdateNameAndCallback("update", nullptr);
    EXPECT_FALSE(UpdateCallback);
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", true}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_TRUE(changes.empty());
}

TEST_F(SettingsUpdate, ObservesThePostNameGivenWithTheCallback) {
    InitSettingsWithUpdateNameAndCallback("other", recordingCallback());
    ASSERT_EQ(center.observers.size(), 1U);
    EXPECT_EQ(center.observers[0].name, "com.tavix.wardlock/other");
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", true}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_TRUE(changes.empty());
    center.deliver("com.tavix.wardlock/other", nullptr, &userInfo);
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(SettingsUpdate, KeepsItsCallbackWhenGivenAPostNameAlone) {
    InitSettingsWithUpdateNameAndCallback("update", recordingCallback());
    InitSettingsWithUpdateName("other");
    EXPECT_TRUE(UpdateCallback);
}

TEST_F(SettingsUpdate, LetsTheCallbackReplaceItselfDuringTheCall) {
    const std::string captured = "captured by the callback that is running";
    std::string seen;
    InitSettingsWithUpdateNameAndCallback("update", [&seen, captured](const Value*, const Value*) {
        UpdateCallback = nullptr;
        seen = captured;
    });
    const Dictionary userInfo{{"key", "kEnabled"}, {"object", true}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_EQ(seen, captured);
    EXPECT_FALSE(UpdateCallback);
}

TEST_F(SettingsUpdate, ReadsTheNextEnabledAccountAfterAChange) {
    writeDocument(documentWithAccounts({false, true, true}));
    InitSettingsWithUpdateName("update");
    EXPECT_EQ(*AccountObject("kAccountName"), Value("B"));
    writeDocument(documentWithAccounts({false, false, true}));
    const Dictionary userInfo{{"key", "kAccountEnabled"}, {"object", false}};
    center.deliver(changeName, nullptr, &userInfo);
    EXPECT_EQ(*AccountObject("kAccountName"), Value("C"));
}
