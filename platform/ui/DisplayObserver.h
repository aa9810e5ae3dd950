#pragma once

#include "platform/base/Export.h"
#include "platform/ui/NSIndexPath.h"

#include <optional>

namespace platform {

class UIView;
class UIViewController;

/// Notified of every change to the objects of this folder: one per process, the Settings application, which
/// shows them. Main thread only. The references are valid during the call.
class WARDLOCK_API DisplayObserver {
public:
    virtual ~DisplayObserver();

    /// A property of a view, or its list of subviews, changed.
    virtual void viewChanged(UIView& view) = 0;
    /// A controller's title, bar buttons, view or presented controller changed.
    virtual void controllerChanged(UIViewController& controller) = 0;
    /// The rows of a list page were rebuilt.
    virtual void listReloaded(UIViewController& page) = 0;
    /// One row's label or value has to be read again.
    virtual void rowReloaded(UIViewController& page, NSIndexPath path) = 0;
    virtual void rowInserted(UIViewController& page, NSIndexPath path, bool animated) = 0;
    /// The text being typed inside the view is to be stored and its keyboard closed.
    virtual void endEditing(UIView& view) = 0;

    /// Returns the process's observer; while none is set, one that ignores everything. The setter takes null
    /// to remove it. The caller keeps ownership.
    static DisplayObserver& current();
    static void setCurrent(DisplayObserver* observer);
};

} // namespace platform
