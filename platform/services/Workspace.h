#pragma once

#include "platform/base/Object.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

class WARDLOCK_API FBWorkspaceTransaction : public Object {
public:
    ~FBWorkspaceTransaction() override;
};

/// The system's workspace: decides which application is in front.
class WARDLOCK_API FBWorkspace : public Object {
public:
    ~FBWorkspace() override;
    virtual std::shared_ptr<FBWorkspaceTransaction> _selectTransactionForAppExited(Object* application) = 0;
    virtual void setCurrentTransaction(std::shared_ptr<FBWorkspaceTransaction> transaction) = 0;
};

class WARDLOCK_API FBWorkspaceEvent : public Object {
public:
    using Handler = std::function<void()>;

    FBWorkspaceEvent(std::string name, Handler handler)
        : name_(std::move(name)), handler_(std::move(handler)) {}
    ~FBWorkspaceEvent() override;

    const std::string& name() const { return name_; }
    void execute() const;

private:
    std::string name_;
    Handler handler_;
};

/// The class methods of "FBWorkspaceEvent".
class WARDLOCK_API FBWorkspaceEventClass : public Object {
public:
    ~FBWorkspaceEventClass() override;
    virtual std::shared_ptr<FBWorkspaceEvent> eventWithName(std::string_view name,
                                                            FBWorkspaceEvent::Handler handler) = 0;
};

/// Runs events one after another: one handed in while another runs is appended and runs after it.
class WARDLOCK_API FBWorkspaceEventQueue : public Object {
public:
    ~FBWorkspaceEventQueue() override;
    virtual void executeOrAppendEvent(std::shared_ptr<FBWorkspaceEvent> event) = 0;
};

/// The class methods of "FBWorkspaceEventQueue".
class WARDLOCK_API FBWorkspaceEventQueueClass : public Object {
public:
    ~FBWorkspaceEventQueueClass() override;
    virtual FBWorkspaceEventQueue& sharedInstance() = 0;
};

} // namespace platform
