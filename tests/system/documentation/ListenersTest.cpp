#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/system/documentation/Console.h"

#include <gtest/gtest.h>

#include <csignal>

namespace wardlock::test {
namespace {

using Listener = BusFixture;

/// The command of docs/notification.md that begins so.
std::string documentedCommand(const std::string& beginning) {
    for (const Step& step : stepsOf(Page("docs/notification.md")))
        if (step.command.starts_with(beginning))
            return step.command;
    ADD_FAILURE() << "docs/notification.md has no " << beginning;
    return "false";
}

TEST_F(Listener, ReceivesTheChangesOfItsDeviceInPython) {
    Process listener(sourceFolder() + "/examples/listen.py", {root()});
    ASSERT_EQ(listener.readLine(), "ready") << listener.wait().errors;
    const TemporaryFolder otherRoot;
    const std::string name = "com.tavix.wardlock/update";
    post({name, "--sample", "change"}, with("WARDLOCK_DEVICE_ROOT", otherRoot.path()));
    post({"another/name", "--sample", "change"});
    post({name, "--sample", "change"});
    EXPECT_EQ(listener.readLine(), "changed: kRestrictSiri = True");
    post({name});
    EXPECT_EQ(listener.readLine(), "changed");
}

TEST_F(Listener, ReadsEveryKindOfValueInPython) {
    Process listener(sourceFolder() + "/examples/listen.py", {root()});
    ASSERT_EQ(listener.readLine(), "ready") << listener.wait().errors;
    const std::string name = "com.tavix.wardlock/update";
    post({name, "--sample", "kinds"});
    EXPECT_EQ(listener.readLine(), "changed: None = None");
    post({name, "--sample", "deep"});
    const auto line = listener.readLine().value_or("");
    EXPECT_TRUE(line.starts_with("changed: deep = {'level': 1, 'inner': [2, {'level': 3, ")) << line;
    EXPECT_NE(line.find("'inside'"), std::string::npos) << line;
    post({name, "--sample", "deepest"});
    EXPECT_TRUE(listener.readLine().value_or("").starts_with("changed: deepest = [[[[")) << "and 507 more";
    listener.send(SIGTERM);
    EXPECT_EQ(listener.wait().errors, "");
}

TEST_F(Listener, IgnoresAMessageNestedDeeperThanADocumentInPython) {
    Process listener(sourceFolder() + "/examples/listen.py", {root()});
    ASSERT_EQ(listener.readLine(), "ready") << listener.wait().errors;
    const ProcessResult forged = runProcess(programFolder() + "/test-forger", {"kForged", "100000"});
    EXPECT_EQ(forged.exitCode, 0) << forged.errors;
    post({"com.tavix.wardlock/update", "--sample", "change"});
    EXPECT_EQ(listener.readLine(), "changed: kRestrictSiri = True");
    listener.send(SIGTERM);
    EXPECT_EQ(listener.wait().errors, "");
}

TEST_F(Listener, IgnoresWhatIsNotOfTheDocumentedFormInPython) {
    Process listener(sourceFolder() + "/examples/listen.py", {root()});
    ASSERT_EQ(listener.readLine(), "ready") << listener.wait().errors;
    const auto emit = [](const std::string& userInfo, const std::string& objects = "@as []") {
        SCOPED_TRACE(userInfo);
        std::string command = documentedCommand("gdbus emit");
        command.replace(command.find("\"@as []\""), std::string::npos, "\"$1\" \"$2\"");
        const auto sent = runProcess("/bin/sh", {"-c", command, "sh", objects, userInfo});
        EXPECT_EQ(sent.exitCode, 0) << sent.errors;
    };
    emit("[<{'key': <(1e300,)>}>, <{'key': <true>}>]");
    emit("@av []", "['one', 'two']");
    emit("[<'a text'>]");
    emit("[<{'key': <['texts']>}>]");
    emit("[<{'key': <<'a variant in a variant'>>}>]");
    for (const char* items :
         {"", "<'text'>", "<('set', uint32 0)>", "<('array', uint32 0)>", "<('dictionary', uint32 1)>",
          "<('dictionary', uint32 1)>, <'key'>", "<('dictionary', uint32 1)>, <true>, <true>",
          "<('dictionary', uint32 1)>, <('array', uint32 0)>, <true>", "<('dictionary', uint32 0)>, <true>",
          "<('dictionary', uint32 1)>, <'key'>, <@av []>"})
        emit("[<(@av [" + std::string(items) + "],)>]");
    // Dates that Python's calendar does not have.
    emit("[<{'key': <'far'>, 'object': <(1e300,)>}>]");
    EXPECT_EQ(listener.readLine(), "changed: far = 1e+300");
    emit("[<{'key': <'none'>, 'object': <(nan,)>}>]");
    EXPECT_EQ(listener.readLine(), "changed: none = nan");
    listener.send(SIGTERM);
    EXPECT_EQ(listener.wait().errors, "");
}

TEST_F(Listener, ReportsAMissingBusInPython) {
    const auto result = runProcess(sourceFolder() + "/examples/listen.py", {root()},
                                   with("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.starts_with("listen.py: ")) << result.errors;
}

TEST_F(Listener, ReceivesTheChangesOfItsDeviceInAShell) {
    Process listener("/bin/sh", {"-c", "exec " + documentedCommand("dbus-monitor")});
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

TEST_F(Listener, ReceivesAPostOfAShellInCpp) {
    const auto observer = observe({"com.tavix.wardlock/update"});
    const auto result = runProcess("/bin/sh", {"-c", documentedCommand("gdbus emit")});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(observer->readLine(), R"(com.tavix.wardlock/update|-|{"key": "kEnabled", "object": true})");
}

} // namespace
} // namespace wardlock::test
