#include "platform/services/Workspace.h"

#include "platform/runtime/Class.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

class Workspace : public ::testing::Test {
protected:
    std::shared_ptr<FBWorkspaceEvent> event(const std::string& name, FBWorkspaceEvent::Handler handler) {
        return objc_getClass("FBWorkspaceEvent")
            ->classMethods<FBWorkspaceEventClass>()
            ->eventWithName(name, std::move(handler));
    }
    FBWorkspaceEventQueue& queue =
        objc_getClass("FBWorkspaceEventQueue")->classMethods<FBWorkspaceEventQueueClass>()->sharedInstance();
    std::vector<std::string> log;
};

TEST_F(Workspace, ExecutesAnEventAtOnceWhenTheQueueIsIdle) {
    queue.executeOrAppendEvent(event("one", [this] { log.emplace_back("one"); }));
    EXPECT_EQ(log, std::vector<std::string>{"one"});
}

TEST_F(Workspace, AppendsAnEventHandedInWhileAnotherRuns) {
    const auto second = event("two", [this] { log.emplace_back("two"); });
    queue.executeOrAppendEvent(event("one", [&] {
        queue.executeOrAppendEvent(second);
        log.emplace_back("one");
    }));
    EXPECT_EQ(log, (std::vector<std::string>{"one", "two"}));
}

TEST_F(Workspace, KeepsTheNameOfAnEvent) {
    EXPECT_EQ(event("ActivateSpringBoard", {})->name(), "ActivateSpringBoard");
}

} // namespace
} // namespace platform
