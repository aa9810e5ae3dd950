#include "settings/ChangeNotification.h"

#include "settings/Constants.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <gtest/gtest.h>

using namespace wardlock;
using platform::Array;
using platform::Dictionary;
using wardlock::test::RecordingNotificationCenter;

TEST(ChangeNotification, IsNamedAfterIdentifierAndPost) {
    EXPECT_EQ(changeNotificationName(BundleIdentifier, PostName), "com.tavix.wardlock/update");
    EXPECT_EQ(changeNotificationName("a", "b"), "a/b");
}

TEST(ChangeNotification, CarriesExactlyTheKeyAndItsValueAtOnce) {
    RecordingNotificationCenter center;
    postChange(BundleIdentifier, PostName, "kAccounts", Array{1, 2});
    ASSERT_EQ(center.posts.size(), 1U);
    const auto& post = center.posts[0];
    EXPECT_EQ(post.name, "com.tavix.wardlock/update");
    EXPECT_FALSE(post.object);
    EXPECT_TRUE(post.deliverImmediately);
    ASSERT_TRUE(post.userInfo);
    EXPECT_EQ(*post.userInfo, (Dictionary{{"key", "kAccounts"}, {"object", Array{1, 2}}}));
}

TEST(ChangeNotification, ReachesItsObservers) {
    RecordingNotificationCenter center;
    int reported = 0;
    const auto subscription =
        observeChanges(BundleIdentifier, PostName, &reported,
                       [](platform::CFNotificationCenter&, void* observer, std::string_view,
                          const std::string*, const Dictionary*) { ++*static_cast<int*>(observer); });
    center.deliver("com.tavix.wardlock/update");
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(center.observers[0].suspension, platform::CFNotificationSuspensionBehavior::DeliverImmediately);
}
