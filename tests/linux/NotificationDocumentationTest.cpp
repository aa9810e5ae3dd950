#include "tests/support/BusFixture.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace wardlock::test {
namespace {

using NotificationDocumentationTest = BusFixture;

TEST_F(NotificationDocumentationTest, ListensWithTheExampleForShells) {
    Process listener(sourceFolder() + "/docs/examples/listen-to-notifications", {root()});
    // The bus takes the monitor's own name away when it begins to listen.
    std::optional<std::string> line;
    do
        line = listener.readLine();
    while (line && line->find("member=NameLost") == std::string::npos);
    const TemporaryFolder otherRoot;
    post({"N", "--sample", "foreign"}, with("WARDLOCK_DEVICE_ROOT", otherRoot.path()));
    post({"N", "--object", "o", "--sample", "change"});
    std::string said;
    do {
        line = listener.readLine();
        said += line.value_or("") + '\n';
    } while (line && line->find("boolean true") == std::string::npos);
    EXPECT_NE(said.find("interface=com.tavix.DistributedNotifications; member=Notification\n"),
              std::string::npos)
        << said;
    EXPECT_NE(said.find("string \"N\""), std::string::npos) << said;
    EXPECT_NE(said.find("string \"o\""), std::string::npos) << said;
    EXPECT_NE(said.find("string \"kRestrictSiri\""), std::string::npos) << said;
    EXPECT_EQ(said.find("foreign"), std::string::npos) << said;
}

TEST_F(NotificationDocumentationTest, PostsWithTheCommandForShells) {
    std::ifstream page(sourceFolder() + "/docs/notification.md");
    const std::string text{std::istreambuf_iterator<char>(page), std::istreambuf_iterator<char>()};
    const auto begin = text.find("    gdbus emit");
    ASSERT_NE(begin, std::string::npos);
    const auto observer = observe({"com.tavix.wardlock/update"});
    const auto result = runProcess("/bin/sh", {"-c", text.substr(begin, text.find("\n\n", begin) - begin)});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(observer->readLine(), R"(com.tavix.wardlock/update|-|{"key": "kEnabled", "object": true})");
}

} // namespace
} // namespace wardlock::test
