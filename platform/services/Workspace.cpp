#include "platform/services/Workspace.h"

namespace platform {

FBWorkspaceTransaction::~FBWorkspaceTransaction() = default;
FBWorkspace::~FBWorkspace() = default;
FBWorkspaceEvent::~FBWorkspaceEvent() = default;
FBWorkspaceEventClass::~FBWorkspaceEventClass() = default;
FBWorkspaceEventQueue::~FBWorkspaceEventQueue() = default;
FBWorkspaceEventQueueClass::~FBWorkspaceEventQueueClass() = default;

void FBWorkspaceEvent::execute() const {
    const Handler handler = handler_;
    if (handler)
        handler();
}

} // namespace platform
