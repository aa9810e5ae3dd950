// The system's own classes that pages look up by name.

#include "platform/runtime/Class.h"
#include "platform/services/DeviceInformation.h"
#include "platform/services/PasscodeLockView.h"
#include "platform/services/Workspace.h"

#include <deque>
#include <utility>

namespace platform {

namespace {

class KeypadFactory : public SBUIPasscodeLockViewFactory {
public:
    std::shared_ptr<SBUIPasscodeLockViewSimple4DigitKeypad> passcodeLockViewForStyle(int style) override {
        if (style != 0)
            return nullptr;
        return std::make_shared<SBUIPasscodeLockViewSimple4DigitKeypad>(
            DeviceInformation::current().screenBounds());
    }
};

class EventFactory : public FBWorkspaceEventClass {
public:
    std::shared_ptr<FBWorkspaceEvent> eventWithName(std::string_view name,
                                                    FBWorkspaceEvent::Handler handler) override {
        return std::make_shared<FBWorkspaceEvent>(std::string(name), std::move(handler));
    }
};

class EventQueue : public FBWorkspaceEventQueue {
public:
    void executeOrAppendEvent(std::shared_ptr<FBWorkspaceEvent> event) override {
        waiting_.push_back(std::move(event));
        if (executing_)
            return;
        executing_ = true;
        while (!waiting_.empty()) {
            const auto next = std::move(waiting_.front());
            waiting_.pop_front();
            next->execute();
        }
        executing_ = false;
    }

private:
    std::deque<std::shared_ptr<FBWorkspaceEvent>> waiting_;
    bool executing_ = false;
};

class EventQueueFactory : public FBWorkspaceEventQueueClass {
public:
    FBWorkspaceEventQueue& sharedInstance() override { return *queue_; }

private:
    const std::shared_ptr<EventQueue> queue_ = std::make_shared<EventQueue>();
};

template <class T>
Object& onlyInstance() {
    static const auto instance = std::make_shared<T>();
    return *instance;
}

const Class keypadFactory("SBUIPasscodeLockViewFactory", nullptr, onlyInstance<KeypadFactory>);
const Class workspaceEvent("FBWorkspaceEvent", nullptr, onlyInstance<EventFactory>);
const Class workspaceEventQueue("FBWorkspaceEventQueue", nullptr, onlyInstance<EventQueueFactory>);
const Class* const systemClasses[] = {&keypadFactory, &workspaceEvent, &workspaceEventQueue};

// They are registered for as long as the platform is loaded, without a module.
[[maybe_unused]] const bool registered = (registerClasses(systemClasses), true);

} // namespace

} // namespace platform
