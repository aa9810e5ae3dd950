// A program on the bus that has taken the desktop portal's name, and lies or does not reply.

#include "platform/runtime/MainLoop.h"
#include "platform/services/DesktopAppearance.h"
#include "platform/services/MailService.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/TestTimeout.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::DesktopAppearance;
using platform::MailOutcome;

/// No mail program, but an outbox: the next way after the portal.
class Portal : public BusFixture {
protected:
    Portal() {
        environment.set("PATH", "/nonexistent");
        for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"})
            environment.unset(variable);
        makeFolder(platform::mailOutboxPath);
    }

    void startPortal(const std::string& lie) {
        // The name is another's until the one before has gone.
        portal_.reset();
        portal_ =
            std::make_unique<Process>(programFolder() + "/test-lying-portal", std::vector<std::string>{lie});
        EXPECT_EQ(portal_->readLine(), "ready");
    }
    /// Where the mail has gone at last.
    static MailOutcome::Kind sent() {
        std::optional<MailOutcome> outcome;
        const platform::MailMessage message{
            {"support@example.org"}, "Help", "text", false, {{"a log", "text/plain", "log"}}};
        platform::MailService::native().send(message, [&](const MailOutcome& result) { outcome = result; });
        EXPECT_TRUE(platform::MainLoop::shared().runUntil([&] { return outcome.has_value(); }, testTimeout));
        return outcome.value_or(MailOutcome()).kind;
    }
    std::size_t mails() const {
        return static_cast<std::size_t>(std::distance(
            fs::directory_iterator(onDisk(platform::mailOutboxPath)), fs::directory_iterator()));
    }

private:
    std::unique_ptr<Process> portal_;
};

TEST_F(Portal, IsIgnoredWhenItsVersionIsAText) {
    startPortal("version");
    EXPECT_EQ(sent(), MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(mails(), 1U);
}

TEST_F(Portal, LeavesTheMailUnsentWhenItsResponseIsAText) {
    startPortal("response");
    EXPECT_EQ(sent(), MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(mails(), 1U);
}

TEST_F(Portal, LeavesTheMailUnsentWhenItEndsBeforeItsResponse) {
    startPortal("end");
    EXPECT_EQ(sent(), MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(mails(), 1U);
}

TEST_F(Portal, LeavesEverythingElseWorkingWhenItNeverReplies) {
    startPortal("silence");
    bool replied = false;
    const platform::MailMessage message{{"support@example.org"}, "Help", "text", false, {}};
    platform::MailService::native().send(message, [&](const MailOutcome&) { replied = true; });
    // The main thread continues: a listener receives a change, and the appearance stays unknown.
    int changes = 0;
    const auto watch = platform::monitorDesktopAppearance([&] { ++changes; });
    EXPECT_FALSE(watch->waitForFirstReport(std::chrono::milliseconds(1)));
    EXPECT_EQ(watch->current(), DesktopAppearance());
    EXPECT_EQ(runProcess(programFolder() + "/wardlock", {"status"}).exitCode, 0);
    EXPECT_FALSE(replied);
    EXPECT_EQ(changes, 0);
}

TEST_F(Portal, ReportsNoAppearanceWhenItsReplyHasAnotherForm) {
    for (const char* lie : {"look", "nonsense", "bounds"}) {
        startPortal(lie);
        const auto watch =
            platform::monitorDesktopAppearance([] { ADD_FAILURE() << "a look was taken from it"; });
        EXPECT_TRUE(watch->waitForFirstReport(testTimeout)) << lie;
        EXPECT_EQ(watch->current(), DesktopAppearance()) << lie;
    }
}

} // namespace
} // namespace wardlock::test
