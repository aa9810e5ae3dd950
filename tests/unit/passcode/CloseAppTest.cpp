#include "passcode/PasscodeView.h"
#include "platform/runtime/Class.h"
#include "tests/support/doubles/FakeDevice.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using Transaction = std::shared_ptr<platform::FBWorkspaceTransaction>;

class FakeWorkspace : public platform::FBWorkspace {
public:
    Transaction _selectTransactionForAppExited(platform::Object* application) override {
        askedForNoApplication = application == nullptr;
        return transaction;
    }
    void setCurrentTransaction(Transaction current) override { currentTransaction = current; }

    Transaction transaction = std::make_shared<platform::FBWorkspaceTransaction>();
    Transaction currentTransaction;
    bool askedForNoApplication = false;
};

/// Keeps what is handed to it and runs nothing.
class KeepingQueue : public platform::FBWorkspaceEventQueue {
public:
    void executeOrAppendEvent(std::shared_ptr<platform::FBWorkspaceEvent> event) override {
        events.push_back(std::move(event));
    }

    std::vector<std::shared_ptr<platform::FBWorkspaceEvent>> events;
};

class KeepingQueueClass : public platform::FBWorkspaceEventQueueClass {
public:
    platform::FBWorkspaceEventQueue& sharedInstance() override { return *queue; }
    static KeepingQueueClass& instance() {
        static const auto classMethods = std::make_shared<KeepingQueueClass>();
        return *classMethods;
    }
    static Object& classMethods() { return instance(); }

    const std::shared_ptr<KeepingQueue> queue = std::make_shared<KeepingQueue>();
};

const platform::Class keepingQueue("FBWorkspaceEventQueue", nullptr, &KeepingQueueClass::classMethods);
const platform::Class noEvents("FBWorkspaceEvent", nullptr);
const platform::Class* const keepingTable[] = {&keepingQueue};
const platform::Class* const noEventsTable[] = {&noEvents};

class CloseApp : public testing::Test {
protected:
    ~CloseApp() override { workspace = nullptr; }

    FakeDevice device;
    std::shared_ptr<FakeWorkspace> fake = std::make_shared<FakeWorkspace>();
    std::shared_ptr<PasscodeView> view = PasscodeView::initWithDefaultSize();
};

TEST_F(CloseApp, SetsATransactionWithoutAnApplicationAsTheCurrentOne) {
    workspace = fake.get();
    view->closeApp();
    EXPECT_TRUE(fake->askedForNoApplication);
    EXPECT_EQ(fake->currentTransaction, fake->transaction);
}

TEST_F(CloseApp, DoesNothingWithoutAWorkspace) {
    ASSERT_EQ(workspace, nullptr);
    view->closeApp();
    EXPECT_EQ(fake->currentTransaction, nullptr);
}

TEST_F(CloseApp, PassesItsEventToTheQueueThatHasTheNameThen) {
    auto& events = KeepingQueueClass::instance().queue->events;
    platform::registerClasses(keepingTable);
    view->closeApp();
    platform::withdrawClasses(keepingTable);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0]->name(), "ActivateSpringBoard");
    EXPECT_EQ(fake->currentTransaction, nullptr);
}

TEST_F(CloseApp, AsksTheWorkspaceThatIsThereWhenTheEventRuns) {
    auto& events = KeepingQueueClass::instance().queue->events;
    platform::registerClasses(keepingTable);
    view->closeApp();
    platform::withdrawClasses(keepingTable);
    ASSERT_EQ(events.size(), 1u);
    workspace = fake.get();
    events[0]->execute();
    EXPECT_EQ(fake->currentTransaction, fake->transaction);
}

TEST_F(CloseApp, DoesNothingWithoutTheSystemsEvents) {
    workspace = fake.get();
    platform::registerClasses(noEventsTable);
    view->closeApp();
    platform::withdrawClasses(noEventsTable);
    EXPECT_EQ(fake->currentTransaction, nullptr);
}

} // namespace
} // namespace wardlock::test
